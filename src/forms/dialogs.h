#pragma once

#include <optional>
#include <string>

namespace veldrune {

/// The filter of both file dialogs: pairs of a description and a pattern.
inline constexpr const char* image_file_filter =
    "Super Nintendo Roms(*.smc)|*.smc|All Files(*.*)|*.*";

/// The title of a box that has none of its own.
inline constexpr const char* default_title = "Veldrune Map Editor";

/// The title of the box of an error, where it has none of its own.
inline constexpr const char* error_title = "Error";

enum class MessageKind {
    error,   // something could not be done
    warning, // something is done, though not as the user may have meant it
    note,    // nothing is wrong
};

/// The port through which the logic talks to the user. The windows implement it with real boxes,
/// the tests with scripted answers. Every call returns when the user has answered.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// A message with an OK button.
    virtual void message(MessageKind kind, const std::string& text, const std::string& title) = 0;
    /// The same for an error, under the title of errors.
    void error(const std::string& text) { message(MessageKind::error, text, error_title); }
    /// A question with OK and Cancel, under the default title. True for OK.
    virtual bool question(const std::string& text) = 0;
    /// The name of a file to open, or nothing where the user cancelled.
    virtual std::optional<std::string> open_file_name() = 0;
    /// The name of a file to write, or nothing where the user cancelled.
    virtual std::optional<std::string> save_file_name() = 0;
};

} // namespace veldrune
