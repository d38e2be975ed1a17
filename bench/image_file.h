#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <unistd.h>

namespace veldrune {

/// An image in a temporary file, which is removed with the object. One at a time.
struct ImageFile {
    const std::string path = (std::filesystem::temp_directory_path() /
                              ("veldrune-bench-" + std::to_string(::getpid()) + ".smc"))
                                 .string();

    explicit ImageFile(std::span<const std::uint8_t> bytes) {
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }
    ImageFile(const ImageFile&) = delete;
    ~ImageFile() { std::filesystem::remove(path); }
};

} // namespace veldrune
