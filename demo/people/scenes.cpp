#include "demo/people/scenes.h"

#include "demo/assets/scripts/scenes.h"
#include "demo/places/sites.h"
#include "events/command_table.h"

#include <cstdio>
#include <utility>

namespace veldrune::demo {
namespace {

// clang-format off
constexpr const char* name_heads[] = {"Alder", "Brack", "Corn", "Dun", "Elm", "Fal", "Gor", "Hazel", "Ivy", "Kel", "Lin", "Mar"};
constexpr const char* name_tails[] = {"moor", "ford", "wick", "stead", "holm", "by", "mere"};
// clang-format on

std::string town_name(int region) {
    const int heads = static_cast<int>(std::size(name_heads));
    const int tails = static_cast<int>(std::size(name_tails));
    return std::string(name_heads[region % heads]) + name_tails[region % tails];
}

std::string hex(int value) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(value) & 0xFF);
    return digits;
}

void replace_all(std::string& text, std::string_view what, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
}

std::string bytes_from(int code, int count) {
    std::string words;
    for (int i = 0; i < count; ++i)
        words += ' ' + hex(scatter(code, i, 51, 0x20));
    return words;
}

// Source of a command with arguments of the right kinds.
std::string sample(int code) {
    const ScriptCommand& command = script_command(static_cast<std::uint8_t>(code));
    if (command.is_queue())
        return hex(code) + "[CE E0 08 " + hex(0x80 + code % 0x2C) + "] ";
    std::string words = hex(code);
    bool counted = false;
    for (const Parameter& row : command.parameters())
        switch (row.kind) {
        case ParameterKind::word:
            words += bytes_from(code, 2);
            break;
        case ParameterKind::pointer:
            words += " @light";
            break;
        case ParameterKind::dialogue:
            words += code == 0x48 ? " 00 40" : " 00 80"; // the first text, with one of its flags
            break;
        case ParameterKind::low_nibble: // shares the byte of the high one
            break;
        case ParameterKind::map_data:
            words.resize(words.size() - 6); // replaces the two sizes already there
            words += " 03 02" + bytes_from(code, 6);
            break;
        case ParameterKind::list_count:
            words += " 03";
            counted = true;
            break;
        case ParameterKind::offset_list:
            if (!counted)
                words.insert(0, "4B\n| Which one?\n| > This one.\n| > That one.\n| > Both.\n");
            words += " @light @quake @wrong";
            break;
        default:
            words += bytes_from(code, 1);
        }
    return words + ' ';
}

// Adds scripts with one of every command and of every queue action, a few in each script.
void add_samples(ScriptBook& scripts) {
    constexpr int commands_of_one = 6, actions_of_one = 10;
    std::string source;
    for (int code = 0; code < 256; ++code) {
        if (code != return_command)
            source += sample(code);
        if (code % commands_of_one == commands_of_one - 1 || code == 255)
            scripts.script(std::exchange(source, {}) + "FE");
    }
    for (int code = 0; code < end_queue_action; ++code) {
        const bool branch = action_size(static_cast<std::uint8_t>(code)) == 4;
        source += source.empty() ? "10[" : " ";
        source += hex(code);
        source +=
            branch ? " @quake" : bytes_from(code, action_size(static_cast<std::uint8_t>(code)) - 1);
        if (code % actions_of_one == actions_of_one - 1 || code == end_queue_action - 1)
            scripts.script(std::exchange(source, {}) + " CE] FE");
    }
}

} // namespace

Scenes::Scenes(ScriptBook& scripts) : scripts_(scripts) {
    std::vector<std::string> common;
    std::vector<std::string>* scenes = nullptr; // of the role being read
    for (const std::string_view line : assets::scenes) {
        const auto role =
            std::ranges::find(role_names, line.substr(std::min<std::size_t>(2, line.size())));
        if (is_heading(line)) {
            scenes = role == std::end(role_names)
                         ? &common
                         : &sources_[static_cast<std::size_t>(role - role_names)];
            scenes->emplace_back();
        } else if (!is_note(line)) {
            scenes->back().append(line) += '\n';
        }
    }
    for (const std::string& source : common)
        scripts_.script(source);
    add_samples(scripts_);
}

int Scenes::script_of(Role role, int map, int nth) {
    const std::vector<std::string>& choices = sources_[static_cast<std::size_t>(role)];
    std::string source = choices[static_cast<std::size_t>(map / kind_count + nth) % choices.size()];
    const int region = region_of(map), last = region_of(rom_layout::map_count - 1);
    replace_all(source, "%f", hex(map));
    replace_all(source, "%i", hex(scatter(map, nth, 50, 232)));
    replace_all(source, "%n", std::to_string(1 + nth % 8));
    replace_all(source, "{town}", town_name(region));
    replace_all(source, "{next}", town_name(region == last ? 0 : region + 1));
    return scripts_.script(source);
}

} // namespace veldrune::demo
