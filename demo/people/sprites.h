#pragma once

#include "demo/image/image_writer.h"

namespace veldrune::demo {

inline constexpr int child_sprites = 48; // number of the first child; adults come before
inline constexpr int small_sprites = 87; // number of the first sprite of 16 by 16 pixels
inline constexpr int sprite_count = 115;

/// Writes the graphics, addresses, banks and palettes of the sprites.
void write_sprites(ImageWriter& writer);

} // namespace veldrune::demo
