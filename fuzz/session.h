#pragma once

#include "choices.h"
#include "editor/editor_state.h"
#include "support/memory_disk.h"

#include <memory>
#include <string>
#include <vector>

namespace veldrune::test {

/// Answers at random, and keeps what was said and asked.
class RandomDialogs : public Dialogs {
  public:
    struct Event {
        enum Kind { number, error, note, question, file_name } kind;
        std::string text;     // of the message, or the name
        bool agreed;          // to the question, or a name was chosen
        std::size_t accesses; // of the disk before it
    };
    std::vector<Event> events;

    RandomDialogs(Choices& choices, const MemoryDisk& disk) : choices_(choices), disk_(disk) {}
    void message(MessageKind kind, const std::string& text, const std::string& title) override;
    bool question(const std::string& text) override;
    std::optional<std::string> open_file_name(const std::string& image) override;
    std::optional<std::string> save_file_name(const std::string& image) override {
        return open_file_name(image);
    }

    /// Whether something of this kind was said with these words in it; a question that was agreed
    /// to.
    bool said(Event::Kind kind, const std::string& words) const;

  private:
    void add(Event::Kind kind, const std::string& text, bool agreed);

    Choices& choices_;
    const MemoryDisk& disk_;
};

/// An editor on a disk with two images, "a.smc" and "b.smc", of any bytes; "a.smc" is open. What
/// the user has agreed to or would lose is followed here, apart from the editor.
struct Session {
    Choices& choices;
    MemoryDisk disk;
    bool nameless_accepted = false; // writing into the open file, which has lost its name
    bool world_painted = false;     // since the world was read or saved, or given up
    RandomDialogs dialogs{choices, disk};
    std::unique_ptr<EditorState> held = std::make_unique<EditorState>(disk, dialogs);
    EditorState& state = *held;

    explicit Session(Choices& source);
};

/// Any text for a field.
std::string any_text(Choices& choices);

} // namespace veldrune::test
