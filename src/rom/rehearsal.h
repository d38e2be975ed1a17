#pragma once

#include "rom/diskless.h"
#include "rom/rom_image.h"

#include <vector>

namespace veldrune {

/// An image over another one, which stays as it is: reads go through to it except where something
/// has been written here. It shows what a save would leave before anything is written.
class Rehearsal : public DisklessLayer {
  public:
    /// image must outlive this.
    explicit Rehearsal(const RomImage& image);

    RomImage& rom() { return rom_; }

    std::unique_ptr<File> open(const std::string& path) override;

  private:
    struct Write {
        std::int64_t offset;
        std::vector<std::uint8_t> bytes;
    };
    class OverlayFile;

    const RomImage& image_;
    std::vector<Write> writes_;
    RomImage rom_;
};

} // namespace veldrune
