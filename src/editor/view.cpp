#include "editor/view.h"

#include "editor/cursor.h"
#include "editor/overlays.h"
#include "editor/view_place.h"
#include "editor/world_view.h"
#include "rom/number_field.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iterator>

namespace veldrune {
namespace {

// A smaller zoom is a closer view.
constexpr float closest_zoom = 0.25f;

int largest(const Form1& form, std::string Form1::*LayerControls::*size) {
    int value = 0;
    for (const LayerControls& controls : layer_controls)
        value = std::max(value, field_number(form, controls.*size).value);
    return value;
}

void set_maximum(ScrollBar& bar, int maximum) {
    bar.maximum = std::max(maximum, 0);
    bar.value = std::min(bar.value, bar.maximum);
}

void on_zoom_change(EditorState& state) {
    if (!map_ready(state))
        return;
    compose_view(state);
    draw_overlays(state);
}

void scroll_view(EditorState& state) {
    MapDisplay& display = state.display;
    const MapView view = map_view(state.map, state.form1, state.zoom);
    if (scroll_picture(display.bitmaps, view, display.last_h, display.last_v, display.picture))
        remember_whole(state.picture, chosen_origin(state), view);
    else
        remember_strip(state.picture, chosen_origin(state), view, shown_markers(state.form1),
                       view.h - display.last_h, view.v - display.last_v);
    display.last_h = view.h;
    display.last_v = view.v;
}

void on_scroll(EditorState& state, void (*set_bar_maximum)(Form1&, float)) {
    set_bar_maximum(state.form1, state.zoom);
    if (!state.view_stale)
        scroll_view(state);
    else if (any_layer_shown(state.form1))
        compose_view(state);
    state.view_stale = false;
    draw_overlays(state);
}

void set_zoom(EditorState& state, float zoom) {
    if (zoom >= closest_zoom && zoom <= farthest_zoom) {
        char text[16];
        state.zoom = zoom;
        state.form1.Text4.assign(text, std::to_chars(text, std::end(text), zoom).ptr);
    }
    on_zoom_change(state);
}

// Lets the user's scroll of a bar to value happen, if there is one.
void scroll_bar_to(EditorState& state, ScrollBar& bar, std::int64_t value,
                   void (*set_bar_maximum)(Form1&, float)) {
    if (value == bar.value)
        return;
    set_bar_maximum(state.form1, state.zoom); // a zoom leaves the one of the former view
    bar.value = static_cast<int>(std::clamp<std::int64_t>(value, 0, bar.maximum));
    on_scroll(state, set_bar_maximum);
}

} // namespace

MapOrigin chosen_origin(const EditorState& state) {
    return {state.map.source, state.map.map_index};
}

bool any_layer_shown(const Form1& form) {
    return form.Check5 || form.Check6 || form.Check7;
}

MapView map_view(const ChosenMap& map, const Form1& form, float zoom) {
    MapView view;
    view.stack.layer3_order = map.layer3_order;
    view.stack.blend = layer3_blend(form.Text25 != EMPTY_LAYER_TEXT,
                                    field_number(form, layer_controls[2].formation).value);
    for (std::size_t layer = 0; layer < layer_count; ++layer) {
        const LayerControls& controls = layer_controls[layer];
        view.stack.shown[layer] = form.*controls.view;
        view.maps[layer] = &map.layers[layer].map;
        view.widths[layer] = field_number(form, controls.width).value;
        view.heights[layer] = field_number(form, controls.height).value;
    }
    view.h = form.HScroll1.value;
    view.v = form.VScroll1.value;
    view.cells_across = cells_across(zoom);
    return view;
}

void compose_view(const ChosenMap& map, const Form1& form, float zoom, MapDisplay& display) {
    const MapView view = map_view(map, form, zoom);
    compose_cells(display.bitmaps, view, 0, 0, view.cells_across, view.cells_across,
                  display.picture);
    display.last_h = view.h;
    display.last_v = view.v;
}

void compose_view(EditorState& state) {
    compose_view(state.map, state.form1, state.zoom, state.display);
    remember_whole(state.picture, chosen_origin(state),
                   map_view(state.map, state.form1, state.zoom));
}

void set_column_maximum(Form1& form, float zoom) {
    set_maximum(form.HScroll1, largest(form, &LayerControls::width) - cells_across(zoom));
}

void set_row_maximum(Form1& form, float zoom) {
    set_maximum(form.VScroll1, largest(form, &LayerControls::height) - cells_across(zoom));
}

void on_h_scroll(EditorState& state) {
    on_scroll(state, set_column_maximum);
}

void on_v_scroll(EditorState& state) {
    on_scroll(state, set_row_maximum);
}

void zoom_in(EditorState& state) {
    set_zoom(state, state.zoom / 2);
}

void zoom_out(EditorState& state) {
    set_zoom(state, state.zoom * 2);
}

void zoom_about(EditorState& state, int notches, int x, int y) {
    Form1& form = state.form1;
    if (!form.map_fields_enabled) // nor are the buttons
        return;
    const Cursor before = locate_cursor(state, x, y);
    for (int i = 0; i < std::abs(notches); ++i)
        notches > 0 ? zoom_in(state) : zoom_out(state);
    if (!map_ready(state))
        return;
    const Cursor after = locate_cursor(state, x, y);
    scroll_bar_to(state, form.HScroll1, before.column - after.cursor_x, set_column_maximum);
    scroll_bar_to(state, form.VScroll1, before.row - after.cursor_y, set_row_maximum);
}

void on_grid_change(EditorState& state) {
    if (!map_ready(state))
        return;
    if (state.world_map_mode)
        return refresh_world_view(state);
    if (!state.form1.grid_on)
        compose_view(state);
    draw_overlays(state);
}

void on_view_box_change(EditorState& state) {
    state.view_stale = true;
}

} // namespace veldrune
