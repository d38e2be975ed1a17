#include "demo/drawing/place.h"
#include "demo/worlds/world_art.h"

namespace veldrune::demo::overland {
namespace {

constexpr Ramp roof{ink(house_row, 6), 3}, wall{ink(house_row, 9), 3};
constexpr Ramp stone{ink(castle_row, 6), 5}, slate{ink(castle_row, 11), 3};

void draw_house(Picture& tile, int x, int y, int width) {
    const int wall_top = y + 4;
    tile.rect(x, wall_top, width, 4, wall[1]);
    tile.rect(x, wall_top, 1, 4, wall[2]);
    tile.rect(x + width - 1, wall_top, 1, 4, wall[0]);
    tile.rect(x + width / 2, wall_top + 2, 1, 2, ink(house_row, 13));
    if (width > 5)
        tile.set(x + 1, wall_top + 1, ink(house_row, 14));
    for (int line = 0; line < 4; ++line)
        tile.rect(x - 1 + (3 - line) / 2, y + line, width + 2 - (3 - line) / 2 * 2, 1,
                  roof[line == 0   ? 2
                       : line == 3 ? 0
                                   : 1]);
    tile.rect(x, wall_top + 4, width + 1, 1, grass(house_row)[0]);
}

void draw_turret(Picture& block, int x, int top, int bottom) {
    block.rect(x, top + 6, 7, bottom - top - 6, stone[2]);
    block.rect(x, top + 6, 2, bottom - top - 6, stone[4]);
    block.rect(x + 5, top + 6, 2, bottom - top - 6, stone[0]);
    block.rect(x + 3, top + 9, 1, 3, ink(castle_row, 14));
    for (int line = 0; line < 6; ++line)
        block.fill(x + 3 - (line + 1) / 2, top + line, 1 + (line + 1) / 2 * 2, 1, [&](int at, int) {
            return slate[at < x + 3 ? 2 : at == x + 3 ? 1 : 0];
        });
    block.rect(x + 3, top - 2, 1, 2, ink(castle_row, 14));
    block.rect(x + 4, top - 2, 2, 1, ink(castle_row, 15));
}

} // namespace

Picture village_tile() {
    Picture tile = plain(house_row);
    draw_house(tile, 2, 1, 5);
    draw_house(tile, 10, 3, 5);
    draw_house(tile, 5, 8, 5);
    return tile;
}

Picture town_tile() {
    Picture tile = plain(house_row);
    tile.bevel(0, 3, 16, 12, wall[2], wall[1], wall[0]);
    tile.rect(2, 5, 12, 8, grass(house_row)[1]);
    draw_house(tile, 2, 0, 5);
    draw_house(tile, 9, 0, 6);
    draw_house(tile, 5, 5, 7);
    tile.rect(0, 12, 16, 3, wall[1]);
    for (int x = 0; x < side; x += 3)
        tile.rect(x, 11, 2, 1, wall[2]);
    tile.rect(0, 15, 16, 1, wall[0]);
    tile.rect(7, 12, 3, 4, ink(house_row, 13));
    return tile;
}

Picture harbour_tile() {
    Picture tile = plain(house_row);
    draw_house(tile, 1, 6, 6);
    tile.rect(9, 2, 5, 13, wall[1]); // a lighthouse
    tile.rect(9, 2, 1, 13, wall[2]);
    tile.rect(12, 2, 2, 13, wall[0]);
    tile.rect(9, 6, 5, 2, roof[1]);
    tile.rect(9, 10, 5, 2, roof[1]);
    tile.rect(8, 2, 7, 1, ink(house_row, 12));
    tile.rect(10, 0, 3, 2, ink(house_row, 14));
    return tile;
}

Picture tower_tile() {
    Picture tile = plain(castle_row);
    tile.rect(12, 13, 3, 2, grass(castle_row)[0]);
    tile.rect(4, 4, 8, 11, stone[2]);
    tile.rect(4, 4, 2, 11, stone[4]);
    tile.rect(10, 4, 2, 11, stone[0]);
    for (const int y : {6, 9, 12})
        tile.rect(7, y, 1, 2, ink(castle_row, 14));
    tile.rect(3, 3, 10, 2, stone[3]);
    tile.rect(3, 5, 10, 1, stone[0]);
    for (int line = 0; line < 3; ++line)
        tile.rect(7 - line, line, 2 + 2 * line, 1, slate[line == 0 ? 2 : 1]);
    return tile;
}

Picture ruin_tile() {
    Picture tile = plain(castle_row);
    static constexpr Place columns[] = {{1, 4}, {5, 8}, {9, 2}, {13, 7}};
    for (const auto& [x, top] : columns) {
        tile.rect(x, top, 2, 13 - top, stone[3]);
        tile.rect(x + 1, top + 1, 1, 12 - top, stone[1]);
        tile.rect(x - 1, 13, 4, 1, stone[2]);
        tile.rect(x, 14, 4, 1, grass(castle_row)[0]);
    }
    tile.rect(0, 3, 4, 1, stone[4]);
    tile.rect(6, 11, 3, 2, stone[1]);
    tile.set(6, 11, stone[3]);
    return tile;
}

Picture cave_tile() {
    Picture tile = mountain_tile(3);
    tile.fill(3, 2, 10, 9, [](int x, int y) -> Pixel {
        const int u = 2 * x - 15, v = y < 7 ? 2 * (y - 7) : 0;
        return u * u + v * v < 30   ? ink(rock_row, 15)
               : u * u + v * v < 84 ? rock[x < 8 ? 4 : 1]
                                    : Pixel{0};
    });
    return tile;
}

Picture castle_block() {
    Picture block = plain(castle_row, 32, 32);
    block.rect(4, 28, 27, 3, grass(castle_row)[0]);
    draw_turret(block, 12, 2, 20); // the keep
    draw_turret(block, 6, 6, 24);
    draw_turret(block, 19, 6, 24);
    block.rect(3, 17, 26, 12, stone[2]);
    block.fill(3, 17, 26, 12, [](int x, int y) -> Pixel {
        return y % 3 == 2 || (x + y / 3 % 2 * 2) % 4 == 0 ? stone[x < 16 ? 2 : 1]
                                                          : stone[x < 16 ? 3 : 2];
    });
    for (int x = 3; x < 29; x += 4)
        block.rect(x, 15, 2, 2, stone[4]);
    draw_turret(block, 1, 8, 30);
    draw_turret(block, 24, 8, 30);
    block.fill(12, 20, 8, 9, [](int x, int y) -> Pixel {
        const int u = 2 * x - 31, v = y < 23 ? 2 * (y - 23) : 0;
        return u * u + v * v < 36 ? ink(castle_row, 14) : u * u + v * v < 64 ? stone[4] : Pixel{0};
    });
    return block;
}

} // namespace veldrune::demo::overland
