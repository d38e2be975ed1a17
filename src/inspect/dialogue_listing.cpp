#include "inspect/dialogue_listing.h"

#include "dialogue/dialogue_text.h"
#include "inspect/field_names.h"
#include "inspect/script_ways.h"

#include <algorithm>

namespace veldrune::inspect {
namespace {

constexpr std::size_t named_objects = 10;

// A dialogue of the listing, and who shows it.
struct Shown {
    int number;
    std::string letters;
    bool sure = false; // by a command that is surely one
    std::vector<std::int64_t> scripts{};
    MapSet maps{};
    std::vector<const ObjectAt*> objects{}; // those that are named
    std::size_t object_count = 0;
};

// ASCII letters alone have a case in dialogues.
char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool holds(const std::string& text, const std::string& what) {
    const auto same = [](char a, char b) { return lower(a) == lower(b); };
    return what.empty() ||
           std::search(text.begin(), text.end(), what.begin(), what.end(), same) != text.end();
}

std::vector<Shown> chosen_dialogues(const ImageReading& reading, const DialogueQuery& query) {
    std::vector<Shown> chosen;
    for (int number = 0; number < std::ssize(reading.dialogues); ++number) {
        if (query.number.value_or(number) != number)
            continue;
        std::string letters =
            dialogue_letters(reading.image, reading.dialogues[static_cast<std::size_t>(number)]);
        if (holds(letters, query.find))
            chosen.push_back({number, std::move(letters)});
    }
    return chosen;
}

// The commands that show each of the dialogues.
std::vector<ScriptWays::Commands> find_commands(const ImageReading& reading,
                                                std::vector<Shown>& chosen) {
    std::vector<ScriptWays::Commands> groups(chosen.size());
    for (const WalkedScript& script : reading.scripts.scripts)
        for (const WalkedCommand& command : reading.scripts.commands_of(script)) {
            const auto shown =
                std::ranges::lower_bound(chosen, int{command.dialogue}, {}, &Shown::number);
            if (shown == chosen.end() || shown->number != command.dialogue)
                continue;
            if (shown->scripts.empty() || shown->scripts.back() != script.offset)
                shown->scripts.push_back(script.offset);
            shown->sure |= command.sure;
            groups[static_cast<std::size_t>(shown - chosen.begin())].push_back(command.offset);
        }
    return groups;
}

// Of many objects the first are kept, in the order of the reading: by map, kind and index.
void find_objects(const ImageReading& reading, std::vector<Shown>& chosen, std::size_t most) {
    const std::vector<ScriptWays::Commands> groups = find_commands(reading, chosen);
    ScriptWays(reading).visit_objects(groups, [&](std::size_t group, const ObjectAt& object) {
        Shown& shown = chosen[group];
        shown.maps.set(static_cast<std::size_t>(object.map));
        ++shown.object_count;
        shown.objects.insert(std::ranges::lower_bound(shown.objects, &object), &object);
        if (shown.objects.size() > most)
            shown.objects.pop_back();
    });
}

std::string names_of(const Shown& shown, const char* between) {
    std::string names;
    for (const ObjectAt* object : shown.objects)
        names.append(names.empty() ? "" : between).append(object_place(*object));
    const std::size_t more = shown.object_count - shown.objects.size();
    return more == 0 ? names : names + between + "and " + std::to_string(more) + " more";
}

} // namespace

Listing list_dialogues(const ImageReading& reading, const DialogueQuery& query) {
    using enum CellForm;
    std::vector<Shown> chosen = chosen_dialogues(reading, query);
    find_objects(reading, chosen, query.all_objects ? reading.objects.size() : named_objects);
    Listing listing{{{"dialogue", "Dialogue", hexadecimal},
                     {"at", "At", hexadecimal},
                     {"text", "Text", words},
                     {"scripts", "Scripts", hexadecimal},
                     {"maps", "Maps", decimal},
                     {"objects", "Objects", words},
                     certainty_column},
                    {}};
    for (Shown& shown : chosen) {
        const DialogueAt& place = reading.dialogues[static_cast<std::size_t>(shown.number)];
        const Cell how_sure = shown.scripts.empty() ? Cell() : Cell(certainty(shown.sure));
        listing.rows.push_back({shown.number, place.offset < 0 ? Cell() : Cell(place.offset),
                                query.wrapped ? wrap_dialogue(shown.letters).text : shown.letters,
                                std::move(shown.scripts), map_numbers(shown.maps),
                                names_of(shown, query.wrapped ? "\r\n" : ", "), how_sure});
    }
    return listing;
}

} // namespace veldrune::inspect
