#pragma once

#include "forms/picture.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace veldrune::cli {

/// Makes a PNG of packed colours, in memory: RGB, rows without filter, packed fast.
class PngWriter {
  public:
    /// Sizes in pixels.
    PngWriter(int width, int height);
    ~PngWriter();
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;

    /// Adds whole rows from the top down. Throws Failure, as finish does.
    void add_rows(std::span<const Colour> pixels);
    /// Ends the file after its last row and returns its bytes.
    std::span<const std::uint8_t> finish();

  private:
    struct Png;
    std::unique_ptr<Png> png_;
};

} // namespace veldrune::cli
