#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

namespace veldrune::test {

/// The bytes of a text such as "13 00 FF".
inline std::vector<std::uint8_t> hex_bytes(const std::string& text) {
    std::vector<std::uint8_t> bytes;
    std::istringstream words(text);
    for (unsigned value = 0; words >> std::hex >> value;)
        bytes.push_back(static_cast<std::uint8_t>(value));
    return bytes;
}

} // namespace veldrune::test
