#include "compression/literal_encoder.h"

#include <algorithm>

namespace veldrune::test {

namespace {

/// The input at index 0 upward, zeros below and behind.
struct Source {
    static constexpr int guard = 2050;
    std::vector<std::uint8_t> bytes;

    explicit Source(std::span<const std::uint8_t> input) : bytes(guard + input.size() + 40) {
        std::ranges::copy(input, bytes.begin() + guard);
    }
    std::uint8_t operator[](int i) const { return bytes[static_cast<std::size_t>(guard + i)]; }
};

struct Found {
    int length = 0;
    int position = 0;
};

int match_length(const Source& source, int cand, int pos) {
    for (int k = 0; k < 34; ++k)
        if (source[cand + k] != source[pos + k])
            return k;
    return 34;
}

Found search_layer(const Source& source, int pos) {
    Found best;
    for (int c = pos - 2048; c < pos; ++c) {
        const int n = match_length(source, c, pos);
        if (n >= 3 && n >= best.length)
            best = {n, c};
    }
    return best;
}

Found search_world_map(const Source& source, int pos) {
    Found best;
    for (int c = pos - 2047; c < pos; ++c) {
        if (source[c] != source[pos] || source[c + 1] != source[pos + 1] ||
            source[c + 2] != source[pos + 2])
            continue;
        const int n = match_length(source, c, pos);
        if (n > best.length)
            best = {n, c};
    }
    return best;
}

template <typename Search>
std::vector<std::uint8_t> encode(std::span<const std::uint8_t> input, Search search) {
    const Source source(input);
    const int size = static_cast<int>(input.size());
    std::vector<int> stream(3);
    std::size_t control_at = 2;
    for (int pos = 0, count = 0; pos < size; ++count) {
        if (count % 8 == 0 && count > 0) {
            control_at = stream.size();
            stream.push_back(0);
        }
        const Found best = search(source, pos);
        if (best.length == 0) {
            stream[control_at] += 1 << count % 8;
            stream.push_back(source[pos]);
            pos += 1;
        } else {
            const int r = (best.position + 2014 + 2048) % 2048;
            stream.push_back(r % 256);
            stream.push_back((best.length - 3) * 8 + r / 256);
            pos += best.length;
        }
    }
    stream[0] = static_cast<int>(stream.size() % 256);
    stream[1] = static_cast<int>(stream.size() / 256);
    return {stream.begin(), stream.end()};
}

} // namespace

std::vector<std::uint8_t> literal_compress_layer(std::span<const std::uint8_t> input) {
    return encode(input, search_layer);
}

std::vector<std::uint8_t> literal_compress_world_map(std::span<const std::uint8_t> input) {
    return encode(input, search_world_map);
}

} // namespace veldrune::test
