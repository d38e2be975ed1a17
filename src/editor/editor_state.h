#pragma once

#include "compression/compress.h"
#include "compression/decompress.h"
#include "editor/last_save.h"
#include "editor/picture_origin.h"
#include "events/script_entry.h"
#include "forms/dialogs.h"
#include "forms/form1.h"
#include "forms/form10.h"
#include "forms/form2.h"
#include "forms/form8.h"
#include "forms/form9.h"
#include "map/chosen_map.h"
#include "objects/object_record.h"
#include "render/compose.h"
#include "rom/patch_marks.h"
#include "rom/rom_image.h"
#include "world_map/world_map.h"

#include <optional>
#include <string>

namespace veldrune {

/// A file that could not be opened, and why.
struct OpenFailure {
    std::string path;
    std::string reason;
};

/// Scratch buffers, without meaning between operations.
struct WorkSpace {
    DecompressBuffer decompress_buffer;
    CompressOutput compress_output{};
    PixelBuffer picture;
};

/// The whole state of the editor, one object on the heap: the image, the windows, and what was read
/// from the image, each group with the image that it was read from. The windows show it and change
/// it only through the operations of this folder.
struct EditorState {
    EditorState(FileLayer& files, Dialogs& dialog_port) : rom(files), dialogs(dialog_port) {}

    RomImage rom;
    Dialogs& dialogs;
    Form1 form1;
    Form2 form2;
    Form8 form8;
    Form9 form9;
    Form10 form10;

    ChosenMap map;
    OpenWorld world;
    MapObjects objects;
    OpenScript script;
    MapDisplay display;
    PictureOrigin picture; // of display
    LastSave last_save;
    WorkSpace work;
    MapProperties property_clipboard{}; // the copied record; zeros before the first copy

    // Flags and values of the main window.
    bool rom_open = false;       // an image is open
    bool map_selected = false;   // a map above "map 0" has been chosen since the start
    bool changes_saved = true;   // nothing on the map picture is unsaved
    bool world_map_mode = false; // the picture shows a world map
    bool world_map_open = false; // Save and Save As take the world map's path
    bool view_stale = false;     // a "View Layer" box changed since the last full composition
    bool painting = false;       // a drag paints
    bool tile_picked = false;    // the press was a pick: the click after it must not paint
    PatchFlags patch_flags{};    // the patch marks of all images opened so far
    float zoom = 1.0f;           // 0.25, 0.5, 1 or 2; a smaller value is a closer view
    std::string rom_path;        // path of the open image, as Label20 shows it
    std::optional<OpenFailure> open_failure; // of the last Open
};

/// Everything counts as saved: it has been, or was given up.
inline void forget_changes(EditorState& state) {
    state.changes_saved = true;
    state.map.unsaved_painting = state.world.unsaved_painting = false;
}

} // namespace veldrune
