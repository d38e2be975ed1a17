#include "editor/build.h"

#include "editor/overlays.h"
#include "editor/view.h"
#include "editor/view_place.h"
#include "render/build_tiles.h"
#include "render/enlarge.h"
#include "rom/number_field.h"
#include "rom/reported_access.h"
#include "rom/rom_layout.h"

namespace veldrune {
namespace {

// Reads the numbers that every build needs.
TileNumbers first_tile_numbers(Form1& form, Dialogs& dialogs) {
    TileNumbers numbers;
    numbers.animated_tileset = read_field(form, &Form1::Text18, dialogs).value;
    numbers.layer3_graphics = read_field(form, layer_controls[2].formation, dialogs).value;
    return numbers;
}

// Reads the first frames of the animated tiles again. Returns the numbers read so far.
TileNumbers refresh_anim_tiles(const RomImage& rom, Form1& form, AnimTileTable& anim_tiles,
                               Dialogs& dialogs) {
    const TileNumbers numbers = first_tile_numbers(form, dialogs);
    refresh_first_frames(rom, numbers.animated_tileset, anim_tiles);
    return numbers;
}

int tileset_number(Form1& form, std::string Form1::*field, Dialogs& dialogs) {
    const int number = read_field(form, field, dialogs).value;
    if (number >= rom_layout::tileset_count)
        dialogs.error("There is no tileset " + std::to_string(number) + ": the highest is " +
                      std::to_string(rom_layout::tileset_count - 1) + ".");
    return number;
}

// Reads the other numbers. Their order is that of the warnings about texts that are not numbers.
void read_tile_numbers(Form1& form, TileNumbers& numbers, Dialogs& dialogs) {
    for (std::size_t group = 0; group < numbers.tilesets.size(); ++group)
        numbers.tilesets[group] = tileset_number(form, tileset_controls[group], dialogs);
    numbers.palette = read_field(form, &Form1::Text13, dialogs).value;
    for (const std::size_t layer : {1u, 0u})
        numbers.formations[layer] =
            read_field(form, layer_controls[layer].formation, dialogs).value;
}

// Sizes that are not numbers are reported here, once per build; compositions read them silently.
void warn_about_sizes(Form1& form, Dialogs& dialogs) {
    for (const auto size : {&LayerControls::width, &LayerControls::height})
        for (const LayerControls& controls : layer_controls)
            read_field(form, controls.*size, dialogs);
}

void show_map(EditorState& state) {
    Form1& form = state.form1;
    warn_about_sizes(form, state.dialogs);
    set_column_maximum(form, state.zoom);
    set_row_maximum(form, state.zoom);
    show_scroll_bars(form, false);
    if (any_layer_shown(form))
        compose_view(state);
    draw_overlays(state);
    state.view_stale = false;
}

} // namespace

TileNumbers tile_numbers(const Form1& form) {
    Form1 copy = form;
    SilentDialogs silent;
    TileNumbers numbers = first_tile_numbers(copy, silent);
    read_tile_numbers(copy, numbers, silent);
    return numbers;
}

void build_tileset(EditorState& state) {
    state.world_map_mode = false;
    MapDisplay& display = state.display;
    const ReadWatch reads(state.rom);
    TileNumbers numbers =
        refresh_anim_tiles(state.rom, state.form1, state.map.anim_tiles, state.dialogs);
    read_tile_numbers(state.form1, numbers, state.dialogs);
    build_tiles(state.rom, numbers, state.map.anim_tiles, state.work.decompress_buffer,
                display.bitmaps);
    std::optional<ImageSource> source = source_of(state.rom);
    state.picture.numbers = numbers;
    state.picture.tiles_drawn = false;
    state.picture.strips = {};
    if (report_refused_reads(reads, "The tiles are not drawn as the image holds them.",
                             state.dialogs))
        source.reset();
    state.picture.tiles = {source, state.map.map_index};
    state.picture.later_frames = later_frame_set(state.map.record_at_load);
    show_map(state);
}

void refresh_map(EditorState& state) {
    Form1& form = state.form1;
    for (ScrollBar* bar : {&form.HScroll1, &form.VScroll1, &form.HScroll2, &form.VScroll2})
        bar->value = 0;
    state.world_map_mode = false;
    refresh_anim_tiles(state.rom, form, state.map.anim_tiles, state.dialogs);
    show_map(state);
}

void show_tile_preview(const FormationBitmaps& bitmaps, Form1& form) {
    const Formation tile = whole_formation(bitmaps, form.edit_layer, form.current_tile);
    enlarge_pixels(tile.data(), 16, 16, 16, preview_side / 16, form.Picture3.row(0), preview_side);
}

} // namespace veldrune
