#include "demo/image/image_writer.h"

#include "compression/compress.h"
#include "rom/rom_layout.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace veldrune::demo {

ImageWriter::ImageWriter() : image_(rom_layout::image_size, 0xFF) {
    std::fill_n(image_.begin(), rom_layout::header_size, std::uint8_t{0});
}

void ImageWriter::put(std::int32_t offset, std::span<const std::uint8_t> bytes) {
    std::ranges::copy(bytes, image_.begin() + offset);
}

void ImageWriter::put_byte(std::int32_t offset, int value) {
    image_[static_cast<std::size_t>(offset)] = static_cast<std::uint8_t>(value);
}

void ImageWriter::put_word(std::int32_t offset, int value) {
    put_byte(offset, value);
    put_byte(offset + 1, value >> 8);
}

void ImageWriter::put_pointer(std::int32_t offset, std::int32_t value) {
    put_word(offset, value);
    put_byte(offset + 2, value >> 16);
}

void ImageWriter::copy_word(std::int32_t from, std::int32_t to) {
    std::copy_n(image_.begin() + from, 2, image_.begin() + to);
}

int DataArea::add(std::span<const std::uint8_t> bytes) {
    const int number = static_cast<int>(offsets_.size());
    if (number == capacity_ || next_ + static_cast<std::int32_t>(bytes.size()) > end_)
        throw std::length_error("an area of the demo image is full");
    writer_.put(next_, bytes);
    offsets_.push_back(next_ - start_);
    writer_.put_pointer(table_ + 3 * number, next_ - start_);
    next_ += static_cast<std::int32_t>(bytes.size());
    return number;
}

int DataArea::add_packed(std::span<const std::uint8_t> bytes) {
    const auto stream = std::make_unique<CompressOutput>();
    const auto size = compress_layer(bytes, *stream);
    if (!size)
        throw std::length_error("a layer of the demo image does not pack");
    return add(std::span(*stream).first(*size));
}

void DataArea::repeat_entries() {
    for (int number = static_cast<int>(offsets_.size()); number < capacity_; ++number)
        writer_.put_pointer(table_ + 3 * number,
                            offsets_[static_cast<std::size_t>(number) % offsets_.size()]);
}

} // namespace veldrune::demo
