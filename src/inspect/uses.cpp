#include "inspect/uses.h"

#include "inspect/field_names.h"
#include "inspect/script_ways.h"
#include "inspect/tile_uses.h"
#include "rom/number_text.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace veldrune::inspect {
namespace {

// What has a value.
enum class Holder { in_object, in_record, in_command, in_action };

// How a value refers to what is asked for.
enum class Reference {
    exact,
    item,      // the same, of a chest with an item in it
    condition, // perhaps: a flag in the low 15 bits
    map_word,  // exact; above the last map, perhaps one in the low 9 bits
    dialogue,  // the dialogue that a command shows
};
using enum Reference;
using enum Holder;

constexpr int every_word = -1;    // of a command
constexpr int every_pointer = -2; // of all commands and queues

constexpr int npc = static_cast<int>(ObjectKind::npc);
constexpr int chest = static_cast<int>(ObjectKind::chest);
constexpr int trigger = static_cast<int>(ObjectKind::event_trigger);
constexpr int entrance = static_cast<int>(ObjectKind::entrance);
constexpr int long_entrance = static_cast<int>(ObjectKind::long_entrance);
constexpr int field(auto value) {
    return static_cast<int>(value);
}

// A place of the image whose value refers to something.
struct Place {
    Use use;
    Holder holder;
    int kind;  // of an object, or code of a command or an action
    int value; // field of an object or a record, or number of the row under a command
    Reference reference = exact;
    std::int64_t base = 0; // what the value counts from
    int last = kind;       // the codes from kind on

    constexpr bool has_code(std::uint8_t code) const { return code >= kind && code <= last; }
};

constexpr std::int64_t event_flags = 8 * 0x1E80;
constexpr std::int64_t other_flags = 8 * 0x1DC9;

// clang-format off
constexpr Place places[] = {
    // use            holder      kind or code   value                             reference
    {Use::flag,       in_object,  npc,           field(ObjectField::flag)},
    {Use::flag,       in_command, 0xB7,          1,                                exact,     other_flags},
    {Use::flag,       in_command, 0xB8,          1,                                exact,     other_flags},
    {Use::flag,       in_command, 0xB9,          1,                                exact,     other_flags},
    {Use::flag,       in_command, 0xBC,          1,                                condition, event_flags},
    {Use::flag,       in_command, 0xD0,          1,                                exact,     event_flags},
    {Use::flag,       in_command, 0xD1,          1,                                exact,     event_flags},
    {Use::flag,       in_command, 0xD2,          1,                                exact,     event_flags + 0x100},
    {Use::flag,       in_command, 0xD3,          1,                                exact,     event_flags + 0x100},
    {Use::flag,       in_command, 0xD4,          1,                                exact,     event_flags + 0x200},
    {Use::flag,       in_command, 0xD5,          1,                                exact,     event_flags + 0x200},
    {Use::flag,       in_command, 0xD6,          1,                                exact,     event_flags + 0x300},
    {Use::flag,       in_command, 0xD7,          1,                                exact,     event_flags + 0x300},
    {Use::flag,       in_command, 0xD8,          1,                                exact,     event_flags + 0x400},
    {Use::flag,       in_command, 0xD9,          1,                                exact,     event_flags + 0x400},
    {Use::flag,       in_command, 0xDA,          1,                                exact,     event_flags + 0x500},
    {Use::flag,       in_command, 0xDB,          1,                                exact,     event_flags + 0x500},
    {Use::flag,       in_command, 0xDC,          1,                                exact,     event_flags + 0x600},
    {Use::flag,       in_command, 0xDD,          1,                                exact,     event_flags + 0x600},
    {Use::flag,       in_command, 0xC0,          every_word,                       condition, event_flags, 0xCF},
    {Use::flag,       in_action,  0xE1,          1,                                exact,     event_flags},
    {Use::flag,       in_action,  0xE2,          1,                                exact,     event_flags + 0x100},
    {Use::flag,       in_action,  0xE3,          1,                                exact,     event_flags + 0x200},
    {Use::flag,       in_action,  0xE4,          1,                                exact,     event_flags},
    {Use::flag,       in_action,  0xE5,          1,                                exact,     event_flags + 0x100},
    {Use::flag,       in_action,  0xE6,          1,                                exact,     event_flags + 0x200},
    {Use::chest_flag, in_object,  chest,         field(ObjectField::flag)},
    {Use::event,      in_object,  npc,           field(ObjectField::event)},
    {Use::event,      in_object,  trigger,       field(ObjectField::event)},
    {Use::event,      in_command, 0x00,          every_pointer,                    exact,     0, 0xFF},
    {Use::dialogue,   in_command, 0x48,          1,                                dialogue},
    {Use::dialogue,   in_command, 0x4B,          1,                                dialogue},
    {Use::map,        in_object,  entrance,      field(ObjectField::target_map),   map_word},
    {Use::map,        in_object,  long_entrance, field(ObjectField::target_map),   map_word},
    {Use::map,        in_command, 0x6A,          1,                                map_word},
    {Use::map,        in_command, 0x6B,          1,                                map_word},
    {Use::item,       in_object,  chest,         field(ObjectField::contents),     item},
    {Use::item,       in_command, 0x80,          1},
    {Use::item,       in_command, 0x81,          1},
    {Use::song,       in_record,  0,             field(RecordField::song)},
    {Use::song,       in_command, 0xEF,          1},
    {Use::song,       in_command, 0xF0,          1},
    {Use::song,       in_command, 0xF1,          1},
    {Use::sprite,     in_object,  npc,           field(ObjectField::sprite)},
    {Use::sprite,     in_command, 0x37,          2},
};
// clang-format on

enum class Answer { no, perhaps, sure };

Answer refers(const Place& place, std::int64_t value, std::int64_t wanted) {
    constexpr std::int64_t flag_bits = 0x7FFF;
    constexpr std::int64_t map_bits = 0x1FF;
    if (place.reference == condition)
        return (value & flag_bits) + place.base == wanted ? Answer::perhaps : Answer::no;
    if (value + place.base == wanted)
        return Answer::sure;
    const bool beyond = place.reference == map_word && value >= rom_layout::map_count;
    return beyond && (value & map_bits) == wanted ? Answer::perhaps : Answer::no;
}

// The lowest set bit says what is in a chest.
bool has_item(const ObjectAt& object) {
    constexpr int item_bit = 3;
    const auto bits = object_value(object.kind, object.bytes, ObjectField::contents_kind);
    return bits && std::countr_zero(static_cast<unsigned>(*bits)) == item_bit;
}

class Search {
  public:
    Search(const ImageReading& reading, const UseQuery& query) : reading_(reading), query_(query) {}

