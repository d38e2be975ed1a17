#include "objects/markers.h"

#include <algorithm>

namespace veldrune {
namespace {

constexpr std::size_t run_byte = 2; // of a long entrance's record
constexpr int down_bit = 0x80;      // the entrance runs down a column

// The tiles that an outline encloses.
struct TileArea {
    int x;
    int y;
    int width;
    int height;
};

int object_x(ObjectKind kind, std::span<const std::uint8_t> record) {
    return record[static_cast<std::size_t>(object_kind_row(kind).x_byte)];
}

int object_y(ObjectKind kind, std::span<const std::uint8_t> record) {
    const ObjectKindRow& row = object_kind_row(kind);
    return record[static_cast<std::size_t>(row.y_byte)] & row.y_mask;
}

// A run along a row is one tile longer than its stored length, one down a column is not.
TileArea outline(ObjectKind kind, std::span<const std::uint8_t> record) {
    TileArea area{object_x(kind, record), object_y(kind, record), 1, 1};
    if (kind != ObjectKind::long_entrance)
        return area;
    if (record[run_byte] < down_bit)
        area.width = record[run_byte] + 1;
    else
        area.height = record[run_byte] - down_bit;
    return area;
}

// The tiles on which a click finds the object.
TileArea clickable_area(ObjectKind kind, std::span<const std::uint8_t> record) {
    TileArea area = outline(kind, record);
    if (kind == ObjectKind::long_entrance && record[run_byte] >= down_bit)
        ++area.height;
    return area;
}

// The pixel of a tile's edge. A position outside the picture is moved to the nearest one outside.
int edge(int tile, int origin, int tile_size) {
    const std::int64_t pixel = (std::int64_t{tile} - origin) * tile_size;
    return static_cast<int>(std::clamp<std::int64_t>(pixel, -1, view_size));
}

} // namespace

void draw_markers(ObjectKind kind, ObjectList& list, ViewPlace place, PixelBuffer& buffer) {
    const Colour colour = object_kind_row(kind).colour;
    for (int index = 0; index < list.row_count; ++index) {
        const TileArea area = outline(kind, object_row(kind, list, index));
        const int left = edge(area.x, place.h, place.tile_size);
        const int right = edge(area.x + area.width, place.h, place.tile_size);
        const int top = edge(area.y, place.v, place.tile_size);
        const int bottom = edge(area.y + area.height, place.v, place.tile_size);
        draw_row(buffer, left, right + 1, top, colour);
        draw_row(buffer, left, right + 1, bottom, colour);
        draw_column(buffer, right, top, bottom + 1, colour);
        draw_column(buffer, left, top, bottom + 1, colour);
    }
    list.markers_drawn = true;
}

bool object_hit_by_click(ObjectKind kind, const ObjectList& list, int index, int x, int y) {
    if (kind == ObjectKind::npc && !list.markers_drawn)
        return false;
    const TileArea area = clickable_area(kind, object_row(kind, list, index));
    return x >= area.x && x < area.x + area.width && y >= area.y && y < area.y + area.height;
}

} // namespace veldrune
