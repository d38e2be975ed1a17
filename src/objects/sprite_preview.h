#pragma once

#include "forms/form10.h"
#include "rom/rom_image.h"

#include <cstdint>

namespace veldrune {

/// Sprites from this number on are not previewed.
inline constexpr int first_hidden_sprite = 0x73;
/// Sprites from this number on are 16 by 16 pixels; those below are 16 by 24.
inline constexpr int first_short_sprite = 0x57;

/// Draws a sprite six times its size into the form's Picture1. graphics_offset is the file offset
/// of its characters, sprite its number, palette one of the eight sprite palettes.
void draw_sprite_preview(const RomImage& rom, std::int64_t graphics_offset, std::int32_t sprite,
                         int palette, Form10& form);

} // namespace veldrune
