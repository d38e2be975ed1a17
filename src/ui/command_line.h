#pragma once

#include <QString>

#include <optional>

namespace veldrune {

/// What the user asks for at the start.
struct CommandLine {
    QString image;          // absolute path; empty where none is named
    std::optional<int> map; // to be chosen and built
};

/// Answers --help and --version on standard output. True if one of them was asked for; it needs no
/// display.
bool answer_command_line(int& argc, char** argv);

/// Reads the arguments that Qt has left. Nothing where they are wrong, which is reported on
/// standard error, or in a message box where there is none.
std::optional<CommandLine> read_command_line(const QStringList& arguments);

} // namespace veldrune
