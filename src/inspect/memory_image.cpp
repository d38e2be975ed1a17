#include "inspect/memory_image.h"

#include <algorithm>

namespace veldrune::inspect {

std::span<const std::uint8_t> MemoryImage::at(std::int64_t offset, std::int64_t count) const {
    if (offset < 0 || offset >= size() || count <= 0)
        return {};
    const std::int64_t held = std::min(count, size() - offset);
    return std::span(bytes).subspan(static_cast<std::size_t>(offset),
                                    static_cast<std::size_t>(held));
}

std::optional<std::string> read_image(FileLayer& files, const std::string& path,
                                      MemoryImage& image) {
    const std::unique_ptr<File> file = files.open_to_read(path);
    const std::optional<FileStatus> status = file ? file->status() : std::nullopt;
    if (!status)
        return "it can't be opened, or is no regular file";
    if (status->size > most_image_bytes)
        return "it is too large for an image";
    image.path = path;
    image.bytes.resize(static_cast<std::size_t>(status->size));
    for (std::size_t done = 0; done < image.bytes.size();) {
        const auto count =
            file->read_at(static_cast<std::int64_t>(done), std::span(image.bytes).subspan(done));
        if (count.value_or(0) == 0)
            return "reading it failed";
        done += *count;
    }
    return std::nullopt;
}

class MemoryRom::BytesFile : public DisklessFile {
  public:
    explicit BytesFile(const MemoryImage& image) : image_(image) {}

    std::optional<std::size_t> read_at(std::int64_t offset,
                                       std::span<std::uint8_t> bytes) override {
        const auto held = image_.at(offset, static_cast<std::int64_t>(bytes.size()));
        std::ranges::copy(held, bytes.begin());
        return held.size();
    }
    bool write_at(std::int64_t, std::span<const std::uint8_t>) override { return false; }
    std::optional<FileStatus> status() override { return FileStatus{{}, image_.size()}; }

  private:
    const MemoryImage& image_;
};

std::unique_ptr<File> MemoryRom::open(const std::string&) {
    return std::make_unique<BytesFile>(image_);
}

} // namespace veldrune::inspect
