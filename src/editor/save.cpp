#include "editor/save.h"

#include "editor/open_image.h"
#include "editor/save_status.h"
#include "rom/number_field.h"
#include "rom/number_text.h"
#include "rom/reported_access.h"
#include "saving/save_doubts.h"
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

// What Save and Save As would save, and what they would not.
std::string name_of_map(const EditorState& state) {
    return "map " + std::to_string(state.map.map_index);
}
std::string name_of_world(const EditorState& state) {
    return std::string("the ") + world_row(state.world.world).name;
}

// After a save everything counts as saved, although it writes the map or the world alone.
bool may_leave_painting(EditorState& state) {
    const bool world = state.world_map_open;
    if (!(world ? state.map.unsaved_painting : state.world.unsaved_painting))
        return true;
    const std::string saved = world ? name_of_world(state) : name_of_map(state);
    const std::string left = world ? name_of_map(state) : name_of_world(state);
    return state.dialogs.question("This saves " + saved + ". The painting on " + left +
                                  " has not been saved and would count as given up. Save " + saved +
                                  " all the same?");
}

bool is_meant(EditorState& state, const std::string& doubts) {
    return doubts.empty() ||
           state.dialogs.question("This save can hardly be meant as the fields are:\n\n" + doubts +
                                  "\nSave all the same?");
}

std::optional<PackedLayers> pack_map(EditorState& state) {
    return pack_layers(state.form1, state.map.layers, state.work.compress_output);
}

bool map_save_is_meant(EditorState& state, const std::optional<PackedLayers>& packed,
                       SaveKind kind) {
    return !packed || // is refused when its turn comes
           is_meant(state, doubts_about_layers(state.rom, state.form1, state.map, *packed, kind));
}

bool world_save_is_meant(EditorState& state, std::span<const std::uint8_t> stream) {
    if (stream.empty()) // is refused when its turn comes
        return true;
    const int offset = field_number(state.form1, &Form1::Text24).value;
    const std::string why = doubts_about_world(offset, stream.size());
    return is_meant(
        state, why.empty() ? "" : "The world map at " + format_hex(offset) + ": " + why + "\n");
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
    const bool copies = !state.rom.is_file(path);
    if (copies)
        if (const auto why = state.rom.copy_to(path))
            return refuse(state, "The image could not be copied to " + path + *why + ".");
    if (!state.rom.open(path))
        return refuse(state,
                      copies ? "The image was copied to " + path + ", but can't be opened there."
                             : "The image can't be opened again as " + path + ".");
    const ImageSource copy = source_of(state.rom);
    for (auto* source : {&state.map.source, &state.world.source, &state.script.source,
                         &state.objects.lists.source, &state.picture.tiles.source,
                         &state.picture.cells.source, &state.picture.strips.cells.source})
        if (*source && (*source)->identity == original)
            *source = copy;
    return true;
}

bool write_map(EditorState& state, const std::optional<PackedLayers>& packed, MapProperties& record,
               SaveKind kind) {
    ChosenMap& map = state.map;
    if (!save_layers(state.rom, state.form1, map.layers, packed, state.dialogs))
        return false;
    return kind == SaveKind::save
               ? save_map_properties(state.rom, state.form1, record, map.map_index, state.dialogs)
               : save_map_properties_as(state.rom, state.form1, map.record_at_load, map.map_index,
                                        state.dialogs);
}

// True if the whole map has been written and is on the disk; it then counts as read from the open
// image.
bool save_map(EditorState& state, const std::optional<PackedLayers>& packed, SaveKind kind) {
    MapProperties record = state.map.map_properties;
    const bool written = write_map(state, packed, record, kind);
    if (!flush_or_report(state.rom, state.dialogs) || !written)
        return false;
    state.map.map_properties = record;
    state.map.source = source_of(state.rom);
    forget_changes(state);
    remember_saved_fields(state, kind);
    return true;
}

void save_world(EditorState& state, std::span<const std::uint8_t> stream) {
    const bool written = save_world_map(state.rom, state.form1, state.world, stream, state.dialogs);
    if (!flush_or_report(state.rom, state.dialogs) || !written)
        return;
    state.world.source = source_of(state.rom);
    forget_changes(state);
    remember_world_location(state);
    state.last_save.at = std::chrono::system_clock::now();
}

} // namespace

void save(EditorState& state) {
    if (!source_of_save(state) || !may_save_foreign_map(state) ||
        !may_write(state.rom, state.dialogs) || !may_leave_painting(state))
        return;
    if (!state.world_map_open) {
        const auto packed = pack_map(state);
        if (map_save_is_meant(state, packed, SaveKind::save))
            save_map(state, packed, SaveKind::save);
        return;
    }
    const auto stream = pack_world(state.world, state.work.compress_output);
    if (world_save_is_meant(state, stream))
        save_world(state, stream);
}

// After the save of a world map the window shows the path of the copy, even if that save failed.
void save_as(EditorState& state) {
    const auto path = state.dialogs.save_file_name(state.rom.path());
    if (!path || !may_save_foreign_map(state))
        return;
    const bool something = source_of_save(state).has_value();
    const bool world = something && state.world_map_open;
    const bool map = something && !state.world_map_open;
    if (something && !may_leave_painting(state))
        return;
    std::optional<PackedLayers> packed;
    std::span<const std::uint8_t> stream;
    if (map)
        packed = pack_map(state);
    if (world)
        stream = pack_world(state.world, state.work.compress_output);
    if ((map && !map_save_is_meant(state, packed, SaveKind::save_as)) ||
        (world && !world_save_is_meant(state, stream)) || !switch_to_copy(state, *path))
        return;
    if (world)
        save_world(state, stream);
    if (!map || save_map(state, packed, SaveKind::save_as))
        set_image_path(state, *path);
}

} // namespace veldrune
