#pragma once

#include "rom/rom_image.h"

#include <array>

namespace veldrune {

/// Which patches an image has had, by the marks in it. A mark is set by clearing its bit.
using PatchFlags = std::array<bool, 13>;
inline constexpr std::size_t dialogue_patch_flag = 8;

/// Sets the flags whose marks are set in the image, and leaves the others as they are. A file that
/// ends before the marks has none.
void read_patch_flags(const RomImage& rom, PatchFlags& flags);

/// Whether the open image has the Dialogue Patch.
bool has_dialogue_patch(const RomImage& rom);

} // namespace veldrune
