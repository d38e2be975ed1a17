#pragma once

#include "demo/image/image_writer.h"

namespace veldrune::demo {

/// 256 names of 13 letters in the game's letter code, filled up with blanks.
void write_item_names(ImageWriter& writer);

} // namespace veldrune::demo
