#pragma once

#include "forms/dialogs.h"
#include "rom/patch_marks.h"
#include "rom/rom_image.h"

namespace veldrune {

/// Fills the area that a 32 Mbit image has beyond a 24 Mbit one with zeros. An image that is long
/// enough already is left unchanged, which is reported.
void expand_rom(RomImage& rom, Dialogs& dialogs);

/// Copies the game's dialogue pointers into a table of 24-bit pointers after the original end of
/// the image, makes the game use it and sets the mark, in the image and in flags. A read or write
/// that fails is reported and ends it.
void apply_dialogue_patch(RomImage& rom, PatchFlags& flags, Dialogs& dialogs);

} // namespace veldrune
