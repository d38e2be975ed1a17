#pragma once

#include <cstdint>

/// Where the game's structures lie in the image, as 0-based file offsets with the 0x200-byte copier
/// header included. The SNES address of a file offset is $C00000 + offset - 0x200.
namespace veldrune::rom_layout {

inline constexpr std::int32_t header_size = 0x200;
inline constexpr std::int32_t image_size = 0x300200;          // 24 Mbit and the header
inline constexpr std::int32_t expanded_image_size = 0x400200; // 32 Mbit and the header
inline constexpr int map_count = 414;

// clang-format off
//                            name                            offset      SNES     contents
inline constexpr std::int32_t dialogue_routine              = 0x81BF;   // $C07FBF the game's code that finds a text, 29 bytes
inline constexpr std::int32_t animated_set_offsets          = 0x93D5;   // $C091D5 16 bits a set, signed, from animated_sets
inline constexpr std::int32_t animated_sets                 = 0x9401;   // $C09201 16 tiles of 10 bytes a set
inline constexpr std::int32_t sprite_addresses              = 0xD2F2;   // $C0D0F2 16 bits a sprite, address in its bank
inline constexpr std::int32_t sprite_banks                  = 0xD43C;   // $C0D23C 2 bytes a sprite, the first is its SNES bank
inline constexpr std::int32_t layer_priorities              = 0x10002;  // $C0FE02 one byte every 3 bytes
inline constexpr std::int32_t event_triggers                = 0x40200;  // $C40000 16 bits a map, from here; then 5 bytes a trigger
inline constexpr std::int32_t npcs                          = 0x41C10;  // $C41A10 16 bits a map, from here; then 9 bytes an NPC
inline constexpr std::int32_t animated_frames               = 0x624FF;  // base of the frame values 1 to 3
inline constexpr std::int32_t event_scripts                 = 0xA0200;  // $CA0000 base of all event pointers
inline constexpr std::int32_t dialogue_pointers             = 0xCE802;  // $CCE602 16 bits a text, the low part of its address
inline constexpr std::int32_t dialogues                     = 0xD0200;  // $CD0000 texts ended by 0, the first bank
inline constexpr std::int32_t dialogues_2                   = 0xE0200;  // $CE0000 the second bank
inline constexpr std::int32_t monster_sets                  = 0xF5800;  // $CF5600 1 byte a map
inline constexpr std::int32_t item_names                    = 0x12B500; // $D2B300 256 names of 13 letters
inline constexpr std::int32_t dawn_palette                  = 0x12EE00; // $D2EC00 256 colours of 16 bits
inline constexpr std::int32_t dusk_palette                  = 0x12EF00; // $D2ED00 the same; its first half is Dawn's second
inline constexpr std::int32_t layer_data_pointers           = 0x19CF90; // $D9CD90 352 of 24 bits, from layer_data
inline constexpr std::int32_t layer_data                    = 0x19D3B0; // $D9D1B0 compressed layers
inline constexpr std::int32_t formation_data                = 0x1E0200; // $DE0000 compressed tile formation sets
inline constexpr std::int32_t formation_pointers            = 0x1FBC00; // $DFBA00 85 of 24 bits, from formation_data
inline constexpr std::int32_t entrances                     = 0x1FBD00; // $DFBB00 16 bits a map, from here; then 6 bytes an entrance
inline constexpr std::int32_t tileset_pointers              = 0x1FDC00; // $DFDA00 85 of 24 bits, from tileset_graphics
inline constexpr std::int32_t tileset_graphics              = 0x1FDD00; // $DFDB00 32 bytes a character
inline constexpr std::int32_t animated_graphics             = 0x260200; // $E60000 32 bytes a character
inline constexpr std::int32_t sprite_palettes               = 0x268200; // $E68000 256 colours of 16 bits
inline constexpr std::int32_t layer3_graphics               = 0x268980; // $E68780 compressed layer 3 graphics
inline constexpr std::int32_t layer3_graphics_pointers      = 0x26CF60; // $E6CD60 21 of 24 bits, from layer3_graphics
inline constexpr std::int32_t chest_pointers                = 0x2D84F4; // $ED82F4 16 bits a map, from chests
inline constexpr std::int32_t chests                        = 0x2D8834; // $ED8634 5 bytes a chest
inline constexpr std::int32_t map_properties                = 0x2D9100; // $ED8F00 33 bytes a map
inline constexpr std::int32_t map_palettes                  = 0x2DC680; // $EDC480 128 colours of 16 bits a palette
inline constexpr std::int32_t long_entrances                = 0x2DF680; // $EDF480 16 bits a map, from here; then 7 bytes an entrance
inline constexpr std::int32_t dawn_map_pointer              = 0x2EB40F; // $EEB20F SNES address of a world map's stream
inline constexpr std::int32_t dawn_graphics_pointer         = 0x2EB412; // $EEB212 SNES address of its graphics
inline constexpr std::int32_t dusk_graphics_pointer         = 0x2EB41E; // $EEB21E here before the one of the map
inline constexpr std::int32_t dusk_map_pointer              = 0x2EB421; // $EEB221
inline constexpr std::int32_t patch_marks                   = 0x3000E0; // $EFFEE0 2 bytes, a clear bit is a set mark
inline constexpr std::int32_t added_area                    = 0x300200; // $F00000 start of the megabyte that an expansion adds
inline constexpr std::int32_t new_dialogue_pointers         = 0x300200; // $F00000 24 bits a text, made by the Dialogue Patch
// clang-format on

inline constexpr int layer_data_pointer_count = 352;
inline constexpr int formation_set_count = 85;
inline constexpr int tileset_count = 85;
inline constexpr int layer3_graphics_count = 21;
inline constexpr int dialogue_count = 3327;
inline constexpr int first_dialogue_of_second_bank = 1591;
inline constexpr int item_count = 256;
inline constexpr int item_name_size = 13; // letters, a byte each

} // namespace veldrune::rom_layout
