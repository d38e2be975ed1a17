#pragma once

#include "editor/editor_state.h"
#include "objects/sprite_preview.h"

namespace veldrune {

/// The kind of the tab that form10.TabStrip1 has chosen.
ObjectKind chosen_kind(const Form10& form);
/// The map's list of that kind.
const ObjectList& chosen_list(const EditorState& state);

/// Shows record index of a kind in the object window.
void open_object(EditorState& state, ObjectKind kind, int index);

/// A click with the object tool: opens every object on tile (x, y) whose kind is shown, one after
/// the other, so that the last one stays. On a world map only the kinds that it has.
void select_object_at(EditorState& state, std::uint8_t x, std::uint8_t y);

/// Drops the record: the fields are blank and disabled until another one is loaded.
void drop_object(EditorState& state);

/// After a change of form10.TabStrip1 by the user: loads the first record of its kind.
void on_object_tab(EditorState& state);

/// After a change of form10.HScroll1 by the user: loads that record.
void on_record_scroll(EditorState& state);

/// After a change of form10.Text2 or form10.Text7 by the user. On the NPC tab the sprite preview
/// follows.
void on_palette_text(EditorState& state);
void on_sprite_text(EditorState& state);

/// Whether the sprite in form10.Text7 has no picture, so that the preview shows an earlier one.
bool preview_is_outdated(const EditorState& state);

/// "Save": packs the fields and writes the record into the image at once.
void save_object(EditorState& state);

/// After the user has closed the window.
void close_object_window(EditorState& state);

} // namespace veldrune
