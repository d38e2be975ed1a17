#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace veldrune {

/// A packed colour: blue in bits 0-7, green in bits 8-15, red in bits 16-23. 0 means no pixel.
using Colour = std::uint32_t;

/// Packed colours, row by row from the top left. Every access for writing, and every assignment,
/// increments the version, so that a widget knows when to repaint.
template <int width_, int height_>
class Picture {
  public:
    static constexpr int width = width_;
    static constexpr int height = height_;

    Picture() = default;
    Picture(const Picture& other) : pixels_(other.pixels_) {}
    Picture& operator=(const Picture& other) {
        pixels_ = other.pixels_;
        ++version_;
        return *this;
    }

    /// The first pixel of row y, which is width pixels long.
    Colour* row(int y) {
        ++version_;
        return pixels_.data() + y * width;
    }
    const Colour* row(int y) const { return pixels_.data() + y * width; }
    void fill(Colour colour) {
        ++version_;
        pixels_.fill(colour);
    }
    Colour operator[](std::size_t pixel) const { return pixels_[pixel]; }
    const std::array<Colour, width * height>& pixels() const { return pixels_; }
    const std::uint64_t& version() const { return version_; }
    /// Whether all pixels are the same.
    bool operator==(const Picture& other) const { return pixels_ == other.pixels_; }

  private:
    alignas(64) std::array<Colour, width * height> pixels_{};
    std::uint64_t version_ = 0;
};

} // namespace veldrune
