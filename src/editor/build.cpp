#include "editor/build.h"

#include "editor/overlays.h"
#include "editor/view.h"
#include "editor/view_place.h"
#include "render/build_tiles.h"
#include "render/enlarge.h"
#include "rom/number_text.h"
#include "rom/reported_access.h"
#include "rom/rom_layout.h"

namespace veldrune {
namespace {

int field_number(const EditorState& state, std::string Form1::*field) {
    return parse_decimal_text(state.form1.*field, state.dialogs).value;
}

// Reads the first frames of the animated tiles again. Returns the numbers read so far.
TileNumbers refresh_anim_tiles(EditorState& state) {
    TileNumbers numbers;
    numbers.animated_tileset = field_number(state, &Form1::Text18);
    numbers.layer3_graphics = field_number(state, &Form1::Text23);
    refresh_first_frames(state.rom, numbers.animated_tileset, state.map.anim_tiles);
    return numbers;
}

int tileset_number(const EditorState& state, std::string Form1::*field) {
    const int number = field_number(state, field);
    if (number >= rom_layout::tileset_count)
        state.dialogs.error("There is no tileset " + std::to_string(number) + ": the highest is " +
                            std::to_string(rom_layout::tileset_count - 1) + ".");
    return number;
}

// Reads the other numbers. Their order is that of the warnings about texts that are not numbers.
void read_tile_numbers(const EditorState& state, TileNumbers& numbers) {
    for (std::size_t group = 0; group < numbers.tilesets.size(); ++group)
        numbers.tilesets[group] = tileset_number(state, tileset_controls[group]);
    numbers.palette = field_number(state, &Form1::Text13);
    for (const std::size_t layer : {1u, 0u})
        numbers.formations[layer] = field_number(state, layer_controls[layer].formation);
}

// Sizes that are not numbers are reported here, once per build; compositions read them silently.
void warn_about_sizes(const EditorState& state) {
    for (const auto size : {&LayerControls::width, &LayerControls::height})
        for (const LayerControls& controls : layer_controls)
            field_number(state, controls.*size);
}

void show_map(EditorState& state) {
    warn_about_sizes(state);
    set_column_maximum(state);
    set_row_maximum(state);
    show_scroll_bars(state.form1, false);
    if (any_layer_shown(state.form1))
        compose_view(state);
    draw_overlays(state);
    state.view_stale = false;
}

} // namespace

void build_tileset(EditorState& state) {
    state.world_map_mode = false;
    const ReadWatch reads(state.rom);
    TileNumbers numbers = refresh_anim_tiles(state);
    read_tile_numbers(state, numbers);
    build_tiles(state.rom, numbers, state.map.anim_tiles, state.work.decompress_buffer,
                state.display.bitmaps);
    report_refused_reads(reads, "The tiles are not drawn as the image holds them.", state.dialogs);
    show_map(state);
}

void refresh_map(EditorState& state) {
    Form1& form = state.form1;
    for (ScrollBar* bar : {&form.HScroll1, &form.VScroll1, &form.HScroll2, &form.VScroll2})
        bar->value = 0;
    state.world_map_mode = false;
    refresh_anim_tiles(state);
    show_map(state);
}

void show_tile_preview(EditorState& state) {
    const Formation tile =
        whole_formation(state.display.bitmaps, state.form1.edit_layer, state.form1.current_tile);
    enlarge_pixels(tile.data(), 16, 16, 16, preview_side / 16, state.form1.Picture3.row(0),
                   preview_side);
}

} // namespace veldrune
