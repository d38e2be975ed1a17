#include "editor/world_map.h"

#include "editor/objects.h"
#include "editor/select_map.h"
#include "editor/view.h"
#include "render/enlarge.h"
#include "rom/number_text.h"
#include "rom/reported_access.h"

namespace veldrune {
namespace {

void show_world_controls(EditorState& state) {
    state.world_map_open = state.world_map_mode = true;
    state.form1.map_fields_enabled = false;
    state.form1.Text24_visible = true;
}

void read_world(EditorState& state, World world) {
    const WorldRow& row = world_row(world);
    const std::int32_t map = offset_of_address(state.rom.read_pointer24(row.map_pointer));
    const std::int32_t graphics = offset_of_address(state.rom.read_pointer24(row.graphics_pointer));
    state.world.world = world;
    state.world.source = source_of(state.rom);
    state.form1.Text24 = format_hex(static_cast<std::uint32_t>(map));
    state.world.world_packed_size =
        read_world_map(state.rom, map, state.work.decompress_buffer, state.world.world_map);
    read_world_sheet(state.rom, graphics, read_palette(state.rom, row.palette),
                     state.work.decompress_buffer, state.world.world_sheet);
}

// Leaves the world map for the map in the list and comes back, whatever the user answers there. The
// lists of the former map stay where the answer is Cancel.
void borrow_objects(EditorState& state) {
    state.form1.Combo1 = world_row(state.world.world).map;
    select_map(state);
    const bool chosen = state.changes_saved;
    show_world_controls(state);
    if (chosen)
        read_world_objects(state);
}

void open_world_map(EditorState& state, World world) {
    state.world_map_open = state.world_map_mode = true;
    if (!state.rom_open)
        return;
    show_world_controls(state);
    state.zoom = 2.0f;
    const ReadWatch reads(state.rom);
    read_world(state, world);
    draw_world_view(state);
    report_map_refusal(reads, state.world.source, state.dialogs);
    borrow_objects(state);
    draw_world_objects(state);
    show_scroll_bars(state.form1, true);
}

void refuse(EditorState& state, const std::string& why) {
    state.dialogs.error("The world map can't be saved: " + why);
}

bool may_grow(EditorState& state, int growth) {
    return growth <= 0 ||
           state.dialogs.question("The map youre trying to save is " + std::to_string(growth) +
                                  " larger than the original map saving this map to the oringal "
                                  "memory location will undoubtably mess something up. Continue?");
}

/// The stream, or nothing where it could not be read back, which has been told.
std::span<const std::uint8_t> packed_world(EditorState& state) {
    const auto length = compress_world_map(state.world.world_map.cells, state.work.compress_output);
    if (length && *length <= longest_world_stream)
        return std::span(state.work.compress_output).first(*length);
    refuse(state, "its stream would take more than " + std::to_string(longest_world_stream) +
                      " bytes, which the game can't read.");
    return {};
}

// A location that no pointer can name is told and leaves the pointer as it is. False where the
// write failed.
bool write_pointer(EditorState& state, std::int64_t location) {
    const std::int64_t address = address_of_offset(location);
    const std::string digits =
        format_hex(static_cast<std::uint32_t>(location - rom_layout::header_size));
    if (digits.size() != 6) {
        state.dialogs.error("Map Data Location must be 6 digits long");
        return true;
    }
    if (address > last_address) {
        state.dialogs.error("No pointer reaches " + state.form1.Text24 +
                            ". The pointer to the world map stays as it was.");
        return true;
    }
    return write_or_report(state.rom, world_row(state.world.world).map_pointer,
                           pointer24_bytes(address), state.dialogs);
}

} // namespace

void open_world_of_dawn(EditorState& state) {
    open_world_map(state, World::dawn);
}

void open_world_of_dusk(EditorState& state) {
    open_world_map(state, World::dusk);
}

void draw_world_view(EditorState& state) {
    const Form1& form = state.form1;
    draw_world_tiles(state.world.world_map, state.world.world_sheet, form.HScroll2.value,
                     form.VScroll2.value, state.display.picture);
    if (form.grid_on)
        draw_grid(state.display.picture, world_tile_size);
}

void refresh_world_view(EditorState& state) {
    draw_world_view(state);
    draw_world_objects(state);
}

void show_world_tile_preview(EditorState& state) {
    enlarge_pixels(state.world.world_sheet.tile(state.form1.current_tile), WorldSheet::side,
                   world_tile_size, world_tile_size, preview_side / world_tile_size,
                   state.form1.Picture3.row(0), preview_side);
}

void save_world_map(EditorState& state) {
    if (state.world.world_packed_size > longest_world_stream)
        return refuse(state, "what the image holds could not be read, and an empty map would take "
                             "its place.");
    const std::span<const std::uint8_t> stream = packed_world(state);
    if (stream.empty())
        return;
    const std::int32_t location = parse_hex_text(state.form1.Text24, state.dialogs);
    const int length = static_cast<int>(stream.size());
    if (!may_grow(state, length - state.world.world_packed_size) ||
        !write_or_report(state.rom, location, stream, state.dialogs))
        return;
    state.world.world_packed_size = length;
    if (!write_pointer(state, location))
        return;
    state.changes_saved = true;
    state.world.source = source_of(state.rom);
}

} // namespace veldrune
