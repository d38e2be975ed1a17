#include "inspect/room.h"

#include "compression/compress.h"
#include "compression/decompress.h"
#include "inspect/ownership.h"
#include "rom/number_text.h"
#include "saving/save_doubts.h"

#include <algorithm>
#include <tuple>

namespace veldrune::inspect {
namespace {

using namespace rom_layout;

constexpr std::int64_t shortest_blank = 256; // beside data
constexpr std::int64_t bank_size = 0x10000;

// Where the game has streams of one sort, and whether what follows the last of them is room, too.
struct StreamArea {
    std::int64_t begin;
    std::int64_t end;
    OwnerKind first_kind;
    OwnerKind last_kind;
    bool after;
};
constexpr StreamArea stream_areas[] = {
    {layer_data, formation_data, OwnerKind::layer_stream, OwnerKind::layer_stream, true},
    {formation_data, formation_pointers, OwnerKind::formation_set, OwnerKind::formation_set, false},
    {layer3_graphics, layer3_graphics_pointers, OwnerKind::layer3_graphics,
     OwnerKind::layer3_graphics, false},
    {dusk_map_pointer + 3, added_area, OwnerKind::world_map, OwnerKind::world_graphics, true},
};
constexpr std::int64_t added_begin = new_dialogue_pointers + 3 * dialogue_count;

class RoomFinder {
  public:
    explicit RoomFinder(const ImageReading& reading) : image_(reading.image), ownership_(reading) {}

    std::vector<Room> find() {
        for (const StreamArea& area : stream_areas)
            add_area(area);
        const std::int64_t end = std::min<std::int64_t>(image_.size(), expanded_image_size);
        if (end > added_begin)
            add_gaps(RoomKind::added, added_begin, end);
        std::ranges::stable_sort(rooms_, {},
                                 [](const Room& r) { return std::tuple(r.kind, r.offset); });
        return std::move(rooms_);
    }

  private:
    void add_area(const StreamArea& area) {
        std::int64_t first = area.end;
        std::int64_t last = area.begin;
        for (const OwnedRange& range : ownership_.owners_in(area.begin, area.end))
            if (range.kind >= area.first_kind && range.kind <= area.last_kind &&
                range.begin >= area.begin) {
                first = std::min(first, range.begin);
                last = std::max(last, std::min(range.end, area.end));
            }
        if (first >= last)
            return; // no stream
        add_gaps(RoomKind::between, first, last);
        const std::int64_t end = std::min(area.end, image_.size());
        const auto after = ownership_.gaps_in(last, end);
        if (area.after && last < end && !after.empty() && after.front().begin == last)
            add(RoomKind::after, last, after.front().end);
    }

    void add_gaps(RoomKind kind, std::int64_t begin, std::int64_t end) {
        for (const ByteRange& gap : ownership_.gaps_in(begin, end))
            add(kind, gap.begin, gap.end);
    }

    // Splits a gap into blank stretches and data.
    void add(RoomKind kind, std::int64_t begin, std::int64_t end) {
        std::int64_t data = begin;
        for (std::int64_t at = begin; at < end;) {
            const std::int64_t stretch = same_bytes(at, end);
            const std::uint8_t byte = image_.bytes[static_cast<std::size_t>(at)];
            const bool blank = byte == 0x00 || byte == 0xFF;
            if (blank && (stretch >= shortest_blank || stretch == end - begin)) {
                put(kind, data, at, RoomContents::data);
                data = at + stretch;
                put(kind, at, data, byte == 0 ? RoomContents::zeros : RoomContents::erased);
            }
            at += stretch;
        }
        put(kind, data, end, RoomContents::data);
    }
    void put(RoomKind kind, std::int64_t begin, std::int64_t end, RoomContents contents) {
        if (begin < end)
            rooms_.push_back({kind, begin, end - begin, contents});
    }

    // How many bytes from an offset on are alike.
    std::int64_t same_bytes(std::int64_t offset, std::int64_t end) const {
        const auto bytes = image_.at(offset, end - offset);
        return std::ranges::find_if(bytes, [&](auto byte) { return byte != bytes[0]; }) -
               bytes.begin();
    }

    const MemoryImage& image_;
    Ownership ownership_;
    std::vector<Room> rooms_;
};

bool can_hold(const Room& room, std::int64_t bytes, StreamKind kind) {
    const bool reached =
        kind == StreamKind::layer ||
        doubts_about_world(static_cast<std::int32_t>(room.offset), static_cast<std::size_t>(bytes))
            .empty();
    return room.contents != RoomContents::data && room.size >= bytes && reached;
}

// The whole place, or the part from the next bank on where that is large enough and the place's
// beginning is not.
Room placed(Room room, std::int64_t bytes) {
    const auto bank = crossed_bank(room.offset, bytes);
    const std::int64_t skipped = bank ? *bank - room.offset : 0;
    if (room.size - skipped >= bytes) {
        room.offset += skipped;
        room.size -= skipped;
    }
    return room;
}

} // namespace

std::vector<Room> find_room(const ImageReading& reading) {
    return RoomFinder(reading).find();
}

std::int64_t most_stream_bytes(StreamKind kind) {
    return kind == StreamKind::world ? max_world_stream_bytes : std::int64_t{layer_stream_limit};
}

std::optional<Room> best_room(const std::vector<Room>& rooms, std::int64_t bytes, StreamKind kind) {
    std::optional<Room> best;
    const auto rank = [&](const Room& room) {
        return std::tuple(crossed_bank(room.offset, bytes).has_value(), room.size, room.offset);
    };
    for (const Room& room : rooms) {
        if (!can_hold(room, bytes, kind))
            continue;
        const Room place = placed(room, bytes);
        if (!best || rank(place) < rank(*best))
            best = place;
    }
    return best;
}

std::optional<std::int64_t> crossed_bank(std::int64_t offset, std::int64_t bytes) {
    const std::int64_t bank = (offset - header_size) / bank_size + 1;
    const std::int64_t next = bank * bank_size + header_size;
    return next < offset + bytes ? std::optional(next) : std::nullopt;
}

Listing list_room(const std::vector<Room>& rooms, std::optional<std::int64_t> bytes) {
    using enum CellForm;
    constexpr const char* kinds[] = {"between streams", "after the last stream", "added megabyte"};
    constexpr const char* contents[] = {"00", "FF", "data"};
    Listing listing{{{"kind", "Kind", words},
                     {"location", "Location", hexadecimal},
                     {"size", "Bytes", decimal},
                     {"contents", "Contents", words},
                     {"note", "Note", words}},
                    {}};
    for (const Room& room : rooms) {
        std::string note = "nothing known uses it";
        if (const auto bank = crossed_bank(room.offset, bytes.value_or(0)))
            note += "; " + std::to_string(*bytes) + " bytes cross into the bank at " +
                    format_hex(*bank);
        listing.rows.push_back({kinds[static_cast<int>(room.kind)], room.offset, room.size,
                                contents[static_cast<int>(room.contents)], std::move(note)});
    }
    return listing;
}

} // namespace veldrune::inspect
