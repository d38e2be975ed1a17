#include "inspect/ownership.h"

#include "inspect/all_streams.h"
#include "rom/number_text.h"

#include <algorithm>
#include <tuple>

namespace veldrune::inspect {
namespace {

using namespace rom_layout;

constexpr std::int64_t map_words = 2 * (map_count + 1); // a word a map, and one after them

// A structure that is as long as its entries, or that reaches up to the next one.
constexpr KnownStructure sized(const char* name, std::int64_t offset, std::int64_t size) {
    return {name, offset, size};
}
constexpr KnownStructure up_to(const char* name, std::int64_t offset, std::int64_t end) {
    return {name, offset, end - offset};
}

// clang-format off
constexpr KnownStructure structures[] = {
    sized("dialogue routine",           dialogue_routine,        29),
    up_to("animated tileset offsets",   animated_set_offsets,    animated_sets),
    sized("animated tilesets",          animated_sets,           22 * 16 * 10), // as many as have an offset
    up_to("sprite addresses",           sprite_addresses,        sprite_banks),
    sized("sprite banks",               sprite_banks,            sprite_banks - sprite_addresses),
    sized("layer priorities",           layer_priorities,        256),
    sized("trigger pointers",           event_triggers,          map_words),
    sized("NPC pointers",               npcs,                    map_words),
    sized("dialogue pointers",          dialogue_pointers,       2 * dialogue_count),
    sized("monster sets",               monster_sets,            map_count),
    sized("item names",                 item_names,              item_count * item_name_size),
    up_to("world palettes",             dawn_palette,            dusk_palette + 512), // the two share a half
    sized("layer data pointers",        layer_data_pointers,     3 * layer_data_pointer_count),
    sized("formation pointers",         formation_pointers,      3 * formation_set_count),
    sized("entrance pointers",          entrances,               map_words),
    sized("tileset pointers",           tileset_pointers,        3 * tileset_count),
    up_to("tileset graphics",           tileset_graphics,        animated_graphics),
    up_to("animated graphics",          animated_graphics,       sprite_palettes),
    sized("sprite palettes",            sprite_palettes,         512),
    sized("layer 3 graphics pointers",  layer3_graphics_pointers, 3 * layer3_graphics_count),
    sized("chest pointers",             chest_pointers,          map_words),
    sized("map records",                map_properties,          33 * map_count),
    up_to("map palettes",               map_palettes,            long_entrances),
    sized("long entrance pointers",     long_entrances,          map_words),
    sized("pointer to Dawn's map",      dawn_map_pointer,        3),
    sized("pointer to Dawn's graphics", dawn_graphics_pointer,   3),
    sized("pointer to Dusk's graphics", dusk_graphics_pointer,   3),
    sized("pointer to Dusk's map",      dusk_map_pointer,        3),
    sized("patch marks",                patch_marks,             2),
};
// clang-format on

constexpr bool are_apart() {
    for (std::size_t i = 1; i < std::size(structures); ++i)
        if (structures[i].offset < structures[i - 1].end())
            return false;
    return true;
}
static_assert(are_apart());

// How each kind of owner is called; "#" stands for its number, "@" for one in hexadecimal.
constexpr std::string_view names[] = {
    "",
    "dialogue table",
    "data #",
    "formation set #",
    "layer 3 graphics #",
    "map of world #",
    "graphics of world #",
    "NPCs of map #",
    "chests of map #",
    "triggers of map #",
    "entrances of map #",
    "long entrances of map #",
    "script @",
    "dialogue @",
};

class Collector {
  public:
    explicit Collector(const ImageReading& reading) : reading_(reading) {}

    std::vector<OwnedRange> collect() {
        for (std::size_t i = 0; i < std::size(structures); ++i)
            add(structures[i].offset, structures[i].end(), OwnerKind::structure, i);
        if (reading_.dialogue_patched)
            add(new_dialogue_pointers, new_dialogue_pointers + 3 * dialogue_count,
                OwnerKind::dialogue_table, 0);
        add_streams();
        for (int map = 0; map < map_count; ++map)
            for (const ObjectKind kind : map_object_kinds)
                add_objects(map, kind);
        for (const WalkedScript& script : reading_.scripts.scripts)
            add_script(script);
        for (std::size_t i = 0; i < reading_.dialogues.size(); ++i) {
            const DialogueAt& dialogue = reading_.dialogues[i];
            add(dialogue.offset, dialogue.offset + dialogue.size, OwnerKind::dialogue, i);
        }
        return std::move(ranges_);
    }

  private:
    void add(std::int64_t begin, std::int64_t end, OwnerKind kind, auto number, bool sure = true) {
        begin = std::max<std::int64_t>(begin, 0);
        end = std::min(end, reading_.image.size());
        if (begin < end)
            ranges_.push_back({begin, end, kind, static_cast<std::int64_t>(number), sure});
    }

    void add_streams() {
        for (const AnyStream& stream : all_streams(reading_))
            add(stream.packed->offset, stream.packed->end(), stream.kind, stream.number);
    }

    void add_objects(int map, ObjectKind kind) {
        const auto objects = reading_.objects_of(map, kind);
        if (!objects.empty())
            add(objects.front().offset, objects.back().offset + object_kind_row(kind).record_size,
                list_owner(kind), map);
    }

    // A range for the sure commands and one for those after them.
    void add_script(const WalkedScript& script) {
        const auto commands = reading_.scripts.commands_of(script);
        if (commands.empty())
            return;
        const auto doubt = std::ranges::find(commands, false, &WalkedCommand::sure);
        const std::int64_t end = commands.back().end();
        const std::int64_t part = doubt == commands.end() ? end : doubt->offset;
        add(script.offset, part, OwnerKind::script, script.offset);
        add(part, end, OwnerKind::script, script.offset, false);
    }

    const ImageReading& reading_;
    std::vector<OwnedRange> ranges_;
};

} // namespace

std::span<const KnownStructure> known_structures() {
    return structures;
}

std::string owner_name(const OwnedRange& range) {
    if (range.kind == OwnerKind::structure)
        return structures[range.number].name;
    std::string name(names[static_cast<std::size_t>(range.kind)]);
    const char last = name.back();
    if (last == '#' || last == '@') {
        name.pop_back();
        name += last == '@' ? format_hex(range.number) : std::to_string(range.number);
    }
    return name;
}

Ownership::Ownership(const ImageReading& reading) : ranges_(Collector(reading).collect()) {
    std::ranges::sort(ranges_, {}, [](const OwnedRange& r) {
        return std::tuple(r.begin, r.kind, r.number, r.end);
    });
    std::int64_t reach = 0;
    for (const OwnedRange& range : ranges_)
        reach_.push_back(reach = std::max(reach, range.end));
}

std::vector<OwnedRange> Ownership::owners_in(std::int64_t begin, std::int64_t end) const {
    std::vector<OwnedRange> owners;
    const auto first = std::ranges::upper_bound(reach_, begin) - reach_.begin();
    for (auto range = ranges_.begin() + first; range != ranges_.end() && range->begin < end;
         ++range)
        if (range->end > begin)
            owners.push_back(*range);
    return owners;
}

std::vector<ByteRange> Ownership::gaps_in(std::int64_t begin, std::int64_t end) const {
    std::vector<ByteRange> gaps;
    for (const OwnedRange& owner : owners_in(begin, end)) {
        if (owner.begin > begin)
            gaps.push_back({begin, owner.begin});
        begin = std::max(begin, owner.end);
    }
    if (begin < end)
        gaps.push_back({begin, end});
    return gaps;
}

} // namespace veldrune::inspect
