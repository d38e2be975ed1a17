#include "editor/open_image.h"

namespace veldrune {

bool switch_image(EditorState& state, const std::string& path) {
    const std::string former = state.rom.path();
    if (state.rom.open(path))
        return true;
    // rom_open tells the truth: without the former image there is none.
    if (state.rom_open && !state.rom.open(former)) {
        state.rom_open = false;
        state.form1.Combo1_enabled = false;
    }
    return false;
}

void take_over_path(EditorState& state, const std::string& path) {
    state.rom_path = path;
    state.form1.Label20 = path;
}

void open_image_file(EditorState& state, const std::string& path) {
    if (!switch_image(state, path))
        return;
    take_over_path(state, path);
    state.rom_open = true;
    state.form1.Combo1_enabled = true;
    read_patch_flags(state.rom, state.patch_flags);
}

void open_image(EditorState& state) {
    if (const auto path = state.dialogs.open_file_name())
        open_image_file(state, *path);
}

} // namespace veldrune
