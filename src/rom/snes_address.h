#pragma once

#include "rom/rom_layout.h"

namespace veldrune {

/// Some pointers of the image are SNES addresses of 24 bits: $C00000 is the first byte after the
/// header.
inline constexpr std::int32_t first_address = 0xC00000;
inline constexpr std::int32_t last_address = 0xFFFFFF;

/// The file offset of an address; below 0 for one far enough before $C00000.
constexpr std::int32_t offset_of_address(std::int32_t address) {
    return address - first_address + rom_layout::header_size;
}
/// The address of a file offset; above last_address if no address reaches it.
constexpr std::int64_t address_of_offset(std::int64_t offset) {
    return offset - rom_layout::header_size + first_address;
}

} // namespace veldrune
