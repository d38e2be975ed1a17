#pragma once

#include "compression/compress.h"
#include "compression/decompress.h"
#include "events/script_decoder.h"
#include "events/script_entry.h"
#include "forms/dialogs.h"
#include "forms/form1.h"
#include "forms/form10.h"
#include "forms/form2.h"
#include "forms/form8.h"
#include "forms/form9.h"
#include "map/layer_map.h"
#include "map/map_properties.h"
#include "map/palette.h"
#include "map/tile_sources.h"
#include "objects/object_record.h"
#include "objects/object_tables.h"
#include "render/formations.h"
#include "render/pixel_buffer.h"
#include "rom/patch_marks.h"
#include "rom/rom_image.h"
#include "world_map/world_map.h"
#include "world_map/worlds.h"

#include <array>
#include <optional>
#include <string>

namespace veldrune {

/// The image that something in memory was read from.
struct ImageSource {
    FileIdentity identity;
    std::string path;
};
inline ImageSource source_of(const RomImage& rom) {
    return {rom.identity(), rom.path()};
}

/// Everything the editor knows, held once, on the heap. The windows show it and change it through
/// the operations of this folder alone.
struct EditorState {
    EditorState(FileLayer& files, Dialogs& dialog_port) : rom(files), dialogs(dialog_port) {}

    RomImage rom;
    Dialogs& dialogs;
    Form1 form1;
    Form2 form2;
    Form8 form8;
    Form9 form9;
    Form10 form10;

    // Flags and values of the main window.
    bool rom_open = false;       // an image is open
    bool map_selected = false;   // a map above "map 0" has been chosen since the start
    bool changes_saved = true;   // nothing on the map picture is unsaved
    bool world_map_mode = false; // the picture shows a world map
    bool world_map_open = false; // Save and Save As take the world map's path
    bool view_stale = false;     // a "View Layer" box changed since the last full composition
    bool painting = false;       // a drag paints
    bool tile_picked = false;    // the press was a pick: the coming click must not paint
    PatchFlags patch_flags{};    // the patch marks of all images opened so far
    float zoom = 1.0f;           // 0.25, 0.5, 1 or 2; a smaller value is a closer view
    std::string rom_path;        // path of the open image, as Label20 shows it

    // The selected map.
    int map_index = 0;
    std::optional<ImageSource> map_source; // nothing before the first choice
    MapProperties map_properties{};        // the record in memory, as chosen, pasted or last saved
    MapProperties record_at_load{}; // the record as the image held it when the map was chosen
    int layer3_order = 0;
    AnimTileTable anim_tiles{};
    std::array<Layer, layer_count> layers;
    MapProperties property_clipboard{}; // the copied record; zeros before the first copy

    // The world map.
    World world = World::dawn;               // the one that was read last
    std::optional<ImageSource> world_source; // nothing before the first opening
    WorldMap world_map;
    WorldSheet world_sheet;
    int world_packed_size = 0; // the length field of its stream, as read or last written

    // Objects.
    ObjectLists objects;            // of the map that was drawn last
    SelectedObject selected_object; // in the object window

    // The script in the Event Editor.
    LoadedScript script;                      // as it was loaded
    std::optional<ImageSource> script_source; // nothing before the first one
    ScriptEntry script_entry;

    // The picture.
    Palette256 palette{};
    FormationBitmaps bitmaps;
    PixelBuffer picture;
    int last_h = 0; // place of the latest composition or scroll
    int last_v = 0;
    PixelBuffer tile_sheet; // Picture1 of the tile chooser

    // Work space, with no meaning between operations.
    DecompressBuffer decompress_buffer;
    CharacterGraphics characters{};
    CompressOutput compress_output{};
};

} // namespace veldrune
