#include "compression/decompress.h"

#include <algorithm>
#include <span>

namespace veldrune {

namespace {

// The decoder's output index p and the highest index that it may take.
struct Output {
    std::uint8_t* bytes;
    int limit;
    int p = 0;

    // False if the output is full.
    bool put(std::uint8_t byte) {
        if (p > limit)
            return false;
        bytes[p++] = byte;
        return true;
    }

    // A reference is one word: LLLLLPPP PPPPPPPP, the run's length - 3 and its ring position. The
    // run is taken from the last ring_size positions, the guard included, byte by byte, so that it
    // may repeat bytes that it has just written.
    bool put_run(int reference) {
        const int length = (reference >> 11) + shortest_run;
        int q = reference % ring_size - ring_start;
        if (q + ring_size < p)
            q += (p - q - 1) / ring_size * ring_size;
        for (int i = 0; i < length; ++i)
            if (!put(bytes[q + i]))
                return false;
        return true;
    }
};

// A stream is its length and then groups: a control byte and up to eight items, a literal byte for
// each set bit and a reference for each clear one, from the lowest bit up. Only the length ends it.
// stream holds one byte more than that, for a reference that begins at the last byte. Returns how
// many bytes were put out.
int decode(std::span<const std::uint8_t> stream, Output output) {
    const std::size_t last = stream.size() - 2;
    for (std::size_t r = 2; r < last;) {
        const int control = stream[r++];
        for (int bit = 0; bit < 8; ++bit) {
            if (r > last)
                return output.p;
            const bool literal = (control >> bit & 1) != 0;
            if (literal ? !output.put(stream[r]) : !output.put_run(stream[r] | stream[r + 1] << 8))
                return output.p;
            r += literal ? 1 : 2;
        }
    }
    return output.p;
}

} // namespace

int decompress_stream(const RomImage& rom, std::int64_t stream_offset, DecompressBuffer& buffer,
                      int output_limit) {
    std::fill_n(buffer.output(), output_limit + 1, std::uint8_t{0});
    const std::size_t length = rom.read_word(stream_offset);
    const std::size_t longest =
        output_limit == layer_output_limit ? 0xFFFF : max_world_stream_bytes;
    if (length < 2 || length > longest)
        return 0;
    std::array<std::uint8_t, 0xFFFF + 1> bytes;
    const auto stream = std::span(bytes).first(length + 1);
    rom.read(stream_offset, stream);
    return decode(stream, {buffer.output(), output_limit});
}

} // namespace veldrune
