#pragma once

#include "demo/demo_image.h"
#include "editor/editor_state.h"
#include "editor/open_image.h"
#include "editor/select_map.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace veldrune {

/// Says yes to everything.
class Agreeing : public Dialogs {
  public:
    void message(const std::string&, const std::string&) override {}
    bool question(const std::string&) override { return true; }
    std::optional<std::string> open_file_name() override { return std::nullopt; }
    std::optional<std::string> save_file_name() override { return std::nullopt; }
};

/// An editor with the demo image open from a file that goes with it.
struct OpenEditor {
    std::filesystem::path path = std::filesystem::temp_directory_path() /
                                 ("veldrune-bench-" + std::to_string(::getpid()) + ".smc");
    std::unique_ptr<FileLayer> disk = make_disk();
    Agreeing dialogs;
    std::unique_ptr<EditorState> state = std::make_unique<EditorState>(*disk, dialogs);

    OpenEditor() {
        const auto bytes = demo::make_demo_image();
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
        open_image_file(*state, path);
    }
    ~OpenEditor() { std::filesystem::remove(path); }
    void choose(int map) {
        state->form1.Combo1 = map;
        select_map(*state);
    }
};

} // namespace veldrune
