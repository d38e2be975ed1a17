#pragma once

#include <cstdint>

namespace veldrune::demo {

/// A hash of up to three numbers.
constexpr std::uint32_t mix(std::uint32_t a, std::uint32_t b = 0, std::uint32_t c = 0) {
    std::uint32_t h = a * 0x9E3779B1u ^ b * 0x85EBCA77u ^ c * 0xC2B2AE3Du;
    h = (h ^ (h >> 15)) * 0x2C1B3C6Du;
    h = (h ^ (h >> 12)) * 0x297A2D39u;
    return h ^ (h >> 15);
}

/// A value from 0 to count - 1 that looks random but depends only on the position and the purpose.
constexpr int scatter(int x, int y, int purpose, int count) {
    return static_cast<int>(mix(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y),
                                static_cast<std::uint32_t>(purpose)) %
                            static_cast<std::uint32_t>(count));
}

/// Random integers, the same on every machine. Get only one per statement, because compilers differ
/// in the order in which they evaluate the arguments of a call.
class Random {
  public:
    explicit Random(std::uint32_t seed) : state_(mix(seed, 0x5EEDu)) {}
    /// 0 to count - 1.
    int below(int count) {
        return static_cast<int>(mix(state_, ++step_) % static_cast<std::uint32_t>(count));
    }
    int between(int low, int high) { return low + below(high - low + 1); }
    bool one_in(int count) { return below(count) == 0; }

  private:
    std::uint32_t state_;
    std::uint32_t step_ = 0;
};

} // namespace veldrune::demo
