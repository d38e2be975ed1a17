#include "editor/code_offers.h"

#include "rom/number_text.h"

namespace veldrune {
namespace {

using Table = const ScriptCommand& (*)(std::uint8_t code);

// Null where no code is awaited.
Table awaited_table(Awaited awaited) {
    switch (awaited) {
    case Awaited::new_code:
    case Awaited::code:
        return script_command;
    case Awaited::next_action:
    case Awaited::action:
        return queue_action;
    default:
        return nullptr;
    }
}

// In lower case, without blanks at its ends.
std::string plain_words(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::string words(text.substr(0, text.find_last_not_of(' ') + 1));
    for (char& c : words)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return words;
}

bool is_found(const std::string& offer, std::uint8_t code, const std::string& words) {
    const std::string text = plain_words(offer);
    if (const auto value = plain_hex(words); value && words.size() <= 2)
        return code == *value || text.starts_with(words);
    return text.find(words, 4) != std::string::npos;
}

} // namespace

std::vector<std::string> offered_codes(const EditorState& state) {
    const Table table = awaited_table(state.script.entry.awaited);
    const std::string words = plain_words(state.form9.Text2);
    std::vector<std::string> offers;
    for (int code = 0; table && !words.empty() && code <= 0xFF; ++code) {
        const ScriptCommand& command = table(static_cast<std::uint8_t>(code));
        if (!command.can_be_added || *command.label.added == '\0')
            continue;
        std::string offer = padded(format_hex(code), 2) + "  ";
        if (is_found(offer += command.label.added, command.code, words))
            offers.push_back(offer);
    }
    return offers;
}

} // namespace veldrune
