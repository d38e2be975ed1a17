#include "inspect/check.h"

#include "inspect/check_ground.h"
#include "inspect/field_names.h"
#include "rom/number_text.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace veldrune::inspect {
namespace {

constexpr std::span<const Check> (*subjects[])() = {stream_checks, object_checks, script_checks,
                                                    value_checks};

void lead_to(CheckGround& ground, std::int64_t map) {
    if (map < rom_layout::map_count)
        ground.led_to[static_cast<std::size_t>(map)] = true;
}

void follow_entrances(CheckGround& ground) {
    for (const ObjectAt& object : ground.reading.objects) {
        const auto target = object_value(object.kind, object.bytes, ObjectField::target_map);
        if (target && *target != object.map)
            lead_to(ground, *target);
    }
}

void follow_commands(CheckGround& ground) {
    CommandItems items;
    for (const WalkedCommand& command : ground.reading.scripts.commands)
        if (command.sure && loads_map(command.code)) {
            read_items(ground.reading.image, command, items);
            lead_to(ground, items.items[1].value);
        }
}

// The scripts again, from the objects that count.
void mark_commands(CheckGround& ground) {
    const ImageReading& reading = ground.reading;
    for (const WalkedScript& script : reading.scripts.scripts)
        for (const WalkedCommand& command : reading.scripts.commands_of(script))
            ground.commands[command.offset] = {script.offset, false};
    std::vector<ScriptRoot> roots;
    for (const ScriptPointer& pointer : reading.scripts.pointers)
        if (pointer.from == ScriptPointer::object &&
            ground.objects_count(reading.objects[static_cast<std::size_t>(pointer.holder)].map))
            roots.push_back({pointer.target, pointer.holder});
    const ScriptWalk walk = walk_scripts(reading.image, reading.dialogue_patched, roots);
    for (const WalkedCommand& command : walk.commands)
        ground.commands[command.offset].counts = command.sure;
}

const char* grade_name(Grade grade) {
    return grade == Grade::fault ? "fault" : "unusual";
}

auto identity(const Finding& finding) {
    return std::tuple(std::string_view(finding.check), finding.grade,
                      std::string_view(finding.place), std::string_view(finding.why));
}

} // namespace

CheckGround::CheckGround(const ImageReading& the_reading)
    : reading(the_reading), ownership(the_reading) {
    follow_entrances(*this);
    follow_commands(*this);
    mark_commands(*this);
}

std::string CheckGround::command_place(std::int64_t offset) const {
    return "script " + format_hex(commands.at(offset).script) + " at " + format_hex(offset);
}

std::vector<Finding> check_image(const ImageReading& reading) {
    const CheckGround ground(reading);
    std::vector<Finding> findings;
    for (const auto subject : subjects)
        for (const Check& check : subject()) {
            FoundList all;
            check.find(ground, all);
            for (Found& found : all)
                findings.push_back({check.name, found.counts ? check.grade : Grade::unusual,
                                    std::move(found.place), std::move(found.why), check.effect});
        }
    return findings;
}

Listing list_checks() {
    using enum CellForm;
    Listing listing{
        {{"check", "Check", words}, {"grade", "Grade", words}, {"effect", "In the editor", words}},
        {}};
    for (const auto subject : subjects)
        for (const Check& check : subject())
            listing.rows.push_back({check.name, grade_name(check.grade), check.effect});
    return listing;
}

void remove_known(std::vector<Finding>& findings, const std::vector<Finding>& old) {
    std::set<decltype(identity(old[0]))> known;
    for (const Finding& finding : old)
        known.insert(identity(finding));
    std::erase_if(findings,
                  [&](const Finding& finding) { return known.contains(identity(finding)); });
}

void remove_unusual(std::vector<Finding>& findings) {
    std::erase_if(findings, [](const Finding& f) { return f.grade == Grade::unusual; });
}

Listing list_findings(const std::vector<Finding>& findings, std::size_t most) {
    using enum CellForm;
    Listing listing{{{"grade", "Grade", words},
                     {"check", "Check", words},
                     {"count", "Count", decimal},
                     {"place", "Place", words},
                     {"why", "Why", words},
                     {"effect", "In the editor", words}},
                    {}};
    std::map<std::pair<std::string_view, Grade>, std::vector<const Finding*>> kinds;
    for (const Finding& finding : findings)
        kinds[{finding.check, finding.grade}].push_back(&finding);
    for (const Grade grade : {Grade::fault, Grade::unusual})
        for (const Finding& finding : findings) {
            std::vector<const Finding*>& kind = kinds[{finding.check, finding.grade}];
            if (finding.grade != grade || kind.front() != &finding)
                continue; // the first of a kind stands for all of them
            const char* name = grade_name(grade);
            for (std::size_t i = 0; i < std::min(kind.size(), most); ++i)
                listing.rows.push_back(
                    {name, kind[i]->check, 1, kind[i]->place, kind[i]->why, kind[i]->effect});
            if (kind.size() > most)
                listing.rows.push_back({name, finding.check, kind.size() - most,
                                        std::to_string(kind.size() - most) + " more places",
                                        "--all shows them", finding.effect});
        }
    return listing;
}

} // namespace veldrune::inspect
