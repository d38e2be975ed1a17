#pragma once

#include "events/command_table.h"
#include "events/script_grid.h"
#include "forms/dialogs.h"

namespace veldrune {

/// A cell that can't be taken as it is, and the message for the user.
struct CellRefusal {
    int row;
    ScriptColumn column;
    std::string text;
    std::string title;
};

/// The number in a cell. What is not hexadecimal gives a warning and counts as the parser says;
/// beyond 32 bits it stays at 0x100000000.
std::uint64_t number_in(const std::string& cell, Dialogs& dialogs);

/// Inserts a new command at a row, its values blank.
void add_command_rows(ScriptGrid& grid, int row, const ScriptCommand& command);

/// Brings the cells of the command that begins at a row to their full width, and lists and map data
/// into lines. A list or map data of a wrong length is refused and left as it is.
std::optional<CellRefusal> normalise_command(ScriptGrid& grid, int row, Dialogs& dialogs);

/// The queue action in a row; null where its secondary cell holds no code.
const ScriptCommand* action_in(const ScriptRow& row);
/// Bytes of the actions in the queue that begins at a row.
int queue_bytes(const ScriptGrid& grid, int row);

} // namespace veldrune
