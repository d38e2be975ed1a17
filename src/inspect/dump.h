#pragma once

#include "inspect/reading.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace veldrune::inspect {

/// One thing that is known of an image: "map 012 song" is "34". No key comes twice.
struct Fact {
    std::string key;
    std::string value;
};

/// Hands over all that the program understands of an image, some facts at a time: all of them would
/// take hundreds of megabytes where the image is none. Their order depends on nothing else. A
/// stream stands once, under its number, and so do a dialogue and a command of a script. Numbers in
/// keys are padded with zeros; those of maps and data are decimal, offsets, dialogues and items
/// hexadecimal. Rows and bytes are pairs of hexadecimal digits.
void dump_image(const ImageReading& reading,
                const std::function<void(const std::vector<Fact>&)>& take);

/// What comes before streams and scripts, in parts: tables and items, each map with its objects,
/// each dialogue.
inline constexpr int value_part_count = 1 + rom_layout::map_count + rom_layout::dialogue_count;
std::vector<Fact> dump_values(const ImageReading& reading, int part);

/// Bytes as a dump shows them: "0F FF".
std::string hex_text(std::span<const std::uint8_t> bytes);

} // namespace veldrune::inspect
