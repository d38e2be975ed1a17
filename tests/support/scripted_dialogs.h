#pragma once

#include "forms/dialogs.h"

#include <deque>
#include <ostream>
#include <vector>

namespace veldrune::test {

struct Message {
    std::string text;
    std::string title;
    bool operator==(const Message&) const = default;
    friend void PrintTo(const Message& message, std::ostream* out) {
        *out << message.title << ": " << message.text;
    }
};
using Messages = std::vector<Message>;

/// What is said of a text that is no number of that kind, "hex" or "decimal", of a blank one, and
/// of offsets and map data that can't be taken apart.
inline Message no_number(const std::string& text, const std::string& kind) {
    return {"The number " + text + " you've entered is not valid " + kind, "Warning"};
}
inline const Message blank_hex{"invalid hex", "I Pity The Fool"};
inline const Message bad_offsets{
    "Each offset must be 6 digit hex, (i.e. 0A0200 or some such thing)\n"
    "You can use spaces as seporators, but nothing else or so help me God...",
    "Oh no jou dihdn't"};
inline const Message bad_map_data{"You've entered the map data in an incorrect format.\n"
                                  "Each byte must be two didgit hex (i.e. 01 or 1F)\n"
                                  "and you must enter exactly (Width*Height) bytes of data.",
                                  "Nope"};

/// Takes the next answer of a script, if there is one.
template <typename T>
std::optional<T> take(std::deque<T>& script) {
    if (script.empty())
        return std::nullopt;
    const T first = script.front();
    script.pop_front();
    return first;
}

/// Answers from a script and keeps what was said. A question beyond the script is answered OK, a
/// file name beyond it is a cancel.
class ScriptedDialogs : public Dialogs {
  public:
    Messages messages;
    std::vector<std::string> questions;
    std::deque<bool> answers;
    std::deque<std::string> file_names; // for both file dialogs

    void message(MessageKind, const std::string& text, const std::string& title) override {
        messages.push_back({text, title});
    }
    bool question(const std::string& text) override {
        questions.push_back(text);
        return take(answers).value_or(true);
    }
    std::optional<std::string> open_file_name(const std::string&) override {
        return take(file_names);
    }
    std::optional<std::string> save_file_name(const std::string&) override {
        return take(file_names);
    }
    bool silent() const { return messages.empty() && questions.empty(); }
    /// The first two words of each question, as "Layer 1; The painting; ".
    std::string asked() const {
        std::string words;
        for (const std::string& question : questions)
            words += question.substr(0, question.find(' ', question.find(' ') + 1)) + "; ";
        return words;
    }
};

} // namespace veldrune::test