    Listing listing() {
        using enum CellForm;
        for (const Place& place : places)
            if (place.use == query_.use)
                places_.push_back(&place);
        find_records();
        find_objects();
        for (const WalkedScript& script : reading_.scripts.scripts)
            for (const WalkedCommand& command : reading_.scripts.commands_of(script))
                if (may_refer(command))
                    find_in(script, command);
        Listing listing{{{"what", "What", words},
                         {"map", "Map", decimal},
                         {"number", "Number", decimal},
                         {"script", "Script", hexadecimal},
                         {"at", "At", hexadecimal},
                         {"how", "How", words},
                         certainty_column},
                        std::move(sure_)};
        std::ranges::move(perhaps_, std::back_inserter(listing.rows));
        return listing;
    }

  private:
    void add(Answer answer, std::vector<Cell> row) {
        if (answer == Answer::no)
            return;
        row.push_back(certainty(answer == Answer::sure));
        (answer == Answer::sure ? sure_ : perhaps_).push_back(std::move(row));
    }

    void find_records() {
        for (const Place* place : places_)
            for (int map = 0; map < rom_layout::map_count && place->holder == in_record; ++map) {
                const auto value = static_cast<RecordField>(place->value);
                const MapProperties& its = reading_.records[static_cast<std::size_t>(map)];
                add(refers(*place, record_value(its, value), query_.value),
                    {"map", map, {}, {}, record_offset(map), field_name(value)});
            }
    }

    void find_objects() {
        for (const ObjectAt& object : reading_.objects)
            for (const Place* place : places_) {
                if (place->holder != in_object || place->kind != field(object.kind) ||
                    (place->reference == item && !has_item(object)))
                    continue;
                const auto value = static_cast<ObjectField>(place->value);
                add(refers(*place, *object_value(object.kind, object.bytes, value), query_.value),
                    {kind_name(object.kind),
                     object.map,
                     object.index,
                     {},
                     object.offset,
                     field_name(value)});
            }
    }

