#pragma once

#include "inspect/pictures.h"

#include <string>

namespace veldrune::cli {

/// Draws a picture into a PNG file and returns its size. Throws Failure.
inspect::PictureSize put_picture(inspect::MapPainter& painter, int picture,
                                 const std::string& path);

/// Makes a folder, where there is none, and returns what a file's name is put after. Throws
/// Failure.
std::string make_folder(const std::string& path);

} // namespace veldrune::cli
