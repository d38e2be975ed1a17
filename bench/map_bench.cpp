// Choosing, building and saving a map, on a real file with a warm cache, and the paint step.

#include "demo/demo_image.h"
#include "editor/build.h"
#include "editor/mouse.h"
#include "editor/save.h"
#include "editor/world_map.h"
#include "editor/world_view.h"
#include "figures.h"
#include "open_editor.h"

#include <cstring>

namespace veldrune::bench {
namespace {

using Step = std::function<void(OpenEditor&)>;

// The step again and again, in an editor that has been prepared once.
MakeWork in_editor(const Step& prepare, const Step& step, Medium medium = Medium::memory) {
    return [=]() -> Work {
        const auto editor = std::make_shared<OpenEditor>(medium);
        prepare(*editor);
        return [=] { step(*editor); };
    };
}

void choose_town(OpenEditor& editor) {
    editor.choose(demo::demo_map::town);
}
void build(OpenEditor& editor) {
    build_tileset(*editor.state);
}
void save_it(OpenEditor& editor) {
    save(*editor.state);
}
void open_dawn(OpenEditor& editor) {
    open_world_of_dawn(*editor.state);
}
void open_dusk(OpenEditor& editor) {
    open_world_of_dusk(*editor.state);
}

// The map of the demo that takes longest to choose, build and save.
void find_slowest_map(OpenEditor& editor, int& slowest) {
    std::chrono::nanoseconds longest{};
    for (int map = 0; map < 414; ++map) {
        const auto start = std::chrono::steady_clock::now();
        editor.choose(map);
        build(editor);
        save_it(editor);
        const auto time = std::chrono::steady_clock::now() - start;
        if (time > longest)
            slowest = map;
        longest = std::max<std::chrono::nanoseconds>(longest, time);
    }
}

Work all_steps_of_the_slowest_map() {
    const auto editor = std::make_shared<OpenEditor>();
    int slowest = 0;
    find_slowest_map(*editor, slowest);
    return [=] {
        editor->choose(slowest);
        build(*editor);
        save_it(*editor);
    };
}

void start_painting(OpenEditor& editor) {
    choose_town(editor);
    build(editor);
    on_press(*editor.state, MouseButton::left, 0, 0);
}

void paint(OpenEditor& editor) {
    static int at = 0;
    at = (at + 37) % 512;
    on_move(*editor.state, at, at / 2);
}

void scroll_world(OpenEditor& editor) {
    int& column = editor.state->form1.HScroll2.value;
    column = (column + 1) % 225;
    draw_world_view(editor.state->world, editor.state->form1, editor.state->display.picture);
}

} // namespace

MakeWork copying_a_picture() {
    return []() -> Work {
        const auto from = std::make_shared<PixelBuffer>();
        const auto to = std::make_shared<PixelBuffer>();
        return [=] {
            std::memcpy(to->row(0), from->pixels().data(), sizeof from->pixels());
            use(*to);
        };
    };
}

void add_map_figures(Figures& figures) {
    const auto add = [&](const char* name, Goal goal, const MakeWork& work) {
        figures.figures.push_back({name, goal, work});
    };
    const auto at_most = [](double milliseconds) { return Goal{Goal::milliseconds, milliseconds}; };
    add("choose a map", at_most(0.04), in_editor([](OpenEditor&) {}, choose_town));
    add("build a map", at_most(0.5), in_editor(choose_town, build));
    add("save a map, flush apart", at_most(0.1), in_editor(choose_town, save_it));
    add("save a map, with the flush", {}, in_editor(choose_town, save_it, Medium::disk));
    add("choose, build and save the slowest map", at_most(8), all_steps_of_the_slowest_map);
    add("a step of painting", at_most(0.05), in_editor(start_painting, paint));
    add("open Dawn", at_most(2), in_editor(open_dawn, open_dawn));
    add("open Dusk", at_most(2), in_editor(open_dusk, open_dusk));
    add("save Dawn, flush apart", at_most(0.4), in_editor(open_dawn, save_it));
    add("save Dusk, flush apart", at_most(0.6), in_editor(open_dusk, save_it));
    add("save Dusk, with the flush", {}, in_editor(open_dusk, save_it, Medium::disk));
    figures.figures.push_back({"the view of a world",
                               {Goal::times_reference, 2.5},
                               in_editor(open_dawn, scroll_world),
                               "copying a picture",
                               copying_a_picture()});
}

} // namespace veldrune::bench
