#pragma once

#include "demo/demo_image.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

namespace veldrune::test {

using Bytes = std::vector<std::uint8_t>;

/// A reader of its own: nothing here goes through the program's tables or decoders.
struct Reader {
    const Bytes& image;

    int byte(int at) const { return image.at(static_cast<std::size_t>(at)); }
    int word(int at) const { return byte(at) | byte(at + 1) << 8; }
    int pointer(int at) const { return word(at) | byte(at + 2) << 16; }
    /// Bits of the record, the lowest of byte 0 first.
    int bits(int map, int first, int count) const {
        int value = 0;
        for (int i = 0; i < count; ++i)
            value |= (byte(0x2D9100 + 33 * map + (first + i) / 8) >> (first + i) % 8 & 1) << i;
        return value;
    }
    int end_of_stream(int at) const { return at + word(at); }
    Bytes decode(int at) const {
        std::array<std::uint8_t, 2048> ring{};
        Bytes result;
        const auto put = [&](std::uint8_t value) {
            ring[(result.size() + 0x7DE) % 2048] = value;
            result.push_back(value);
        };
        int next = at + 2;
        const int end = end_of_stream(at);
        while (next < end)
            for (int control = byte(next++), item = 0; item < 8 && next < end; ++item) {
                if (control >> item & 1) {
                    put(static_cast<std::uint8_t>(byte(next++)));
                    continue;
                }
                const int reference = word(next);
                next += 2;
                for (int i = 0; i < (reference >> 11) + 3; ++i)
                    put(ring[static_cast<std::size_t>((reference + i) & 2047)]);
            }
        return result;
    }

    // First bits in the record: data numbers 104 + 10 * layer; width and height codes by layer.
    int data_number(int map, int layer) const { return bits(map, 104 + 10 * layer, 10); }
    int width(int map, int layer) const {
        return 16 << bits(map, std::array{190, 186, 198}[static_cast<std::size_t>(layer)], 2);
    }
    int height(int map, int layer) const {
        return 16 << bits(map, std::array{188, 184, 196}[static_cast<std::size_t>(layer)], 2);
    }
    int layer_stream(int number) const { return 0x19D3B0 + pointer(0x19CF90 + 3 * number); }
    std::size_t size(int map, int layer) const {
        return static_cast<std::size_t>(width(map, layer) * height(map, layer));
    }
    Bytes layer(int map, int which) const {
        Bytes cells = decode(layer_stream(data_number(map, which)));
        cells.resize(size(map, which));
        return cells;
    }
    bool has_layer3(int map) const { return layer_stream(data_number(map, 2)) != 0x19D3B0; }
    Bytes formations(int map, int layer) const {
        return decode(0x1E0200 + pointer(0x1FBC00 + 3 * bits(map, 90 + 7 * layer, 7)));
    }
    int layer3_graphics(int map) const { return bits(map, 84, 6); }
    int layer3_order(int map) const {
        const int v = byte(0x10002 + 3 * bits(map, 256, 8) % 256);
        return v & 4 ? 1 : (v & 3) == 0 || (v & 3) == 3 ? 2 : 0;
    }
};

/// The demo image, made once.
class DemoImage : public testing::Test {
  protected:
    static const Bytes& image() {
        static const Bytes made = demo::make_demo_image();
        return made;
    }
    const Reader rom{image()};
};

} // namespace veldrune::test
