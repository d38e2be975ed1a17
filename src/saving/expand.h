#pragma once

#include "forms/dialogs.h"
#include "rom/patch_marks.h"
#include "rom/rom_image.h"

#include <array>
#include <cstdint>

namespace veldrune {

// clang-format off
/// The game's code that the Dialogue Patch puts at rom_layout::dialogue_routine.
inline constexpr std::array<std::uint8_t, 29> dialogue_patch_routine = {
    0xC2, 0x20,             //       REP #$20
    0xA5, 0xD0,             //       LDA $D0        number of the text
    0xAA, 0xA8,             //       TAX, TAY
    0xE8, 0xE8, 0x88,       // loop: INX, INX, DEY
    0xC0, 0x00, 0x00,       //       CPY #$0000
    0xD0, 0xF8,             //       BNE loop       until X is 3 times the number
    0xBF, 0x00, 0x00, 0xF0, //       LDA $F00000,X  low 16 bits of its address
    0x85, 0xC9,             //       STA $C9
    0x98,                   //       TYA
    0xE2, 0x20,             //       SEP #$20
    0xBF, 0x02, 0x00, 0xF0, //       LDA $F00002,X  bank of its address
    0x85, 0xCB,             //       STA $CB
};
// clang-format on

/// Fills the area that a 32 Mbit image has beyond a 24 Mbit one with zeros. An image that is long
/// enough already is left unchanged, which is reported.
void expand_rom(RomImage& rom, Dialogs& dialogs);

/// Copies the game's dialogue pointers into a table of 24-bit pointers after the original end of
/// the image, makes the game use it and sets the mark, in the image and in flags. A read or write
/// that fails is reported and ends it.
void apply_dialogue_patch(RomImage& rom, PatchFlags& flags, Dialogs& dialogs);

} // namespace veldrune
