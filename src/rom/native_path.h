#pragma once

#include <filesystem>
#include <string>

namespace veldrune {

/// A name as the standard library's file calls take it, on every system: names are UTF-8 where the
/// system's own are texts, and any bytes elsewhere.
inline std::filesystem::path native_path(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}

} // namespace veldrune
