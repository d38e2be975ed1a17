#include "rom/rehearsal.h"

#include <algorithm>

namespace veldrune {

class Rehearsal::OverlayFile : public DisklessFile {
  public:
    explicit OverlayFile(Rehearsal& rehearsal) : rehearsal_(rehearsal) {}

    // The later of two writes to a byte counts. Between the end of the image and a write beyond it
    // lie zeros.
    std::optional<std::size_t> read_at(std::int64_t offset,
                                       std::span<std::uint8_t> bytes) override {
        const auto wanted = static_cast<std::int64_t>(bytes.size());
        auto held = static_cast<std::int64_t>(rehearsal_.image_.read(offset, bytes));
        std::fill(bytes.begin() + held, bytes.end(), std::uint8_t{0});
        for (const Write& write : rehearsal_.writes_) {
            const auto end = write.offset + static_cast<std::int64_t>(write.bytes.size());
            const std::int64_t first = std::max(offset, write.offset);
            const std::int64_t last = std::min(offset + wanted, end);
            if (first < last)
                std::copy_n(write.bytes.begin() + (first - write.offset), last - first,
                            bytes.begin() + (first - offset));
            held = std::max(held, std::clamp<std::int64_t>(end - offset, 0, wanted));
        }
        return static_cast<std::size_t>(held);
    }
    bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
        rehearsal_.writes_.push_back({offset, {bytes.begin(), bytes.end()}});
        return true;
    }
    std::optional<FileStatus> status() override {
        return FileStatus{rehearsal_.image_.identity(), rehearsal_.image_.size().value_or(0)};
    }

  private:
    Rehearsal& rehearsal_;
};

Rehearsal::Rehearsal(const RomImage& image) : image_(image), rom_(*this) {
    rom_.open(image.path());
}

std::unique_ptr<File> Rehearsal::open(const std::string&) {
    return std::make_unique<OverlayFile>(*this);
}

} // namespace veldrune
