#include "editor/picture_status.h"

#include "editor/build.h"
#include "editor/overlays.h"
#include "editor/view.h"

namespace veldrune {
namespace {

bool tiles_are_stale(const EditorState& state) {
    const PictureOrigin& origin = state.picture;
    return origin.tiles.map_index < 0 || !same_image(origin.tiles.source, state.map.source) ||
           origin.later_frames != later_frame_set(state.map.record_at_load) ||
           origin.numbers != tile_numbers(state.form1);
}

bool view_is_stale(const EditorState& state) {
    const PictureOrigin& origin = state.picture;
    return !same_layers(origin.view, map_view(state.map, state.form1, state.zoom)) ||
           origin.strips_differ || origin.markers != shown_markers(state.form1);
}

std::string map_name(int map_index) {
    return "map " + std::to_string(map_index);
}

std::string name_of_shown(const EditorState& state, bool other_map) {
    const PictureOrigin& origin = state.picture;
    if (origin.world)
        return world_row(*origin.world).name;
    if (origin.cells.map_index < 0)
        return "none yet";
    const bool other_tiles = origin.tiles.map_index != state.map.map_index;
    if (!other_map && other_tiles && origin.tiles.map_index >= 0)
        return map_name(origin.cells.map_index) + " with the tiles of " +
               map_name(origin.tiles.map_index);
    const bool same_number = origin.cells.map_index == state.map.map_index;
    return map_name(origin.cells.map_index) + (!same_number ? ""
                                               : other_map  ? ", from before it was chosen again"
                                                            : ", not as the fields and boxes are");
}

// Why a build would not draw the map, or an empty text.
std::string obstacle(const EditorState& state, Command build) {
    if (!can_run(state, build))
        return "The build buttons wait until a map above map 0 has been chosen.";
    return any_layer_shown(state.form1) ? ""
                                        : "Nothing is drawn while no \"View Layer\" box is ticked.";
}

} // namespace

PictureStatus picture_status(const EditorState& state) {
    PictureStatus status;
    if (!state.rom_open || state.form1.Combo1 < 0 || state.world_map_mode)
        return status;
    const PictureOrigin& origin = state.picture;
    const bool other_map = origin.world || !same_map(origin.cells, chosen_origin(state));
    const bool tiles = tiles_are_stale(state);
    if (!other_map && !tiles && origin.tiles_drawn && !view_is_stale(state))
        return status;
    const Command build = tiles ? Command::build_tileset : Command::refresh_map;
    status.shown = name_of_shown(state, other_map);
    status.why_not = obstacle(state, build);
    if (status.why_not.empty())
        status.renew = build;
    return status;
}

} // namespace veldrune
