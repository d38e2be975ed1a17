#pragma once

#include "inspect/owner_kind.h"
#include "inspect/reading.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace veldrune::inspect {

/// A structure of the game whose place is fixed.
struct KnownStructure {
    const char* name;
    std::int64_t offset; // file offset
    std::int64_t size;   // bytes

    constexpr std::int64_t end() const { return offset + size; }
};
/// All of them, by offset. None overlaps another.
std::span<const KnownStructure> known_structures();

/// What has a range of bytes. Ranges of several owners may overlap, and those of streams that share
/// their data do.
struct OwnedRange {
    std::int64_t begin; // file offset
    std::int64_t end;   // one after the last byte
    OwnerKind kind;
    std::int64_t number;
    bool sure; // false for commands that are a script only perhaps

    bool operator==(const OwnedRange&) const = default;
};

/// The owner in words: "data 45", "chests of map 12", "map records".
std::string owner_name(const OwnedRange& range);

/// A range of bytes.
struct ByteRange {
    std::int64_t begin;
    std::int64_t end;
    bool operator==(const ByteRange&) const = default;
};

/// Who has which bytes of an image. Empty ranges and what lies outside the file are left out.
class Ownership {
  public:
    explicit Ownership(const ImageReading& reading);

    /// All ranges, by begin, and then by kind and number.
    std::span<const OwnedRange> ranges() const { return ranges_; }
    /// The ranges that hold a byte from begin to end - 1, in that order.
    std::vector<OwnedRange> owners_in(std::int64_t begin, std::int64_t end) const;
    /// What lies between begin and end, and nobody has.
    std::vector<ByteRange> gaps_in(std::int64_t begin, std::int64_t end) const;

  private:
    std::vector<OwnedRange> ranges_;
    std::vector<std::int64_t> reach_; // the highest end of a range and all before it
};

} // namespace veldrune::inspect
