#include "rom/rom_image.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace veldrune {

bool RomImage::open(const std::string& path) {
    std::unique_ptr<File> file = files_.open(path);
    const std::optional<FileStatus> status = file ? file->status() : std::nullopt;
    if (!status)
        return false;
    file_ = std::move(file); // first closes the former one, which may be the same file
    path_ = path;
    identity_ = status->identity;
    edited_elsewhere_ = file_->lock() == Answer::no;
    unflushed_ = write_failed_ = nameless_accepted = false;
    return true;
}

const char* RomImage::why_not_open(const std::string& path) const {
    const NameStatus there = files_.status_of(path);
    if (there.kind == NameStatus::nothing)
        return "no file can be reached there";
    const char* const why = why_not_written(there);
    return why ? why : "the system refuses it";
}

std::optional<std::int64_t> RomImage::size() const {
    const std::optional<FileStatus> known = file_ ? file_->status() : std::nullopt;
    return known ? std::optional(known->size) : std::nullopt;
}

bool RomImage::is_file(const std::string& path) const {
    return file_ && files_.leads_to(path, identity_) == Answer::yes;
}

std::optional<std::string> RomImage::copy_to(const std::string& path) const {
    return file_ ? copy_file(files_, *file_, path) : "";
}

std::size_t RomImage::read(std::int64_t offset, std::span<std::uint8_t> bytes) const {
    const std::size_t wanted = bytes.size();
    while (file_ && offset >= 0 && !bytes.empty()) {
        const std::optional<std::size_t> count = file_->read_at(offset, bytes);
        refused_reads_ += count ? 0 : 1;
        if (count.value_or(0) == 0)
            break;
        bytes = bytes.subspan(*count);
        offset += static_cast<std::int64_t>(*count);
    }
    std::ranges::fill(bytes, std::uint8_t{0xFF});
    return wanted - bytes.size();
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
    Pointer24 b;
    read(offset, b);
    return b[0] | b[1] << 8 | b[2] << 16;
}

bool RomImage::write(std::int64_t offset, std::span<const std::uint8_t> bytes) {
    const bool possible = file_ && offset >= 0;
    const bool written = possible && file_->write_at(offset, bytes);
    unflushed_ |= possible;
    write_failed_ |= !written;
    return written;
}

bool RomImage::flush() {
    const bool written = !std::exchange(write_failed_, false);
    const bool flushed = !std::exchange(unflushed_, false) || file_->flush();
    return written && flushed;
}

} // namespace veldrune
