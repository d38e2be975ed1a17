#include "rom/number_field.h"

#include <string_view>

namespace veldrune {
namespace {

// Notes whether there was a message.
class Listener : public SilentDialogs {
  public:
    bool heard = false;
    void message(MessageKind, const std::string&, const std::string&) override { heard = true; }
};

// Returns good; shows an error if it is false.
bool require(bool good, Dialogs& dialogs, const char* message, const char* title = error_title) {
    if (!good)
        dialogs.message(MessageKind::error, message, title);
    return good;
}

TextNumber short_location(std::string text, Dialogs& dialogs) {
    constexpr std::size_t too_long = 6;
    std::erase(text, ' ');
    const std::size_t count = character_count(text);
    const bool good =
        require(count < too_long, dialogs, "The event address you've entered is too large");
    if (good)
        text.insert(0, too_long - count, '0'); // also an empty text is a number
    return {parse_hex_text(text, dialogs), good};
}

// The number in a part of a text; 0, without a message, where the part is empty.
int piece_value(std::string_view piece, Dialogs& dialogs) {
    std::string digits(piece);
    return digits.empty() ? 0 : parse_hex_text(digits, dialogs);
}

TextNumber npc_flag(const std::string& text, Dialogs& dialogs) {
    bool good = require(character_count(text) == 6 && characters(text, 4, 1) == ":", dialogs,
                        "Your input must be in the following format xxxx:y", "error");
    const int byte = piece_value(characters(text, 0, 4), dialogs);
    const int bit = piece_value(characters(text, 5, 1), dialogs);
    good &= require(bit <= 7, dialogs, "Your flag bit must 0 - 7");
    return {8 * byte + bit, good};
}

TextNumber chest_flag(std::string text, Dialogs& dialogs) {
    constexpr const char* message =
        "Your byte:bit is in an incorrect format. The format must be x:y and your\n"
        "byte must be no greater than 1F and your bit must be no greater than 7";
    std::erase(text, ' ');
    bool good = require(character_count(text) <= 4, dialogs, message);
    if (character_count(text) == 3)
        text.insert(0, 1, '0');
    good &= require(characters(text, 2, 1) == ":", dialogs, message);
    const int byte = piece_value(characters(text, 0, 2), dialogs);
    const int bit = piece_value(characters(text, 3, 1), dialogs);
    good &= require(byte <= 0x1F && bit <= 7, dialogs, message);
    return {8 * byte + bit, good};
}

} // namespace

TextNumber parse_number_text(NumberForm form, std::string& text, Dialogs& dialogs) {
    switch (form) {
    case NumberForm::hexadecimal:
    case NumberForm::location:
        return {parse_hex_text(text, dialogs), true};
    case NumberForm::short_location:
        return short_location(text, dialogs);
    case NumberForm::npc_flag:
        return npc_flag(text, dialogs);
    case NumberForm::chest_flag:
        return chest_flag(text, dialogs);
    default:
        return parse_decimal_text(text, dialogs);
    }
}

ReadText read_text(NumberForm form, std::string text) {
    Listener listener;
    const TextNumber number = parse_number_text(form, text, listener);
    return {number, !listener.heard};
}

std::string format_number(NumberForm form, std::int64_t value) {
    switch (form) {
    case NumberForm::hexadecimal:
    case NumberForm::location:
    case NumberForm::short_location:
        return format_hex(value);
    case NumberForm::npc_flag:
    case NumberForm::chest_flag:
        return format_hex(value / 8) + ":" + format_hex(value % 8);
    case NumberForm::high_number:
        return value == 0 ? "N/A" : std::to_string(value - 1);
    default:
        return std::to_string(value);
    }
}

} // namespace veldrune
