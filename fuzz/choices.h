#pragma once

#include "support/bytes.h"

#include <optional>
#include <span>

namespace veldrune::test {

/// Where a driver takes its choices from: random numbers of a seed, or the bytes of a fuzzer, after
/// whose end every choice is the first one.
class Choices {
  public:
    explicit Choices(unsigned seed) : random_(Random(seed)) {}
    explicit Choices(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::uint8_t byte() {
        if (random_)
            return random_->byte();
        if (bytes_.empty())
            return 0;
        const std::uint8_t first = bytes_.front();
        bytes_ = bytes_.subspan(1);
        return first;
    }
    /// From 0 to limit - 1.
    int below(int limit) {
        if (random_)
            return random_->below(limit);
        unsigned value = 0;
        for (unsigned above = static_cast<unsigned>(limit - 1); above > 0; above >>= 8)
            value = value << 8 | byte();
        return static_cast<int>(value % static_cast<unsigned>(limit));
    }
    bool one_in(int count) { return below(count) == count - 1; }
    template <typename T>
    const T& of(std::span<const T> all) {
        return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
    }
    /// For what takes many numbers without meaning of their own, such as the bytes of an image.
    Random bulk() { return Random(static_cast<unsigned>(below(0x1000000))); }
    /// Whether all bytes of a fuzzer have been taken.
    bool spent() const { return !random_ && bytes_.empty(); }

  private:
    std::optional<Random> random_;
    std::span<const std::uint8_t> bytes_;
};

} // namespace veldrune::test
