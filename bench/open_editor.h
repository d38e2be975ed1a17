#pragma once

#include "demo/demo_image.h"
#include "editor/editor_state.h"
#include "editor/open_image.h"
#include "editor/select_map.h"
#include "image_file.h"

#include <vector>

namespace veldrune {

/// An editor with the demo image open from a file.
struct OpenEditor {
    ImageFile file;
    std::unique_ptr<FileLayer> disk = make_disk();
    SilentDialogs dialogs;
    std::unique_ptr<EditorState> state = std::make_unique<EditorState>(*disk, dialogs);

    explicit OpenEditor(Medium medium = Medium::memory) : file(demo_image(), medium) {
        open_image_file(*state, file.path);
    }
    void choose(int map) {
        state->form1.Combo1 = map;
        select_map(*state);
    }

  private:
    static const std::vector<std::uint8_t>& demo_image() {
        static const std::vector<std::uint8_t> image = demo::make_demo_image();
        return image;
    }
};

} // namespace veldrune
