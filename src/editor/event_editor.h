#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Opens the Event Editor, or resets it if it is open, and loads the script at
/// selected_object.script_offset. Unsaved changes are dropped. Does nothing without an image.
void open_event_editor(EditorState& state);
/// The same from the object window: for an NPC or event trigger, and without an object nothing.
void open_event_editor_of_object(EditorState& state);
/// After the user has closed the window.
void close_event_editor(EditorState& state);

/// The rows of the command that "Remove Item" would remove: the first one, and the one after the
/// last. Both are 0 where there is none.
struct ScriptRows {
    int first = 0;
    int end = 0;
};
ScriptRows remembered_rows(const EditorState& state);

/// Why File > Save would refuse any script from here: it was not read whole, or from another image
/// than the open one. Nothing where it would not.
std::optional<std::string> script_save_refusal(const EditorState& state);

/// A click on a cell of the grid.
void on_script_click(EditorState& state, int row, int column);
/// Enter and Escape in the edit box, whose text is form9.Text2.
void on_script_enter(EditorState& state);
void on_script_escape(EditorState& state);
/// "Add Item" and "Remove Item".
void add_script_item(EditorState& state);
void remove_script_item(EditorState& state);

/// Enter in form9.Text3: loads the script at that offset as open_event_editor does.
void on_script_offset_enter(EditorState& state);

/// File > Save of the Event Editor: writes the script over the one at
/// selected_object.script_offset, where it has not grown. Refuses what can't be encoded, a script
/// that was not read whole and one that was read from another image. Asks before it writes a list
/// that would be read with another number of offsets, and before it writes to another place than
/// the script was read from.
void save_script(EditorState& state);

} // namespace veldrune
