#pragma once

#include "rom/rom_image.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace veldrune {

/// The most bytes of the image that are read for one text.
inline constexpr std::size_t max_dialogue_bytes = 4096;

/// A dialogue as a cell of the Event Editor shows it.
struct DialogueText {
    std::string text;              // lines end with "\r\n", or with "\r" where they were wrapped
    std::uint8_t line_count = 0;   // one more than the number of lines
    std::uint8_t option_count = 0; // choices that it offers
};

/// The text that a byte of a dialogue stands for.
std::string_view decode_dialogue_byte(std::uint8_t byte);

/// Breaks a text at its blanks into lines of at most 33 characters, and counts lines and options. A
/// longer word is not broken.
DialogueText wrap_dialogue(std::string text);

/// File offset of a dialogue's text, by the table of the Dialogue Patch if the image has it, else
/// by the original one; -1, where nothing can be read, if its table entry is outside the file.
std::int64_t dialogue_offset(const RomImage& rom, bool dialogue_patched, int number);

/// The dialogue of this number, by the table of the Dialogue Patch if the image has it, else by the
/// original one. A number past the table reads what lies there. A text ends at the end of the file.
DialogueText read_dialogue_text(const RomImage& rom, bool dialogue_patched, int number);

} // namespace veldrune
