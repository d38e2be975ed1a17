#include "editor/save.h"

#include "editor/open_image.h"
#include "saving/save_layers.h"
#include "saving/save_properties.h"

namespace veldrune {
namespace {

bool map_in_memory(const EditorState& state) {
    return state.map_source.has_value();
}

// A map that was read from another image is saved only where the user wants that.
bool may_save_foreign_map(EditorState& state) {
    return !map_in_memory(state) || state.map_source->identity == state.rom.identity() ||
           state.dialogs.question("This map was read from " + state.map_source->path + ", but " +
                                  state.rom.path() + " is open. Save it all the same?");
}

bool save_all_layers(EditorState& state) {
    return save_layers(state.rom, state.form1, state.layers, state.compress_output, state.dialogs);
}

bool refuse(EditorState& state, const std::string& why) {
    state.dialogs.message(why + " " + state.rom.path() + " is still open.", "Error");
    return false;
}

// Makes a copy of the open image, unless path names that image itself, and opens it. The map and
// the object lists in memory belong to the copy from then on as they belonged to the original.
// False, with the former image open, where that fails; it has been told.
bool go_on_in_copy(EditorState& state, const std::string& path) {
    const bool read_from_open_image =
        map_in_memory(state) && state.map_source->identity == state.rom.identity();
    const bool lists_of_open_image = state.objects.image == state.rom.identity();
    if (!state.rom.is_file(path) && !state.rom.copy_to(path))
        return refuse(state, "The image could not be copied to " + path + ".");
    if (!state.rom.open(path))
        return refuse(state, "The image was copied to " + path + ", but can't be opened there.");
    if (read_from_open_image)
        state.map_source = MapSource{state.rom.identity(), path};
    if (lists_of_open_image)
        state.objects.image = state.rom.identity();
    return true;
}

bool save_properties(EditorState& state) {
    return save_map_properties(state.rom, state.form1, state.map_properties, state.map_index,
                               state.dialogs);
}

bool save_properties_as(EditorState& state) {
    return save_map_properties_as(state.rom, state.form1, state.record_at_load, state.map_index,
                                  state.dialogs);
}

// True where the whole map has been written; the open image holds it from then on.
bool save_map(EditorState& state, bool (*save_the_properties)(EditorState&)) {
    if (!save_all_layers(state) || !save_the_properties(state))
        return false;
    state.changes_saved = true;
    state.map_source = MapSource{state.rom.identity(), state.rom.path()};
    return true;
}

} // namespace

void save(EditorState& state) {
    if (map_in_memory(state) && may_save_foreign_map(state))
        save_map(state, save_properties);
}

void save_as(EditorState& state) {
    const auto path = state.dialogs.save_file_name();
    if (!path || !may_save_foreign_map(state) || !go_on_in_copy(state, *path))
        return;
    if (!map_in_memory(state) || save_map(state, save_properties_as))
        take_over_path(state, *path);
}

} // namespace veldrune
