#include "inspect/reading.h"

#include "compression/decompress.h"
#include "dialogue/dialogue_text.h"
#include "map/chosen_map.h"
#include "map/tile_sources.h"
#include "rom/patch_marks.h"

#include <algorithm>
#include <iterator>

namespace veldrune::inspect {
namespace {

constexpr int table_size = rom_layout::layer_data_pointer_count;

class Reader {
  public:
    Reader(const RomImage& rom, ImageReading& reading)
        : rom_(rom), image_(reading.image), reading_(reading) {}

    void read_all() {
        reading_.dialogue_patched = has_dialogue_patch(rom_);
        for (int map = 0; map < rom_layout::map_count; ++map) {
            reading_.records[index(map)] = read_record(rom_, map);
            reading_.monster_sets[index(map)] = rom_.read_byte(monster_set_offset(map));
            for (const ObjectKind kind : map_object_kinds)
                read_objects(map, kind);
        }
        read_layer_streams();
        read_other_streams();
        for (int number = 0; number < rom_layout::dialogue_count; ++number)
            reading_.dialogues.push_back(read_dialogue(number));
        read_scripts();
    }

  private:
    static std::size_t index(int number) { return static_cast<std::size_t>(number); }

    void read_objects(int map, ObjectKind kind) {
        ObjectListExtent& list = reading_.lists[index(map)][static_cast<std::size_t>(kind)];
        load_object_list(rom_, kind, map, rows_);
        list = {rows_.first_offset, rom_.read_word(object_kind_row(kind).pointers + 2 * (map + 1)),
                rows_.count, reading_.objects.size()};
        for (int i = 0; i < rows_.count; ++i) {
            ObjectAt object{kind, map, i, object_offset(kind, rows_, i), {}};
            std::ranges::copy(object_row(kind, rows_, i), object.bytes.begin());
            reading_.objects.push_back(object);
        }
    }

    void read_layer_streams() {
        std::vector<LayerStream>& streams = reading_.streams;
        for (int number = 0; number < table_size; ++number)
            streams.push_back(layer_stream(number));
        for (int map = 0; map < rom_layout::map_count; ++map)
            for (int layer = 0; layer < layer_count; ++layer)
                add_user(map, layer);
    }

    LayerStream layer_stream(int number) {
        const std::int64_t offset =
            std::int64_t{rom_layout::layer_data} + rom_.read_pointer24(data_pointer_offset(number));
        return {number, packed_stream(offset, layer_output_limit), {}, {}};
    }

    void add_user(int map, int layer) {
        const MapProperties& record = reading_.records[index(map)];
        const int number = layer_data_number(record, layer);
        std::vector<LayerStream>& streams = reading_.streams;
        if (reading_.stream(number) == nullptr)
            streams.push_back(layer_stream(number));
        LayerStream& stream = *std::ranges::find(streams, number, &LayerStream::number);
        stream.users.push_back({map, layer});
        const LayerSize size = layer_size(record, layer);
        if (size.width * size.height > stream.size.width * stream.size.height)
            stream.size = size;
    }

    void read_other_streams() {
        using namespace rom_layout;
        for (int number = 0; number < formation_set_count; ++number)
            reading_.formation_sets.push_back(
                packed_stream(formation_data + rom_.read_pointer24(formation_pointers + 3 * number),
                              layer_output_limit));
        for (int number = 0; number < layer3_graphics_count; ++number)
            reading_.layer3_graphics.push_back(
                packed_stream(layer3_graphics_offset(rom_, number), layer_output_limit));
        for (std::size_t i = 0; i < reading_.worlds.size(); ++i) {
            const WorldRow& row = world_rows[i];
            reading_.worlds[i] = {
                static_cast<World>(i),
                packed_stream(offset_of_address(rom_.read_pointer24(row.map_pointer)),
                              world_map_output_limit),
                packed_stream(offset_of_address(rom_.read_pointer24(row.graphics_pointer)),
                              world_graphics_output_limit)};
        }
    }

    PackedStream packed_stream(std::int64_t offset, int output_limit) {
        const int size = rom_.read_word(offset);
        const int made = decompress_stream(rom_, offset, buffer_, output_limit);
        const bool in_file = image_.holds(offset, 2) && image_.holds(offset, size);
        return {offset, size, in_file, {buffer_.output(), buffer_.output() + made}};
    }

    DialogueAt read_dialogue(int number) const {
        const std::int64_t offset = dialogue_offset(rom_, reading_.dialogue_patched, number);
        const auto bytes = image_.at(offset, max_dialogue_bytes);
        const auto end = std::ranges::find(bytes, std::uint8_t{0});
        const bool whole = end != bytes.end();
        return {offset, static_cast<int>(end - bytes.begin()) + whole, whole};
    }

    void read_scripts() {
        std::vector<ScriptRoot> roots;
        for (std::size_t i = 0; i < reading_.objects.size(); ++i) {
            const ObjectAt& object = reading_.objects[i];
            if (const auto offset = script_offset(object.kind, object.bytes))
                roots.push_back({*offset, static_cast<std::int64_t>(i)});
        }
        reading_.scripts = walk_scripts(image_, reading_.dialogue_patched, roots);
    }

    const RomImage& rom_;
    const MemoryImage& image_;
    ImageReading& reading_;
    DecompressBuffer buffer_;
    ObjectList rows_;
};

} // namespace

const LayerStream* ImageReading::stream(int number) const {
    if (number < table_size)
        return number < 0 ? nullptr : &streams[static_cast<std::size_t>(number)];
    const auto at = std::find_if(streams.begin() + table_size, streams.end(),
                                 [&](const LayerStream& s) { return s.number == number; });
    return at == streams.end() ? nullptr : &*at;
}

std::span<const ObjectAt> ImageReading::objects_of(int map, ObjectKind kind) const {
    const ObjectListExtent& list =
        lists[static_cast<std::size_t>(map)][static_cast<std::size_t>(kind)];
    return std::span(objects).subspan(list.first_object, static_cast<std::size_t>(list.count));
}

ImageReading read_whole(const MemoryImage& image) {
    ImageReading reading{image};
    const MemoryRom rom(image);
    Reader(rom.rom(), reading).read_all();
    return reading;
}

LayerSize kept_size(LayerSize size) {
    return {std::min(size.width, max_layer_width), std::min(size.height, max_layer_height)};
}

std::string dialogue_letters(const MemoryImage& image, const DialogueAt& dialogue) {
    std::string letters;
    for (const std::uint8_t byte : image.at(dialogue.offset, dialogue.size - dialogue.whole))
        letters += decode_dialogue_byte(byte);
    return letters;
}

} // namespace veldrune::inspect
