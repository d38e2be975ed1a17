#pragma once

#include "events/command_table.h"
#include "events/script_grid.h"
#include "forms/dialogs.h"

namespace veldrune {

/// A cell that can't be taken as it stands, and what to tell the user.
struct CellRefusal {
    int row;
    ScriptColumn column;
    std::string text;
    std::string title;
};

/// Inserts a new command at a row, its values blank.
void add_command_rows(ScriptGrid& grid, int row, const ScriptCommand& command);

/// Removes the command that begins at a row.
void remove_command_rows(ScriptGrid& grid, int row);

/// Brings the cells of the command that begins at a row to their full width, and lists and map data
/// into lines. A list or map data of a wrong length is refused and left as it is.
std::optional<CellRefusal> normalise_command(ScriptGrid& grid, int row, Dialogs& dialogs);

/// The value of an action's code cell; above 0xFF where it is no code.
std::uint64_t action_value(const ScriptRow& row);
/// The actions in the queue that begins at a row, in bytes.
int queue_bytes(const ScriptGrid& grid, int row);

} // namespace veldrune
