#include "editor/map_commands.h"

#include "editor/overlays.h"
#include "editor/select_map.h"
#include "editor/view.h"
#include "saving/expand.h"

#include <algorithm>

namespace veldrune {
namespace {

void clear_layer(LayerMap& map) {
    std::fill_n(map.cells.begin(), LayerMap::columns * max_layer_height, std::uint8_t{0});
}

} // namespace

void clear_map(EditorState& state) {
    if (state.world_map_mode)
        return;
    for (Layer& layer : state.map.layers)
        clear_layer(layer.map);
    state.last_save.cleared = true;
    compose_view(state);
    draw_objects(state);
}

void copy_properties(EditorState& state) {
    state.property_clipboard = state.map.map_properties;
}

void paste_properties(EditorState& state) {
    if (!state.map.source)
        return;
    const ReadWatch reads(state.rom);
    state.map.map_properties = state.property_clipboard;
    state.last_save.pasted = true;
    show_map_fields(state.rom, state.map, state.form1);
    report_refused_map_reads(reads, state.map.source, state.dialogs);
}

void show_memory_manager(EditorState& state) {
    state.dialogs.message(MessageKind::note, "Sorry, nothing here yet.", "Nothing here");
}

void show_about(EditorState& state) {
    state.dialogs.message(MessageKind::note,
                          "Veldrune Map Editor: v1.1\n\n"
                          "With thanks to the people who keep old games alive,\n"
                          "and to all who still build new worlds in them.",
                          default_title);
}

void expand_rom(EditorState& state) {
    expand_rom(state.rom, state.dialogs);
}

void apply_dialogue_patch(EditorState& state) {
    apply_dialogue_patch(state.rom, state.patch_flags, state.dialogs);
}

} // namespace veldrune
