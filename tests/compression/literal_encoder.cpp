#include "compression/literal_encoder.h"

#include <algorithm>

namespace veldrune::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t zeros_before = 2048; // one turn of the ring

struct Found {
    std::size_t length = 0, position = 0;
};

/// The longest run of three or more bytes in the window; of equally long ones the nearest, or else
/// the farthest.
Found search(const Bytes& source, std::size_t pos, std::size_t window, bool nearest) {
    Found best;
    for (std::size_t c = pos - window; c < pos; ++c) {
        std::size_t n = 0;
        while (n < 34 && source[c + n] == source[pos + n])
            ++n;
        if (n >= 3 && n >= best.length + (nearest ? 0 : 1))
            best = {n, c};
    }
    return best;
}

Bytes encode(std::span<const std::uint8_t> input, std::size_t window, bool nearest) {
    const std::size_t end = zeros_before + input.size();
    Bytes source(end + 34);
    std::ranges::copy(input, source.begin() + zeros_before);
    std::vector<std::size_t> stream(3);
    std::size_t control_at = 2;
    for (std::size_t pos = zeros_before, count = 0; pos < end; ++count) {
        if (count % 8 == 0 && count > 0) {
            control_at = stream.size();
            stream.push_back(0);
        }
        const Found best = search(source, pos, window, nearest);
        if (best.length == 0) {
            stream[control_at] += std::size_t{1} << count % 8;
            stream.push_back(source[pos]);
            pos += 1;
        } else {
            const std::size_t r = (best.position + 2014) % 2048;
            stream.push_back(r % 256);
            stream.push_back((best.length - 3) * 8 + r / 256);
            pos += best.length;
        }
    }
    stream[0] = stream.size() % 256;
    stream[1] = stream.size() / 256;
    return {stream.begin(), stream.end()};
}

} // namespace

std::vector<std::uint8_t> literal_compress_layer(std::span<const std::uint8_t> input) {
    return encode(input, 2048, true);
}

std::vector<std::uint8_t> literal_compress_world_map(std::span<const std::uint8_t> input) {
    return encode(input, 2047, false);
}

} // namespace veldrune::test
