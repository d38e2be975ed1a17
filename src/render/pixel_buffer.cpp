#include "render/pixel_buffer.h"

#include <algorithm>

namespace veldrune {

namespace {

constexpr Colour grid_colour = 0xFFFFFF;

bool inside(int position) {
    return position >= 0 && position < view_size;
}

// Moves one row's pixels right by dx, out of source into target, which may be the same row.
void shift_row(const Colour* source, int dx, Colour* target) {
    const Colour* first = source + std::max(-dx, 0);
    const Colour* last = source + view_size - std::max(dx, 0);
    if (dx > 0)
        std::copy_backward(first, last, target + view_size);
    else
        std::copy(first, last, target);
}

} // namespace

void draw_row(PixelBuffer& buffer, int x0, int x1, int y, Colour colour) {
    x0 = std::max(x0, 0);
    x1 = std::min(x1, view_size);
    if (inside(y) && x0 < x1)
        std::fill(buffer.row(y) + x0, buffer.row(y) + x1, colour);
}

void draw_column(PixelBuffer& buffer, int x, int y0, int y1, Colour colour) {
    if (!inside(x))
        return;
    y1 = std::min(y1, view_size);
    for (int y = std::max(y0, 0); y < y1; ++y)
        buffer.row(y)[x] = colour;
}

void draw_grid(PixelBuffer& buffer, int tile_size) {
    if (tile_size < 1)
        return;
    for (int p = 0; p < view_size; p += tile_size) {
        draw_row(buffer, 0, view_size, p, grid_colour);
        draw_column(buffer, p, 0, view_size, grid_colour);
    }
}

void shift_picture(PixelBuffer& buffer, int dx, int dy) {
    dx = std::clamp(dx, -view_size, view_size);
    dy = std::clamp(dy, -view_size, view_size);
    if (dy > 0) { // from the bottom up, so that no row is overwritten before it has moved
        for (int y = view_size - 1; y >= dy; --y)
            shift_row(buffer.row(y - dy), dx, buffer.row(y));
    } else {
        for (int y = 0; y < view_size + dy; ++y)
            shift_row(buffer.row(y - dy), dx, buffer.row(y));
    }
}

} // namespace veldrune
