#include "editor/cell_info.h"

#include "editor/cursor.h"
#include "editor/tile_chooser.h"
#include "editor/view.h"
#include "editor/view_place.h"
#include "rom/number_text.h"

namespace veldrune {
namespace {

bool shows_something(const EditorState& state) {
    return state.rom_open && (state.world_map_mode || state.map_selected);
}

// Two digits, more for a larger value.
std::string hex_pair(std::int64_t value) {
    std::string text = format_hex(value);
    if (text.size() < 2)
        text.insert(0, 1, '0');
    return text;
}

std::string place_text(std::int64_t column, std::int64_t row) {
    return "column " + hex_pair(column) + ", row " + hex_pair(row);
}

std::string world_tile_text(const EditorState& state, const Cursor& cursor) {
    std::string text = " - tile ";
    return text += hex_pair(state.world.world_map.at(cursor.column, cursor.row));
}

// Whether the picture can show a tile of a layer there.
bool has_tile(const MapView& view, std::size_t layer, const Cursor& cursor) {
    const bool missing = layer == 2 && view.stack.blend == Layer3Blend::none;
    return !missing && cursor.column < view.widths[layer] && cursor.row < view.heights[layer];
}

std::string layers_text(const EditorState& state, const Cursor& cursor) {
    const MapView view = map_view(state.map, state.form1, state.zoom);
    const CellTiles tiles = tiles_under(state.map, cursor);
    std::string text;
    for (std::size_t layer = 0; layer < layer_count; ++layer)
        text += (layer == 0 ? " - layer " : ", layer ") + std::to_string(layer + 1) + ": " +
                (has_tile(view, layer, cursor) ? hex_pair(tiles[layer]) : "--");
    return text;
}

constexpr Colour opaque = 0xFF000000;

// The current tile of a world, which covers all that lies below.
Formation world_formation(const EditorState& state) {
    const Colour* tile =
        state.world.world_sheet.tile(static_cast<std::uint8_t>(state.form1.current_tile));
    Formation pixels;
    for (std::size_t pixel = 0; pixel < pixels.size(); ++pixel)
        pixels[pixel] =
            opaque | tile[pixel / world_tile_size * WorldSheet::side + pixel % world_tile_size];
    return pixels;
}

// The current tile of the edit layer.
Formation map_formation(const EditorState& state) {
    Formation pixels = whole_formation(state.display.bitmaps, state.form1.edit_layer,
                                       static_cast<std::uint8_t>(state.form1.current_tile));
    for (Colour& pixel : pixels)
        pixel |= pixel ? opaque : 0;
    return pixels;
}

} // namespace

std::string map_cell_text(const EditorState& state, int x, int y) {
    const Cursor cursor = locate_cursor(state, x, y);
    if (!shows_something(state) || !cursor.in_picture)
        return "";
    std::string text = place_text(cursor.column, cursor.row);
    if (!cursor.in_map)
        return text += " - outside the map";
    return text += (state.world_map_mode ? world_tile_text : layers_text)(state, cursor);
}

std::string sheet_cell_text(int x, int y) {
    const SheetCell cell = sheet_cell(x, y);
    std::string text = place_text(cell.column, cell.row);
    return text += " - tile " + hex_pair(cell.tile());
}

std::optional<Formation> tile_to_paint(const EditorState& state, int x, int y) {
    if (!shows_something(state) || state.form1.tool != Tool::draw ||
        !locate_cursor(state, x, y).in_map)
        return std::nullopt;
    return state.world_map_mode ? world_formation(state) : map_formation(state);
}

} // namespace veldrune
