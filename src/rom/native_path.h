#pragma once

#include <filesystem>
#include <string>

namespace veldrune {

/// A name as the standard library's file calls take it, on every system: names are UTF-8 where the
/// system's own are texts, and any bytes elsewhere.
inline std::filesystem::path native_path(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}

/// The same for a stream, which takes names of any length in this form. Part of the file layer.
std::filesystem::path stream_path(const std::string& name);

/// Makes a folder and those above it, as far as they are not there. False where there is no folder
/// of that name afterwards. Part of the file layer.
bool make_folder(const std::string& name);

} // namespace veldrune
