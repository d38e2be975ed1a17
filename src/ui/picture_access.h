#pragma once

namespace veldrune {

/// From the first call on, assistive technology is told that each PixelPicture is a graphic.
void name_pictures_graphics();

} // namespace veldrune
