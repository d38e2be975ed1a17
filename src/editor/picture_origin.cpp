#include "editor/picture_origin.h"

#include <algorithm>

namespace veldrune {
namespace {

// What is left of an area in a view of that many cells across after a scroll.
CellArea scrolled(CellArea area, int columns, int rows, int across) {
    const auto inside = [across](int cell) { return std::clamp(cell, 0, across); };
    return {inside(area.left - columns), inside(area.top - rows), inside(area.right - columns),
            inside(area.bottom - rows)};
}

// Whether markers of a kind that isn't drawn now may be left in the picture.
bool leaves_markers(const MarkerKinds& drawn, const MarkerKinds& now) {
    for (std::size_t kind = 0; kind < drawn.size(); ++kind)
        if (drawn[kind] && !now[kind])
            return true;
    return false;
}

bool continues(const DrawnStrips& strips, const MapOrigin& cells, const MapView& view,
               const MarkerKinds& markers) {
    return !strips.rest.is_empty() && same_map(strips.cells, cells) &&
           same_layers(strips.view, view) && !leaves_markers(strips.markers, markers);
}

} // namespace

bool same_image(const std::optional<ImageSource>& a, const std::optional<ImageSource>& b) {
    return a.has_value() == b.has_value() && (!a || a->identity == b->identity);
}

bool same_map(const MapOrigin& a, const MapOrigin& b) {
    return a.map_index == b.map_index && same_image(a.source, b.source);
}

bool same_layers(const MapView& a, const MapView& b) {
    return a.stack == b.stack && a.widths == b.widths && a.heights == b.heights;
}

void remember_whole(PictureOrigin& origin, const MapOrigin& cells, const MapView& view) {
    origin.tiles_drawn = true;
    origin.world.reset();
    origin.cells = cells;
    origin.view = view;
    origin.markers = {};
    origin.strips = {};
    origin.strips_differ = false;
}

void remember_strip(PictureOrigin& origin, const MapOrigin& cells, const MapView& view,
                    const MarkerKinds& markers, int columns, int rows) {
    const int across = view.cells_across;
    CellArea rest{0, 0, across, across};
    if (continues(origin.strips, cells, view, markers))
        rest = origin.strips.rest;
    origin.strips = {cells, view, markers, scrolled(rest, columns, rows, across)};
    origin.strips_differ |= !same_map(cells, origin.cells) || !same_layers(view, origin.view);
    if (origin.strips.rest.is_empty())
        remember_whole(origin, cells, view);
}

void remember_world(PictureOrigin& origin, World world) {
    origin.world = world;
    origin.strips = {};
}

} // namespace veldrune
