#pragma once

#include "forms/dialogs.h"

#include <deque>
#include <ostream>
#include <vector>

namespace veldrune::test {

/// Answers from a script and keeps what was said. A question beyond the script is answered OK, a
/// file name beyond it is a cancel.
class ScriptedDialogs : public Dialogs {
  public:
    struct Message {
        std::string text;
        std::string title;
        bool operator==(const Message&) const = default;
        friend void PrintTo(const Message& message, std::ostream* out) {
            *out << message.title << ": " << message.text;
        }
    };
    std::vector<Message> messages;
    std::vector<std::string> questions;
    std::deque<bool> answers;
    std::deque<std::string> file_names; // for both file dialogs

    void message(const std::string& text, const std::string& title) override {
        messages.push_back({text, title});
    }
    bool question(const std::string& text) override {
        questions.push_back(text);
        return take(answers).value_or(true);
    }
    std::optional<std::string> open_file_name() override { return take(file_names); }
    std::optional<std::string> save_file_name() override { return take(file_names); }
    bool silent() const { return messages.empty() && questions.empty(); }

  private:
    template <typename T>
    static std::optional<T> take(std::deque<T>& script) {
        if (script.empty())
            return std::nullopt;
        const T first = script.front();
        script.pop_front();
        return first;
    }
};

using Messages = std::vector<ScriptedDialogs::Message>;

} // namespace veldrune::test
