#include "objects/sprite_preview.h"

#include "map/palette.h"
#include "render/enlarge.h"
#include "render/formations.h"
#include "rom/rom_layout.h"

namespace veldrune {
namespace {

constexpr int sprite_width = 16;
constexpr int character_size = 32;

// Which of a sprite's characters are drawn, two to a row.
struct SpriteForm {
    int first_character;
    int character_count;
    int picture_height;
};
constexpr SpriteForm tall_sprite = {0, 6, sprite_picture_height};
constexpr SpriteForm short_sprite = {1, 4, short_sprite_picture_height};

} // namespace

void draw_sprite_preview(const RomImage& rom, std::int64_t graphics_offset, std::int32_t sprite,
                         int palette, Form10& form) {
    const SpriteForm& shape = sprite < first_short_sprite ? tall_sprite : short_sprite;
    const PaletteRow colours = palette_row(read_palette(rom, rom_layout::sprite_palettes),
                                           16 * static_cast<std::size_t>(palette), 16);
    std::array<Colour, sprite_width * 24> pixels{};
    for (int k = 0; k < shape.character_count; ++k) {
        std::array<std::uint8_t, character_size> graphics;
        rom.read(graphics_offset + character_size * (shape.first_character + k), graphics);
        decode_character(graphics, 0, colours,
                         pixels.data() + k / 2 * 8 * sprite_width + k % 2 * 8);
    }
    form.Picture1.fill(0);
    constexpr int scale = sprite_picture_width / sprite_width;
    enlarge_pixels(pixels.data(), sprite_width, sprite_width, shape.picture_height / scale, scale,
                   form.Picture1.row(0), sprite_picture_width);
    form.Picture1_height = shape.picture_height;
}

} // namespace veldrune
