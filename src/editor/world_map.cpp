#include "editor/world_map.h"

#include "editor/object_lists.h"
#include "editor/overlays.h"
#include "editor/save_status.h"
#include "editor/select_map.h"
#include "editor/view_place.h"
#include "editor/world_view.h"
#include "rom/number_text.h"

namespace veldrune {
namespace {

void show_world_controls(EditorState& state) {
    state.world_map_open = state.world_map_mode = true;
    state.form1.map_fields_enabled = false;
    state.form1.Text24_visible = true;
}

void read_world_objects(EditorState& state) {
    read_object_lists(state, world_object_kinds, world_row(state.world.world).map);
}

// Chooses the map whose object lists the world uses, and returns to the world whatever the user
// answers to the question about unsaved changes. On Cancel the lists of the former map stay.
void load_world_objects(EditorState& state) {
    state.form1.Combo1 = world_row(state.world.world).map;
    select_map(state);
    const bool chosen = state.changes_saved;
    show_world_controls(state);
    if (chosen)
        read_world_objects(state);
}

// The world in memory on show again, so that Save can save it.
void show_world_again(EditorState& state) {
    show_world_controls(state);
    state.zoom = farthest_zoom;
    show_scroll_bars(state.form1, true);
    read_world_objects(state);
    refresh_world_view(state);
}

bool may_drop_painting(EditorState& state, World world) {
    const std::string held = world_row(state.world.world).name;
    return !state.world.unsaved_painting || !state.world.source || // could not be saved either
           state.dialogs.question("The painting on the " + held +
                                  " has not been saved. Opening the " + world_row(world).name +
                                  " drops it. Continue? Cancel shows the " + held + " again.");
}

void open_world_map(EditorState& state, World world) {
    if (!may_drop_painting(state, world))
        return show_world_again(state);
    state.world_map_open = state.world_map_mode = true;
    if (!state.rom_open)
        return;
    show_world_controls(state);
    state.zoom = farthest_zoom;
    const ReadWatch reads(state.rom);
    const std::int32_t map =
        load_world(state.rom, world, state.work.decompress_buffer, state.world);
    state.form1.Text24 = format_hex(static_cast<std::uint32_t>(map));
    remember_world_location(state);
    draw_world_view(state.world, state.form1, state.display.picture);
    remember_world(state.picture, world);
    report_refused_map_reads(reads, state.world.source, state.dialogs);
    load_world_objects(state);
    draw_world_objects(state.form1, state.objects.lists, state.display.picture);
    show_scroll_bars(state.form1, true);
}

} // namespace

void open_world_of_dawn(EditorState& state) {
    open_world_map(state, World::dawn);
}

void open_world_of_dusk(EditorState& state) {
    open_world_map(state, World::dusk);
}

} // namespace veldrune
