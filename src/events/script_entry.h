#pragma once

#include "events/script_decoder.h"
#include "events/script_edit.h"

#include <optional>

namespace veldrune {

/// The script in the Event Editor, whose grid is Form9's.
struct OpenScript {
    LoadedScript loaded;
    std::string loaded_values;         // of the grid as it was loaded
    std::optional<ImageSource> source; // nothing before the first loading
    ScriptEntry entry;
};

/// A click on a cell: ends an entry, then lays the edit box on the cell, wherever its row is by
/// then, unless the row is gone, or the cell blank or an explanation.
void click_cell(ScriptEdit edit, int row, int column);

/// Enter in the edit box: takes its text into the grid and goes on to the next cell of the entry.
void enter_text(ScriptEdit edit);

/// Escape: ends an entry, forgets the command and hides the edit box.
void escape_entry(ScriptEdit edit);

/// "Add Item": a blank row for a new command, before the next command or the final "Return".
void add_item(ScriptEdit edit);

/// "Remove Item": removes the remembered command.
void remove_item(ScriptEdit edit);

/// Whether end_entry would change anything.
bool entry_unfinished(const ScriptEntry& entry);

/// Ends an entry that is unfinished: rows that were still to be filled go, and a queue gets its
/// end.
void end_entry(ScriptEdit edit);

/// Shows a refusal and lays the edit box on its cell, with this text.
void refuse_cell(ScriptEdit edit, const CellRefusal& refusal, const std::string& text);

} // namespace veldrune
