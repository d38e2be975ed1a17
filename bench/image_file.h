#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <unistd.h>

namespace veldrune {

/// Where an image lies. In memory, where the system has such a folder, no flush costs anything.
enum class Medium { memory, disk };

/// An image in a temporary file, which is removed with the object.
struct ImageFile {
    const std::string path;

    explicit ImageFile(std::span<const std::uint8_t> bytes, Medium medium = Medium::memory)
        : path(new_path(medium)) {
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }
    ImageFile(const ImageFile&) = delete;
    ~ImageFile() { std::filesystem::remove(path); }

  private:
    static std::string new_path(Medium medium) {
        static int number = 0;
        const std::filesystem::path memory = "/dev/shm";
        const bool in_memory = medium == Medium::memory && std::filesystem::exists(memory);
        return ((in_memory ? memory : std::filesystem::temp_directory_path()) /
                ("veldrune-bench-" + std::to_string(::getpid()) + "-" + std::to_string(++number)))
            .string();
    }
};

} // namespace veldrune
