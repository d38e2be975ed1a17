#pragma once

#include "inspect/reading.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace veldrune::inspect {

/// One thing that is known of an image: "map 012 song" is "34". No key comes twice.
struct Fact {
    std::string key;
    std::string value;
};

/// All that the program understands of an image, in an order that depends on nothing else. A stream
/// stands once, under its number, and so do a dialogue and a command of a script. Numbers in keys
/// are padded with zeros; those of maps, data and dialogues are decimal, offsets and items
/// hexadecimal. Rows and bytes are pairs of hexadecimal digits.
std::vector<Fact> dump_image(const ImageReading& reading);

/// The part of it before streams and scripts: tables, items, maps with their objects, dialogues.
std::vector<Fact> dump_values(const ImageReading& reading);

/// Bytes as a dump shows them: "0F FF".
std::string hex_text(std::span<const std::uint8_t> bytes);

} // namespace veldrune::inspect
