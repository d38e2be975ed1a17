#include "saving/save_world.h"

#include "rom/number_field.h"
#include "rom/reported_access.h"
#include "saving/save_stream.h"

namespace veldrune {
namespace {

constexpr StreamMessages world_words = {"The world map", "The map youre trying to save is ",
                                        " larger than the original map saving"};

// A stream that is too long has been read as an empty map.
bool was_readable(const OpenWorld& world) {
    return world.world_packed_size <= max_world_stream_bytes;
}

void refuse_world(const OpenWorld& world, Dialogs& dialogs) {
    if (was_readable(world))
        return refuse_long_stream(world_words, max_world_stream_bytes,
                                  ", which the game can't read.", dialogs);
    refuse_to_save(world_words,
                   "what the image holds could not be read, and an empty map would take its place.",
                   dialogs);
}

// Why location can't be named by a pointer, or an empty text.
std::string pointer_obstacle(std::int32_t location, const std::string& location_text) {
    const auto address =
        static_cast<std::uint32_t>(std::int64_t{location} - rom_layout::header_size);
    if (format_hex(address).size() != 6)
        return "Map Data Location must be 6 digits long";
    if (address_of_offset(location) > last_address)
        return "No pointer reaches " + location_text +
               ". The pointer to the world map stays as it was.";
    return "";
}

bool write_pointer(RomImage& rom, World world, std::int32_t location,
                   const std::string& location_text, Dialogs& dialogs) {
    const std::string obstacle = pointer_obstacle(location, location_text);
    if (obstacle.empty())
        return write_or_report(rom, world_row(world).map_pointer,
                               pointer24_bytes(address_of_offset(location)), dialogs);
    dialogs.error(obstacle);
    return true;
}

} // namespace

bool can_name_world_at(std::int32_t location) {
    return pointer_obstacle(location, "").empty();
}

std::span<const std::uint8_t> pack_world(const OpenWorld& world, CompressOutput& output) {
    if (!was_readable(world))
        return {};
    const auto length = compress_world_map(world.world_map.cells, output);
    return std::span(output).first(length && *length <= max_world_stream_bytes ? *length : 0);
}

bool save_world_map(RomImage& rom, Form1& form, OpenWorld& world,
                    std::span<const std::uint8_t> stream, Dialogs& dialogs) {
    if (stream.empty()) {
        refuse_world(world, dialogs);
        return false;
    }
    const std::int32_t location = read_field(form, &Form1::Text24, dialogs).value;
    if (!save_stream(rom, location, stream, world.world_packed_size, world_words, dialogs))
        return false;
    world.world_packed_size = static_cast<int>(stream.size());
    return write_pointer(rom, world.world, location, form.Text24, dialogs);
}

} // namespace veldrune
