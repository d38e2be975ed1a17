#pragma once

#include "support/disk_folder.h"
#include "support/editor_fixture.h"

#include <fstream>
#include <string>

namespace veldrune::test {

/// What a file holds; nothing if it is not there.
inline Bytes contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary | std::ios::ate);
    Bytes bytes(in ? static_cast<std::size_t>(in.tellg()) : 0);
    in.seekg(0).read(reinterpret_cast<char*>(bytes.data()), std::ssize(bytes));
    return bytes;
}

/// Gives a file other contents; it stays the same file.
inline void put_contents(const std::string& path, const Bytes& bytes) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
}

/// An editor on the real disk, with the demo image open as a.smc in a folder of its own.
struct RealEditor {
    DiskFolder folder;
    std::string image = folder.file("a.smc");
    std::unique_ptr<FileLayer> disk = make_disk();
    ScriptedDialogs dialogs;
    std::unique_ptr<EditorState> state = std::make_unique<EditorState>(*disk, dialogs);
    EditorState& s = *state;
    Form1& form = state->form1;

    RealEditor() {
        put_contents(image, demo_bytes());
        open_image_file(s, image);
    }
    void choose(int map) {
        form.Combo1 = map;
        select_map(s);
    }
    /// What the open file holds, whatever its name is by now.
    Bytes open_file() const {
        Bytes bytes(static_cast<std::size_t>(s.rom.size().value_or(0)));
        s.rom.read(0, bytes);
        return bytes;
    }
};

} // namespace veldrune::test
