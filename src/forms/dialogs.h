#pragma once

#include <optional>
#include <string>

namespace veldrune {

/// The title of a message box without a title of its own.
inline constexpr const char* default_title = "Veldrune Map Editor";

/// The title of an error message without a title of its own.
inline constexpr const char* error_title = "Error";
/// The title of a warning without a title of its own.
inline constexpr const char* warning_title = "Warning";

enum class MessageKind {
    error,   // something failed
    warning, // done, but perhaps not as the user intended
    number,  // a warning about a text that is not a number; one operation can give many
    note,    // information
};

/// The interface through which the logic shows messages and asks questions: message boxes in
/// src/ui, prepared answers in the tests. Every call returns when the user has answered.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// A message with an OK button.
    virtual void message(MessageKind kind, const std::string& text, const std::string& title) = 0;
    /// Shows an error under the title for errors.
    void error(const std::string& text) { message(MessageKind::error, text, error_title); }
    /// A question with OK and Cancel, under the default title. True for OK.
    virtual bool question(const std::string& text) = 0;
    /// The name of a file to open, or nothing where the user cancelled. The dialog starts in the
    /// folder of image, the path of the open one, if any.
    virtual std::optional<std::string> open_file_name(const std::string& image) = 0;
    /// The name of a file to write, or nothing where the user cancelled. The dialog starts with a
    /// free name beside image.
    virtual std::optional<std::string> save_file_name(const std::string& image) = 0;
};

/// Says nothing and agrees to everything: for looking ahead at what an operation would do.
class SilentDialogs : public Dialogs {
  public:
    void message(MessageKind, const std::string&, const std::string&) override {}
    bool question(const std::string&) override { return true; }
    std::optional<std::string> open_file_name(const std::string&) override { return std::nullopt; }
    std::optional<std::string> save_file_name(const std::string&) override { return std::nullopt; }
};

} // namespace veldrune
