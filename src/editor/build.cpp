#include "editor/build.h"

#include "editor/view.h"
#include "render/enlarge.h"
#include "rom/number_text.h"
#include "rom/reported_access.h"

namespace veldrune {
namespace {

int built_number(const EditorState& state, std::string Form1::*field) {
    return parse_decimal_text(state.form1.*field, state.dialogs).value;
}

// The first frames of the animated tiles anew; returns where the stream of layer 3's graphics lies.
std::int64_t refresh_anim_tiles(EditorState& state) {
    refresh_first_frames(state.rom, built_number(state, &Form1::Text18), state.map.anim_tiles);
    return layer3_graphics_offset(state.rom, built_number(state, &Form1::Text23));
}

void load_palette(EditorState& state) {
    const int number = built_number(state, &Form1::Text13);
    state.display.palette = read_palette(state.rom, map_palette_offset(number));
}

void build_layer_tiles(EditorState& state, const TileFormationSet& set, FormationBitmap& high,
                       FormationBitmap& low) {
    decode_layer_tiles(split_formations(set), state.work.characters, state.display.palette, high,
                       low);
}

void build_layer3_tiles(EditorState& state, std::int64_t stream_offset) {
    Layer3Graphics graphics;
    read_layer3_graphics(state.rom, stream_offset, state.work.decompress_buffer, graphics);
    decode_layer3_tiles(graphics, state.display.palette, state.display.bitmaps.layer3_pixels);
}

// Sizes that are no numbers are told here, once a build; compositions read them silently.
void warn_about_sizes(const EditorState& state) {
    for (const auto size : {&LayerControls::width, &LayerControls::height})
        for (const LayerControls& controls : layer_controls)
            built_number(state, controls.*size);
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
    const std::int64_t layer3_stream = refresh_anim_tiles(state);
    const TilesetOffsets groups = read_tilesets(state.rom, state.form1, state.dialogs);
    load_palette(state);
    const int set2_number = built_number(state, &Form1::Text7);
    const int set1_number = built_number(state, &Form1::Text6);
    TileFormationSet set1;
    TileFormationSet set2;
    read_formation_set(state.rom, set1_number, state.work.decompress_buffer, set1);
    read_formation_set(state.rom, set2_number, state.work.decompress_buffer, set2);
    read_character_graphics(state.rom, groups, state.map.anim_tiles, state.work.characters);
    FormationBitmaps& bitmaps = state.display.bitmaps;
    build_layer_tiles(state, set2, bitmaps.layer2_high, bitmaps.layer2_low);
    build_layer_tiles(state, set1, bitmaps.layer1_high, bitmaps.layer1_low);
    build_layer3_tiles(state, layer3_stream);
    report_read_refusal(reads, "The tiles are not drawn as the image holds them.", state.dialogs);
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
