#include "rom/rom_image.h"

#include <algorithm>
#include <array>

namespace veldrune {

bool RomImage::open(const std::string& path) {
    close();
    file_ = files_.open(path);
    if (file_)
        path_ = path;
    return is_open();
}

std::size_t RomImage::read(std::int64_t offset, std::span<std::uint8_t> bytes) const {
    const std::size_t count = file_ && offset >= 0 ? file_->read_at(offset, bytes) : 0;
    std::ranges::fill(bytes.subspan(count), std::uint8_t{0xFF});
    return count;
}

std::uint8_t RomImage::read_byte(std::int64_t offset) const {
    std::array<std::uint8_t, 1> b;
    read(offset, b);
    return b[0];
}

std::uint16_t RomImage::read_word(std::int64_t offset) const {
    std::array<std::uint8_t, 2> b;
    read(offset, b);
    return static_cast<std::uint16_t>(b[0] | b[1] << 8);
}

std::int32_t RomImage::read_pointer24(std::int64_t offset) const {
    std::array<std::uint8_t, 3> b;
    read(offset, b);
    return b[0] | b[1] << 8 | b[2] << 16;
}

bool RomImage::write(std::int64_t offset, std::span<const std::uint8_t> bytes) {
    return file_ && offset >= 0 && file_->write_at(offset, bytes);
}

bool RomImage::write_pointer24(std::int64_t offset, std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    const std::array<std::uint8_t, 3> b{static_cast<std::uint8_t>(bits),
                                        static_cast<std::uint8_t>(bits >> 8),
                                        static_cast<std::uint8_t>(bits >> 16)};
    return write(offset, b);
}

} // namespace veldrune
