#pragma once

#include "map/palette.h"

namespace veldrune {

/// Draws width by height pixels of source into target, each of them scale by scale. A pitch is the
/// distance from row to row in pixels.
void enlarge_pixels(const Colour* source, int source_pitch, int width, int height, int scale,
                    Colour* target, int target_pitch);

} // namespace veldrune