    // Whether a command is of a kind that is looked at. It may hold actions that are.
    bool may_refer(const WalkedCommand& command) const {
        const bool is_queue = script_command(command.code).is_queue();
        return std::ranges::any_of(places_, [&](const Place* place) {
            return (place->holder == in_command && place->has_code(command.code)) ||
                   (place->holder == in_action && is_queue);
        });
    }

    // Where a value of a script stands.
    struct Spot {
        const WalkedScript* script;
        const WalkedCommand* command;
        const ScriptCommand* own; // of the table: the command, or the action in its queue
        bool in_queue;
    };

    void find_in(const WalkedScript& script, const WalkedCommand& command) {
        read_items(reading_.image, command, items_);
        Spot spot{&script, &command, &script_command(command.code), false};
        int row = -1; // under the command or the action
        for (const ScriptItem& item : items_.items) {
            ++row;
            if (item.level == ScriptLevel::action) {
                spot.own = &queue_action(static_cast<std::uint8_t>(item.value));
                spot.in_queue = true;
                row = 0;
            }
            for (const Place* place : places_)
                if (is_at(*place, item, spot, row))
                    add_found(spot, *place,
                              place->reference == dialogue ? command.dialogue : item.value);
        }
        for (const std::int64_t target : items_.list)
            for (const Place* place : places_)
                if (place->value == every_pointer)
                    add_found(spot, *place, target);
    }

    static bool is_at(const Place& place, const ScriptItem& item, const Spot& spot, int row) {
        if (place.value == every_pointer)
            return item.kind == ParameterKind::pointer;
        return place.holder == (spot.in_queue ? in_action : in_command) &&
               place.has_code(spot.own->code) &&
               (place.value == every_word ? item.kind == ParameterKind::word : row == place.value);
    }

    void add_found(const Spot& spot, const Place& place, std::int64_t value) {
        const Answer answer = refers(place, value, query_.value);
        add(spot.command->sure ? answer : std::min(answer, Answer::perhaps),
            {spot.in_queue ? "action" : "command",
             {},
             {},
             spot.script->offset,
             spot.command->offset,
             format_hex(spot.own->code) + ' ' + spot.own->label.loaded});
    }

    const ImageReading& reading_;
    const UseQuery query_;
    std::vector<const Place*> places_; // those of the query
    std::vector<std::vector<Cell>> sure_;
    std::vector<std::vector<Cell>> perhaps_;
    CommandItems items_; // of the present command
};

std::string words_of(const Place& place, bool follows_another) {
    if (place.holder == in_object)
        return kind_name(static_cast<ObjectKind>(place.kind)) +
               (' ' + std::string(field_name(static_cast<ObjectField>(place.value))));
    if (place.holder == in_record)
        return std::string("map ") + field_name(static_cast<RecordField>(place.value));
    if (place.value == every_pointer)
        return "every pointer of commands and actions";
    std::string words;
    if (!follows_another)
        words = place.holder == in_action ? "action " : "command ";
    words += format_hex(place.kind);
    if (place.last != place.kind)
        words.append(" to ").append(format_hex(place.last));
    return words + (place.reference == condition ? " (perhaps)" : "");
}

} // namespace

Listing list_uses(const ImageReading& reading, const UseQuery& query) {
    return query.use == Use::tile ? list_tile_uses(reading, static_cast<std::uint8_t>(query.value),
                                                   query.formation_set)
                                  : Search(reading, query).listing();
}

std::string looked_at(Use use) {
    if (use == Use::tile)
        return "layers 1 and 2 of maps with the set, commands 73 and 74 (perhaps)";
    std::string text;
    const Place* last = nullptr;
    for (const Place& place : places) {
        if (place.use != use)
            continue;
        text.append(text.empty() ? "" : ", ");
        text += words_of(place, last != nullptr && last->holder == place.holder);
        last = &place;
    }
    return use == Use::map ? text + "; a word above the last map may be one in 9 bits (perhaps)"
                           : text;
}

} // namespace veldrune::inspect
