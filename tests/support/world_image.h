#pragma once

#include "compression/literal_encoder.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"

namespace veldrune::test {

/// A world's contents, independently of the program.
struct WorldData {
    Bytes tiles;    // 256 by 256
    Bytes graphics; // 9344
    Bytes palette;  // 512
    Bytes entrance; // its only one, 6 bytes; column and row are the first two
    Bytes event;    // the same, 5 bytes

    std::uint8_t& tile(int column, int row) {
        return tiles[static_cast<std::size_t>(row * 256 + column)];
    }
    /// The colour of a tile's pixel (x, y).
    std::uint32_t tile_pixel(int tile, int x, int y) const {
        const auto at = [](const Bytes& bytes, int index) {
            return static_cast<unsigned>(bytes[static_cast<std::size_t>(index)]);
        };
        const int c = static_cast<int>(at(graphics, 4 * tile + y / 8 * 2 + x / 8));
        const unsigned pair = at(graphics, 1024 + 32 * c + y % 8 * 4 + x % 8 / 2);
        const unsigned value = x % 2 == 0 ? pair & 15 : pair >> 4;
        const unsigned rows = at(graphics, 9216 + c / 2);
        const int entry = static_cast<int>(16 * (c % 2 == 0 ? rows & 15 : rows >> 4) + value);
        const unsigned word = at(palette, 2 * entry) | at(palette, 2 * entry + 1) << 8;
        return (word & 31) << 19 | (word >> 5 & 31) << 11 | (word >> 10 & 31) << 3;
    }
    /// The colour of the view's pixel (x, y) under bars, boxes and grid of the window.
    std::uint32_t pixel(const Form1& form, int x, int y) {
        const int h = form.HScroll2.value, v = form.VScroll2.value;
        const auto is_outline = [&](const Bytes& object) {
            const int dx = x + 16 * (h - object[0]), dy = y + 16 * (v - object[1]);
            return dx >= 0 && dx <= 16 && dy >= 0 && dy <= 16 && (dx % 16 == 0 || dy % 16 == 0);
        };
        if (form.Check3 && is_outline(event))
            return 0x0000FF;
        if (form.Check4 && is_outline(entrance))
            return 0x00FF00;
        if (form.grid_on && (x % 16 == 0 || y % 16 == 0))
            return 0xFFFFFF;
        return tile_pixel(tile(h + x / 16, v + y / 16), x % 16, y % 16);
    }
};

// clang-format off
/// Where a world lies in the test image, and the bytes of its pointers.
struct WorldPlace { std::size_t map_pointer, graphics_pointer, palette, map, graphics;
                    std::array<std::uint8_t, 3> map_bytes, graphics_bytes; };
inline constexpr WorldPlace world_places[] = {
    {0x2EB40F, 0x2EB412, 0x12EE00, 0x2F0100, 0x301200, {0x00, 0xFF, 0xEE}, {0x00, 0x10, 0xF0}},
    {0x2EB421, 0x2EB41E, 0x12EF00, 0x308235, 0x310300, {0x35, 0x80, 0xF0}, {0x00, 0x01, 0xF1}},
};
// clang-format on

/// Runs of random tiles, random graphics and colours, an entrance and an event anywhere.
inline WorldData random_world(Random& random) {
    WorldData world{Bytes(65536), Bytes(9344), Bytes(512), Bytes(6), Bytes(5)};
    for (std::size_t i = 0; i < world.tiles.size(); ++i) {
        const std::size_t back = i % 2 == 0 || i == 1 ? 1 : 2; // to the tile that is repeated
        const bool repeats = i > 0 && random.below(12) != 0;
        world.tiles[i] = repeats ? world.tiles[i - back] : random.byte();
    }
    for (Bytes* bytes : {&world.graphics, &world.palette, &world.entrance, &world.event})
        random.fill(*bytes);
    return world;
}

/// The demo image, larger, with two random worlds in the place of its own.
struct WorldImage {
    std::array<WorldData, 2> worlds;
    Bytes bytes = demo_bytes();

    explicit WorldImage(unsigned seed = 1) {
        Random random(seed);
        bytes.resize(0x400200, 0xFF);
        for (WorldData& world : worlds)
            world = random_world(random);
        std::copy_n(worlds[1].palette.begin(), 256, worlds[0].palette.begin() + 256);
        for (std::size_t i = 0; i < 2; ++i) {
            const WorldPlace& place = world_places[i];
            put_bytes(bytes, place.map_pointer, place.map_bytes);
            put_bytes(bytes, place.graphics_pointer, place.graphics_bytes);
            put_bytes(bytes, place.palette, worlds[i].palette);
            put_bytes(bytes, place.map, literal_compress_world_map(worlds[i].tiles));
            put_bytes(bytes, place.graphics, literal_compress_world_map(worlds[i].graphics));
        }
        put_records(ObjectKind::entrance, &WorldData::entrance);
        put_records(ObjectKind::event_trigger, &WorldData::event);
    }
    /// The only record of either world. The one of Dusk lies after the one of Dawn.
    void put_records(ObjectKind kind, Bytes WorldData::*record) {
        const KindPlace& place = place_of(kind);
        put_objects(bytes, kind, 0, {worlds[0].*record, worlds[1].*record});
        for (const std::size_t end : {1u, 2u})
            put_word(bytes, place.pointers + 2 * end, 0x400 + end * place.size);
    }
};

} // namespace veldrune::test
