#pragma once

#include "demo/demo_image.h"
#include "editor/build.h"
#include "editor/mouse.h"
#include "editor/open_image.h"
#include "editor/select_map.h"
#include "support/memory_disk.h"
#include "support/scripted_dialogs.h"

#include <memory>

namespace veldrune::test {

inline const Bytes& demo_bytes() {
    static const Bytes bytes = demo::make_demo_image();
    return bytes;
}

/// An image open on a disk in memory as "a.smc", without an editor.
struct OpenImage {
    MemoryDisk disk;
    ScriptedDialogs dialogs;
    RomImage rom{disk};
    explicit OpenImage(Bytes bytes) {
        disk["a.smc"] = std::move(bytes);
        rom.open("a.smc");
    }
    Bytes& bytes() { return disk["a.smc"]; }
};

/// An editor on a disk in memory, with the demo image open as "a.smc", or none where there are no
/// bytes.
struct Editor {
    MemoryDisk disk;
    ScriptedDialogs dialogs;
    std::unique_ptr<EditorState> state = std::make_unique<EditorState>(disk, dialogs);
    EditorState& s = *state;
    Form1& form = state->form1;

    explicit Editor(const Bytes& image = demo_bytes()) {
        if (image.empty())
            return;
        disk["a.smc"] = image;
        open_image_file(*state, "a.smc");
    }
    Bytes& image() { return disk["a.smc"]; }
    void choose(int map) {
        form.Combo1 = map;
        select_map(*state);
    }
    /// A whole click on the map picture.
    void click(MouseButton button, int x, int y) {
        on_press(*state, button, x, y);
        on_release(*state);
        on_click(*state, x, y);
    }
};

/// The same with the town chosen, and built if wanted.
struct Town : Editor {
    explicit Town(bool built = false) {
        choose(demo::demo_map::town);
        if (built)
            build_tileset(s);
    }
    LayerMap& map(std::size_t layer) { return s.map.layers[layer].map; }
};

} // namespace veldrune::test
