#pragma once

#include "forms/picture.h"

namespace veldrune {

/// The side of the map picture in pixels.
inline constexpr int view_size = 512;

/// The map picture: 512 by 512 packed colours. Pixels that are not drawn over keep their colour.
using PixelBuffer = Picture<view_size, view_size>;

/// Draws a line one pixel wide from (x0, y) up to, but not at, (x1, y); what falls outside the
/// picture is left out. draw_column does the same downwards.
void draw_row(PixelBuffer& buffer, int x0, int x1, int y, Colour colour);
void draw_column(PixelBuffer& buffer, int x, int y0, int y1, Colour colour);

/// White lines at the top and left edge of every cell; tile_size is the side of a cell in pixels.
void draw_grid(PixelBuffer& buffer, int tile_size);

/// Moves the whole picture right by dx and down by dy pixels, each between -512 and 512. What is
/// uncovered keeps what it held.
void shift_picture(PixelBuffer& buffer, int dx, int dy);

} // namespace veldrune
