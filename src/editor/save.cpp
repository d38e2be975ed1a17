#include "editor/save.h"

#include "editor/open_image.h"
#include "saving/save_layers.h"
#include "saving/save_properties.h"
#include "saving/save_world.h"

namespace veldrune {
namespace {

// Where the world map, or the map, that a save would write was read from; nothing without one.
const std::optional<ImageSource>& source_of_save(const EditorState& state) {
    return state.world_map_open ? state.world.source : state.map.source;
}

// A map that was read from another image is saved only where the user wants that.
bool may_save_foreign_map(EditorState& state) {
    const std::optional<ImageSource>& source = source_of_save(state);
    return !source || is_from(source, state.rom) ||
           state.dialogs.question("This map was read from " + source->path + ", but " +
                                  state.rom.path() + " is open. Save it all the same?");
}

bool save_all_layers(EditorState& state) {
    return save_layers(state.rom, state.form1, state.map.layers, state.work.compress_output,
                       state.dialogs);
}

bool refuse(EditorState& state, const std::string& why) {
    state.dialogs.error(why + " " + state.rom.path() + " is still open.");
    return false;
}

// Makes a copy of the open image, unless path names that image itself, and opens it. What is in
// memory of the original belongs to the copy from then on. False, with the former image open, where
// that fails; it has been told.
bool go_on_in_copy(EditorState& state, const std::string& path) {
    const FileIdentity original = state.rom.identity();
    if (!state.rom.is_file(path) && !state.rom.copy_to(path))
        return refuse(state, "The image could not be copied to " + path + ".");
    if (!state.rom.open(path))
        return refuse(state, "The image was copied to " + path + ", but can't be opened there.");
    const ImageSource copy = source_of(state.rom);
    for (auto* source : {&state.map.source, &state.world.source, &state.script.source,
                         &state.objects.lists.source})
        if (*source && (*source)->identity == original)
            *source = copy;
    return true;
}

bool save_properties(EditorState& state) {
    return save_map_properties(state.rom, state.form1, state.map.map_properties,
                               state.map.map_index, state.dialogs);
}

bool save_properties_as(EditorState& state) {
    return save_map_properties_as(state.rom, state.form1, state.map.record_at_load,
                                  state.map.map_index, state.dialogs);
}

// True where the whole map has been written; the open image holds it from then on.
bool save_map(EditorState& state, bool (*save_the_properties)(EditorState&)) {
    if (!save_all_layers(state) || !save_the_properties(state))
        return false;
    state.changes_saved = true;
    state.map.source = source_of(state.rom);
    return true;
}

void save_world(EditorState& state) {
    if (!save_world_map(state.rom, state.form1.Text24, state.world, state.work.compress_output,
                        state.dialogs))
        return;
    state.changes_saved = true;
    state.world.source = source_of(state.rom);
}

// Whether the copy takes over the name. After a world map it does, whatever became of the save.
bool save_into_copy(EditorState& state) {
    if (!state.world_map_open)
        return save_map(state, save_properties_as);
    save_world(state);
    return true;
}

} // namespace

void save(EditorState& state) {
    if (!source_of_save(state) || !may_save_foreign_map(state))
        return;
    if (state.world_map_open)
        save_world(state);
    else
        save_map(state, save_properties);
}

void save_as(EditorState& state) {
    const auto path = state.dialogs.save_file_name();
    if (!path || !may_save_foreign_map(state) || !go_on_in_copy(state, *path))
        return;
    if (!source_of_save(state) || save_into_copy(state))
        take_over_path(state, *path);
}

} // namespace veldrune
