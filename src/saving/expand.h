#pragma once

#include "forms/dialogs.h"
#include "rom/patch_marks.h"
#include "rom/rom_image.h"

namespace veldrune {

/// Fills the area that an image of 32 Mbit has more than one of 24 with zeros. An image that
/// reaches to its end already is left alone, which is told.
void expand_rom(RomImage& rom, Dialogs& dialogs);

/// Copies the game's dialogue pointers into a table of 24 bits behind the old end of the image,
/// makes the game use it and sets the mark, in the image and in flags. A write that fails is told
/// and ends it.
void apply_dialogue_patch(RomImage& rom, PatchFlags& flags, Dialogs& dialogs);

} // namespace veldrune
