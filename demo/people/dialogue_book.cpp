#include "demo/people/dialogue_book.h"

#include "dialogue/dialogue_text.h"

#include <stdexcept>

namespace veldrune::demo {
namespace {

using namespace rom_layout;

constexpr int bank_size = 0x10000;

// The code of the longest piece that text begins with; 0 without one.
int longest_code(std::string_view text) {
    int best = 0;
    std::size_t length = 0;
    for (int code = 2; code < 256; ++code) {
        const std::string_view piece = decode_dialogue_byte(static_cast<std::uint8_t>(code));
        const bool number_in_brackets = piece.size() == 4 && piece.front() == '(';
        if (piece.size() > length && !number_in_brackets && text.starts_with(piece)) {
            best = code;
            length = piece.size();
        }
    }
    return best;
}

} // namespace

Bytes encode_dialogue(std::string_view text) {
    Bytes bytes;
    while (!text.empty()) {
        const bool line_end = text.front() == '\n';
        const int code = line_end ? 1 : longest_code(text);
        if (code == 0)
            throw std::invalid_argument("a letter of a demo dialogue has no code");
        bytes.push_back(static_cast<std::uint8_t>(code));
        text.remove_prefix(line_end ? 1
                                    : decode_dialogue_byte(static_cast<std::uint8_t>(code)).size());
    }
    bytes.push_back(0);
    return bytes;
}

int DialogueBook::number(std::string_view text) {
    if (const auto known = numbers_.find(text); known != numbers_.end())
        return known->second;
    // The banks are filled alternately.
    Bank& bank = banks_[numbers_.size() % banks_.size()];
    const Bytes bytes = encode_dialogue(text);
    const int number = bank.first + bank.count;
    if (number == bank.end || bank.size + static_cast<int>(bytes.size()) > bank_size)
        throw std::length_error("the dialogues of the demo image are full");
    writer_.put(bank.start + bank.size, bytes);
    writer_.put_word(dialogue_pointers + 2 * number, bank.size);
    ++bank.count;
    bank.size += static_cast<int>(bytes.size());
    numbers_.emplace(text, number);
    return number;
}

void DialogueBook::repeat_entries() {
    for (const Bank& bank : banks_)
        for (int number = bank.first + bank.count; number < bank.end; ++number)
            writer_.copy_word(dialogue_pointers + 2 * (number - bank.count),
                              dialogue_pointers + 2 * number);
}

} // namespace veldrune::demo
