#include "editor/save.h"

#include "editor/open_image.h"
#include "saving/save_layers.h"
#include "saving/save_properties.h"
#include "saving/save_world.h"

namespace veldrune {
namespace {

// The image that the map or world map to be saved was read from; nothing if none has been read.
const std::optional<ImageSource>& source_of_save(const EditorState& state) {
    return state.world_map_open ? state.world.source : state.map.source;
}

// A map that was read from another image is saved only if the user agrees.
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

// Makes a copy of the open image, unless path names that image itself, and opens it. What was
// read from the original counts as read from the copy from then on. False on failure, which has
// been reported; the former image is then still open.
bool switch_to_copy(EditorState& state, const std::string& path) {
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

// True if the whole map has been written; it then counts as read from the open image.
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

// Whether the window shows the copy's path from now on: with a world map even if the save failed.
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
    if (!path || !may_save_foreign_map(state) || !switch_to_copy(state, *path))
        return;
    if (!source_of_save(state) || save_into_copy(state))
        set_image_path(state, *path);
}

} // namespace veldrune
