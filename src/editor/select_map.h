#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// After a choice in the map list, also of the current row: leaves the world map, asks about
/// unsaved changes, and loads the record, the fields and the three layers of row form1.Combo1.
/// Draws nothing.
void select_map(EditorState& state);

/// Reports a read that the disk has refused, and then resets source: what is in memory is not what
/// the image holds and must not be saved over it, so it counts as never read.
void report_refused_map_reads(const ReadWatch& reads, std::optional<ImageSource>& source,
                              Dialogs& dialogs);

/// Shows the record in memory, and the map's monster set, in the fields.
void show_map_fields(const RomImage& rom, const ChosenMap& map, Form1& form);

} // namespace veldrune
