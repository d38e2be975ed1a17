#pragma once

#include "inspect/listing.h"
#include "inspect/reading.h"

#include <optional>
#include <vector>

namespace veldrune::inspect {

/// What lies around a place that nothing known uses.
enum class RoomKind {
    between, // known streams before and after it
    after,   // the last layer or world stream before it, up to the next known structure
    added,   // the megabyte of an expansion, after the dialogue table
};
enum class RoomContents { zeros, erased, data }; // all 00, all FF, anything

struct Room {
    RoomKind kind;
    std::int64_t offset; // file offset
    std::int64_t size;   // bytes
    RoomContents contents;
};

/// All places that nothing known uses, by kind and offset. Blank stretches of 256 bytes and more
/// stand apart from the data beside them.
std::vector<Room> find_room(const ImageReading& reading);

enum class StreamKind { layer, world };
/// The longest stream that the editor makes of a layer, and reads of a world.
std::int64_t most_stream_bytes(StreamKind kind);
/// The part of a blank place where a stream of this many bytes is put best: where it does not cross
/// a bank, and of those in the smallest place. Nothing where none takes it.
std::optional<Room> best_room(const std::vector<Room>& rooms, std::int64_t bytes, StreamKind kind);

/// The first byte of the next bank where the bytes from offset on cross into it.
std::optional<std::int64_t> crossed_bank(std::int64_t offset, std::int64_t bytes);

/// The places, with a note on each; of a place of exactly these bytes also where it crosses a bank.
Listing list_room(const std::vector<Room>& rooms, std::optional<std::int64_t> bytes = {});

} // namespace veldrune::inspect
