#include "editor/open_image.h"

namespace veldrune {

void set_image_path(EditorState& state, const std::string& path) {
    state.rom_path = path;
    state.form1.Label20 = path;
}

bool open_image_file(EditorState& state, const std::string& path) {
    state.open_failure.reset();
    if (!state.rom.open(path)) {
        state.open_failure = {path, state.rom.why_not_open(path)};
        return false;
    }
    state.last_save.at.reset();
    state.last_save.left_out.clear();
    set_image_path(state, path);
    state.rom_open = true;
    state.form1.Combo1_enabled = true;
    read_patch_flags(state.rom, state.patch_flags);
    if (state.rom.is_edited_elsewhere())
        state.dialogs.message(MessageKind::warning,
                              path + " is open in another editor, too. What one of them saves can "
                                     "overwrite what the other one has saved.",
                              warning_title);
    return true;
}

void open_image(EditorState& state) {
    if (const auto path = state.dialogs.open_file_name(state.rom.path()))
        open_image_file(state, *path);
}

} // namespace veldrune
