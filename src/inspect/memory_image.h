#pragma once

#include "rom/diskless.h"
#include "rom/rom_image.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace veldrune::inspect {

/// The bytes of an image, read once. Never changed, so that any number of threads may read it.
struct MemoryImage {
    std::string path;
    std::vector<std::uint8_t> bytes;

    std::int64_t size() const { return static_cast<std::int64_t>(bytes.size()); }
    /// Whether count bytes from a file offset on lie in the file.
    bool holds(std::int64_t offset, std::int64_t count) const {
        return offset >= 0 && count >= 0 && offset <= size() - count;
    }
    /// count bytes from a file offset on; fewer at the end of the file, none outside.
    std::span<const std::uint8_t> at(std::int64_t offset, std::int64_t count) const;
};

/// A file that is larger is no image: no pointer of the game reaches so far.
inline constexpr std::int64_t most_image_bytes = 0x2000000;

/// Reads a file, which needs no permission to write and is not marked as edited. Returns nothing
/// when that is done, and otherwise why not.
std::optional<std::string> read_image(FileLayer& files, const std::string& path,
                                      MemoryImage& image);

/// The image as the editor's own procedures read it. Each thread has one of its own.
class MemoryRom : private DisklessLayer {
  public:
    /// image must outlive this.
    explicit MemoryRom(const MemoryImage& image) : image_(image), rom_(*this) {
        rom_.open(image.path);
    }
    const RomImage& rom() const { return rom_; }

  private:
    class BytesFile;
    std::unique_ptr<File> open(const std::string&) override;

    const MemoryImage& image_;
    RomImage rom_;
};

} // namespace veldrune::inspect
