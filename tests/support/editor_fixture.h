#pragma once

#include "demo/demo_image.h"
#include "editor/build.h"
#include "editor/mouse.h"
#include "editor/open_image.h"
#include "editor/select_map.h"
#include "support/memory_disk.h"
#include "support/scripted_dialogs.h"

#include <algorithm>
#include <memory>
#include <random>

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

/// An editor on a disk in memory, with the demo image open as "a.smc".
struct Editor {
    MemoryDisk disk;
    ScriptedDialogs dialogs;
    std::unique_ptr<EditorState> state = std::make_unique<EditorState>(disk, dialogs);
    EditorState& s = *state;
    Form1& form = state->form1;

    explicit Editor(const Bytes& image = demo_bytes()) {
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
    LayerMap& map(std::size_t layer) { return s.layers[layer].map; }
};

/// Random numbers for tests: the same in every run.
struct Random {
    std::mt19937 engine;
    explicit Random(unsigned seed) : engine(seed) {}
    /// From 0 to limit - 1.
    int below(int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); }
    std::uint8_t byte() { return static_cast<std::uint8_t>(engine()); }
    template <std::size_t size>
    std::array<std::uint8_t, size> bytes() {
        std::array<std::uint8_t, size> all;
        std::ranges::generate(all, [this] { return byte(); });
        return all;
    }
};

} // namespace veldrune::test
