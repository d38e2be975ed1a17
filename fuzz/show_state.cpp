#include "show_state.h"

#include "editor/cell_info.h"
#include "editor/code_offers.h"
#include "editor/commands.h"
#include "editor/event_editor.h"
#include "editor/field_mark.h"
#include "editor/object_status.h"
#include "editor/picture_status.h"
#include "editor/save_status.h"
#include "editor/script_status.h"
#include "editor/shared_data.h"

#include <gtest/gtest.h>

#include <tuple>

namespace veldrune::test {
namespace {

void show_main_window(const EditorState& state) {
    for (int command = 0; command < static_cast<int>(Command::count); ++command)
        can_run(state, static_cast<Command>(command));
    save_status(state);
    picture_status(state);
    for (const TextRow<Form1>& row : form1_texts)
        field_mark(state, row.text);
    for (int layer = 0; layer < layer_count; ++layer)
        sharing_maps(state.rom, state.map, layer);
    for (int y = -1; y <= view_size; y += view_size / 2)
        for (int x = -1; x <= view_size; x += view_size / 2) {
            map_cell_text(state, x, y);
            tile_to_paint(state, x, y);
        }
}

void show_other_windows(const EditorState& state) {
    object_status(state);
    save_place(state);
    grid_status(state);
    remembered_rows(state);
    offered_codes(state);
}

// What can be compared in little time.
auto summary(const Session& s) {
    std::string texts;
    for (const TextRow<Form1>& row : form1_texts)
        texts.append(s.state.form1.*row.text).push_back('\0');
    for (const TabTextRow& row : form10_texts)
        texts.append(s.state.form10.*row.text).push_back('\0');
    const EditorState& state = s.state;
    return std::tuple(texts, state.form9.Text2, state.form9.operation_count, state.rom.path(),
                      state.rom.identity(), state.display.picture.version(),
                      state.display.tile_sheet.version(), state.changes_saved, state.zoom,
                      s.disk.accesses.size(), s.disk.openings, s.disk.file_count(),
                      s.dialogs.events.size());
}

} // namespace

void expect_showing_changes_nothing(Session& session) {
    const auto before = summary(session);
    show_main_window(session.state);
    show_other_windows(session.state);
    EXPECT_TRUE(summary(session) == before) << "showing the state has changed something";
}

} // namespace veldrune::test
