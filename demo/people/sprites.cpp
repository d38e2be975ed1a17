#include "demo/people/sprites.h"

#include "demo/assets/palettes/people.h"
#include "demo/assets/pictures/figures.h"
#include "demo/drawing/tile_pool.h"
#include "rom/rom_layout.h"

namespace veldrune::demo {
namespace {

constexpr std::int32_t sprite_graphics = 0x150200; // $D50000
constexpr int table_entries = 165;                 // of addresses, and of banks
constexpr int palette_count = 16;

constexpr DrawnPicture face = picture(assets::figures, "face");
constexpr std::array heads = pictures<8>(assets::figures, "head");
constexpr std::array bodies = pictures<6>(assets::figures, "body");
constexpr std::array small_ones = pictures<14>(assets::figures, "small");
constexpr int body_top = 13, body_height = 11;
static_assert(std::ranges::all_of(bodies, [](const DrawnPicture& body) {
    return body.lines.size() == body_height;
}));
constexpr std::size_t rows_of_child[] = {0, 1, 5, 6, 9, 10}; // of a body

consteval std::array<Rgb, 15> row(std::string_view name) {
    return colours<15>(assets::people, name);
}
constexpr std::array<Rgb, 15> rows[] = {row("blue"),   row("red"),  row("green"), row("orange"),
                                        row("violet"), row("teal"), row("ochre"), row("linen")};

// Draws the lines of a left half, from y on, and their mirror image, which is shaded.
void draw_half(Picture& p, AssetText lines, int y) {
    static constexpr std::string_view shaded = "34679ac"; // one shade darker in the right half
    for (const std::string_view line : lines) {
        for (int x = 0; x < std::ssize(line); ++x) {
            const char letter = line[static_cast<std::size_t>(x)];
            const int value = pixel_number(letter);
            const bool shadow = x < 6 && shaded.find(letter) != std::string_view::npos;
            if (value != 0) {
                p.set(x, y, ink(0, value));
                p.set(15 - x, y, ink(0, value - shadow));
            }
        }
        ++y;
    }
}

Picture draw_person(int number) {
    Picture p(16, 24);
    const AssetText body = bodies[static_cast<std::size_t>(number / 8) % bodies.size()].lines;
    const int top = number >= child_sprites ? 5 : 0;
    int y = body_top + top;
    if (top == 0)
        draw_half(p, body, y);
    else
        for (const std::size_t row : rows_of_child)
            draw_half(p, body.subspan(row, 1), y++);
    draw_half(p, face.lines, top);
    draw_half(p, heads[static_cast<std::size_t>(number % 8)].lines, top);
    return p;
}

// The second sprite of each kind is mirrored and one pixel higher.
Picture draw_small(int number) {
    const int kinds = static_cast<int>(small_ones.size());
    Picture p(16, 16), hopping(16, 16);
    draw_half(p, small_ones[static_cast<std::size_t>(number % kinds)].lines, 0);
    hopping.fill(0, 0, 16, 15, [&](int x, int y) { return p.at(15 - x, y + 1); });
    return number < kinds ? p : hopping;
}

void put_palettes(ImageWriter& writer) {
    for (int number = 0; number < palette_count; ++number) {
        const int light = number < 8 ? 4 : 3; // the second eight are for the night
        const std::int32_t place = rom_layout::sprite_palettes + 32 * number;
        writer.put_word(place, colour_word({0, 0, 0}));
        for (int i = 1; i < 16; ++i) {
            const Rgb c = rows[number % 8][static_cast<std::size_t>(i - 1)];
            writer.put_word(place + 2 * i,
                            colour_word({c.r * light / 4, c.g * light / 4, c.b * (light + 1) / 5}));
        }
    }
}

} // namespace

void write_sprites(ImageWriter& writer) {
    std::array<std::int32_t, sprite_count> offsets{};
    std::int32_t next = sprite_graphics;
    for (int number = 0; number < sprite_count; ++number) {
        const bool small = number >= small_sprites;
        const Picture p = small ? draw_small(number - small_sprites) : draw_person(number);
        offsets[static_cast<std::size_t>(number)] = next;
        Bytes art(small ? 32 : 0); // the first character of a small sprite is empty
        for (int y = 0; y < (small ? 16 : 24); y += 8)
            for (int x = 0; x < 16; x += 8)
                append_planes(art, block_at(p, x, y));
        writer.put(next, art);
        next += static_cast<std::int32_t>(art.size());
    }
    for (int entry = 0; entry < table_entries; ++entry) {
        const std::int32_t address =
            offsets[static_cast<std::size_t>(entry % sprite_count)] - rom_layout::header_size;
        writer.put_word(rom_layout::sprite_addresses + 2 * entry, address);
        writer.put_word(rom_layout::sprite_banks + 2 * entry, 0xC0 + (address >> 16));
    }
    put_palettes(writer);
}

} // namespace veldrune::demo
