#pragma once

#include "rom/rom_image.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace veldrune {

/// No text reads more bytes of the image than this.
inline constexpr std::size_t longest_dialogue = 4096;

/// A dialogue as it shows in a cell.
struct DialogueText {
    std::string text;              // wrapped: lines parted by "\r\n", or by the wrapping's "\r"
    std::uint8_t line_count = 0;   // one more than there are lines
    std::uint8_t option_count = 0; // choices that it offers
};

/// The text that a byte of a dialogue stands for.
std::string_view decode_dialogue_byte(std::uint8_t byte);

/// Breaks a text into lines of at most 33 characters where it has blanks to do so, and counts its
/// lines and options.
DialogueText wrap_dialogue(std::string text);

/// The dialogue of this number, by the new table of an image with the Dialogue Patch or by the old
/// one. A number past the table reads what lies there; what leaves the file ends there.
DialogueText read_dialogue_text(const RomImage& rom, bool dialogue_patched, int number);

} // namespace veldrune
