#include "demo/people/script_book.h"

#include "demo/people/scene_text.h"
#include "events/command_table.h"

#include <charconv>
#include <stdexcept>
#include <utility>

namespace veldrune::demo {
namespace {

constexpr int area_size = rom_layout::dialogue_pointers - rom_layout::event_scripts;

} // namespace

int ScriptBook::script(const std::string& source) {
    const auto [known, fresh] = scripts_.try_emplace(source, next_);
    if (!fresh)
        return known->second;
    bytes_.clear();
    local_labels_.clear();
    fixups_.clear();
    assemble(source);
    resolve_fixups();
    if (next_ + static_cast<int>(bytes_.size()) > area_size)
        throw std::length_error("the scripts of the demo image are full");
    writer_.put(rom_layout::event_scripts + next_, bytes_);
    next_ += static_cast<int>(bytes_.size());
    return known->second;
}

void ScriptBook::assemble(std::string_view source) {
    std::string dialogue;
    while (!source.empty()) {
        std::string_view line = source.substr(0, source.find('\n'));
        source.remove_prefix(std::min(line.size() + 1, source.size()));
        if (is_spoken(line)) {
            dialogue.append(line.substr(2));
            if (is_spoken(source))
                dialogue += '\n';
            else
                put_dialogue(std::exchange(dialogue, {}));
        }
        while (!is_spoken(line) && !line.empty())
            assemble_word(take_word(line));
    }
}

void ScriptBook::assemble_word(std::string_view word) {
    if (word.starts_with("::")) {
        shared_labels_[std::string(word.substr(2))] = next_ + static_cast<int>(bytes_.size());
    } else if (word.starts_with(':')) {
        local_labels_[std::string(word.substr(1))] = next_ + static_cast<int>(bytes_.size());
    } else if (word.starts_with('@')) {
        fixups_.push_back({bytes_.size(), std::string(word.substr(1))});
        bytes_.insert(bytes_.end(), 3, 0);
    } else if (const std::size_t bracket = word.find('['); bracket != word.npos) {
        put_value(word.substr(0, bracket));
        queue_ = bytes_.size();
        bytes_.push_back(0);
        assemble_word(word.substr(bracket + 1));
    } else if (word.ends_with(']')) {
        put_value(word.substr(0, word.size() - 1));
        bytes_.push_back(end_queue_action);
        bytes_[queue_] = static_cast<std::uint8_t>(bytes_.size() - queue_ - 1);
    } else {
        put_value(word);
    }
}

void ScriptBook::put_dialogue(std::string_view text) {
    const int number = dialogues_.number(text);
    bytes_.insert(bytes_.end(),
                  {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8)});
}

void ScriptBook::put_value(std::string_view digits) {
    int value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
    if (error != std::errc{} || stop != end || (digits.size() != 2 && digits.size() != 4))
        throw std::invalid_argument("a demo script has a word that means nothing: " +
                                    std::string(digits));
    for (std::size_t i = 0; i < digits.size(); i += 2, value >>= 8)
        bytes_.push_back(static_cast<std::uint8_t>(value));
}

void ScriptBook::resolve_fixups() {
    for (const Fixup& fixup : fixups_) {
        const auto here = local_labels_.find(fixup.name);
        const int place =
            here != local_labels_.end() ? here->second : shared_labels_.at(fixup.name);
        for (std::size_t i = 0; i < 3; ++i)
            bytes_[fixup.at + i] = static_cast<std::uint8_t>(place >> 8 * i);
    }
}

} // namespace veldrune::demo
