#pragma once

#include "support/bytes.h"

#include <span>

namespace veldrune::test {

/// The encoder at its plainest: at every position every candidate in the window is tried; of
/// equally long runs the nearest counts, or else the farthest. The stream may have any length;
/// above 65535 bytes its length field wraps.
inline Bytes literal_compress(std::span<const std::uint8_t> input, std::size_t window,
                              bool nearest) {
    constexpr std::size_t zeros_before = 2048; // one turn of the ring
    const std::size_t end = zeros_before + input.size();
    Bytes source(end + 34);
    std::ranges::copy(input, source.begin() + zeros_before);
    std::vector<std::size_t> stream(3);
    std::size_t control_at = 2;
    for (std::size_t pos = zeros_before, item = 0; pos < end; ++item) {
        if (item % 8 == 0 && item > 0) {
            control_at = stream.size();
            stream.push_back(0);
        }
        std::size_t length = 0, found = 0;
        for (std::size_t c = pos - window; c < pos; ++c) {
            std::size_t n = 0;
            while (n < 34 && source[c + n] == source[pos + n])
                ++n;
            if (n > length || (nearest && n == length)) {
                length = n;
                found = c;
            }
        }
        if (length < 3) {
            stream[control_at] += std::size_t{1} << item % 8;
            stream.push_back(source[pos++]);
        } else {
            const std::size_t r = (found + 2014) % 2048;
            stream.push_back(r % 256);
            stream.push_back((length - 3) * 8 + r / 256);
            pos += length;
        }
    }
    stream[0] = stream.size() % 256;
    stream[1] = stream.size() / 256;
    return {stream.begin(), stream.end()};
}

inline Bytes literal_compress_layer(std::span<const std::uint8_t> input) {
    return literal_compress(input, 2048, true);
}
inline Bytes literal_compress_world_map(std::span<const std::uint8_t> input) {
    return literal_compress(input, 2047, false);
}

} // namespace veldrune::test
