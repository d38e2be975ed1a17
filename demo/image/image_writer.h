#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace veldrune::demo {

using Bytes = std::vector<std::uint8_t>;

/// The bytes of the image.
class ImageWriter {
  public:
    ImageWriter();
    void put(std::int32_t offset, std::span<const std::uint8_t> bytes);
    void put_byte(std::int32_t offset, int value);
    void put_word(std::int32_t offset, int value);
    void put_pointer(std::int32_t offset, std::int32_t value);
    void copy_word(std::int32_t from, std::int32_t to);
    Bytes take() { return std::move(image_); }

  private:
    Bytes image_;
};

/// An area that is filled from its start, and the table of 24-bit offsets into it.
class DataArea {
  public:
    DataArea(ImageWriter& writer, std::int32_t start, std::int32_t end, std::int32_t table,
             int capacity)
        : writer_(writer), start_(start), next_(start), end_(end), table_(table),
          capacity_(capacity) {}
    /// Appends bytes and returns the number of their table entry. Throws std::length_error where
    /// the area or the table is full.
    int add(std::span<const std::uint8_t> bytes);
    /// The same with the compressed bytes.
    int add_packed(std::span<const std::uint8_t> bytes);
    /// Fills the rest of the table by repeating its entries from the first on.
    void repeat_entries();

  private:
    ImageWriter& writer_;
    std::int32_t start_, next_, end_, table_;
    int capacity_;
    std::vector<std::int32_t> offsets_;
};

} // namespace veldrune::demo
