#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace veldrune::test {

using Bytes = std::vector<std::uint8_t>;

/// The bytes of a text such as "13 00 FF".
inline Bytes hex_bytes(const std::string& text) {
    Bytes bytes;
    std::istringstream words(text);
    for (unsigned value = 0; words >> std::hex >> value;)
        bytes.push_back(static_cast<std::uint8_t>(value));
    return bytes;
}

/// Puts bytes at their place into an image, which grows where it must.
inline void put_bytes(Bytes& image, std::size_t at, const auto& bytes) {
    if (!std::empty(bytes))
        image.resize(std::max(image.size(), at + std::size(bytes)));
    std::ranges::copy(bytes, image.begin() + static_cast<std::ptrdiff_t>(at));
}
/// The same with a word, within the image.
inline void put_word(Bytes& image, std::size_t at, std::size_t value) {
    image[at] = static_cast<std::uint8_t>(value);
    image[at + 1] = static_cast<std::uint8_t>(value >> 8);
}

/// Random numbers for tests: the same in every run.
struct Random {
    std::mt19937 engine;
    explicit Random(unsigned seed) : engine(seed) {}
    /// From 0 to limit - 1.
    int below(int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); }
    std::uint8_t byte() { return static_cast<std::uint8_t>(engine()); }
    void fill(auto& bytes) {
        std::ranges::generate(bytes, [this] { return byte(); });
    }
    template <std::size_t size>
    std::array<std::uint8_t, size> bytes() {
        std::array<std::uint8_t, size> all;
        fill(all);
        return all;
    }
};

} // namespace veldrune::test
