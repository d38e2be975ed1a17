#pragma once

#include "rom/file_layer.h"
#include "rom/native_path.h"

#include <filesystem>
#include <iterator>
#include <random>
#include <string>

namespace veldrune::test {

/// A fresh folder of the real disk, which goes with the test. Its own name is long, so that names
/// in it exceed what some systems take without more ado.
struct DiskFolder {
    std::filesystem::path path = std::filesystem::temp_directory_path() /
                                 (std::to_string(std::random_device()()) + std::string(120, 'f'));
    DiskFolder() { std::filesystem::create_directory(path); }
    ~DiskFolder() {
        std::error_code failed;
        std::filesystem::remove_all(path, failed);
    }
    DiskFolder(const DiskFolder&) = delete;
    DiskFolder& operator=(const DiskFolder&) = delete;
    std::string file(const std::string& name) const { return (path / native_path(name)).string(); }
    std::size_t file_count() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(path), {}));
    }
};

} // namespace veldrune::test
