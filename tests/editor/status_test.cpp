#include "editor/commands.h"
#include "editor/field_mark.h"
#include "editor/map_commands.h"
#include "editor/picture_status.h"
#include "editor/save_status.h"
#include "editor/shared_data.h"
#include "editor/view.h"
#include "rom/number_field.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

namespace veldrune::test {
namespace {

using demo::demo_map::town;

// A step of the user, and what the status says after it.
struct Step {
    const char* name;
    std::function<void(Editor&)> act;
    std::string status;
};
void expect_steps(Editor& editor, std::string (*status)(const EditorState&),
                  const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        step.act(editor);
        EXPECT_EQ(status(editor.s), step.status) << step.name;
    }
}
auto run(Command command) {
    return [command](Editor& editor) { run_command(editor.s, command); };
}
auto choose(int map) {
    return [map](Editor& editor) { editor.choose(map); };
}
auto type(std::string Form1::*field, const char* text) {
    return [field, text](Editor& editor) { editor.form.*field = text; };
}
auto tick(bool Form1::*box) {
    return [box](Editor& editor) { editor.form.*box ^= true; };
}
auto save_as(const char* path) {
    return [path](Editor& editor) {
        editor.dialogs.file_names = {path};
        run_command(editor.s, Command::save_as);
    };
}
void paint(Editor& editor) {
    editor.click(MouseButton::left, 40, 40);
}

TEST(FieldMark, SaysWhatSaveMakesOfEveryTextInEveryField) {
    Editor editor;
    for (const TextRow<Form1>& row : form1_texts)
        for (const char* text : {"3", " 32", "16", "131", "300", "7x", "1G", ""}) {
            if (!is_typed(row.form) || row.text == &Form1::Text24)
                continue;
            editor.image() = demo_bytes();
            editor.choose(town);
            const std::string before = editor.form.*row.text;
            editor.form.*row.text = text;
            const bool marked = !field_mark(editor.s, row.text).empty();
            const auto saved = saved_number(row.text, text);
            const int typed = field_number(editor.form, row.text).value;
            editor.dialogs.messages.clear();
            run_command(editor.s, Command::save);
            const bool warned = !editor.dialogs.messages.empty();
            editor.choose(town);
            EXPECT_EQ(editor.form.*row.text, saved ? format_number(row.form, *saved) : before)
                << row.control << " \"" << text << "\"";
            EXPECT_EQ(marked, warned || saved != typed) << row.control << " \"" << text << "\"";
        }
}

TEST(FieldMark, IsOneSentenceAndOnlyWhereThereIsSomethingToSave) {
    Editor editor;
    editor.form.Text24 = editor.form.Text13 = "x";
    EXPECT_EQ(field_mark(editor.s, &Form1::Text24) + field_mark(editor.s, &Form1::Text13), "");
    editor.choose(town);
    const std::tuple<std::string Form1::*, const char*, std::string> marks[] = {
        {&Form1::Text44, "5x", "No decimal number: Save keeps " + editor.form.Text44 + "."},
        {&Form1::Text46, "F1", "Too large: Save makes 71 of it."},
        {&Form1::Text41, "G", "No hexadecimal number: Save makes 0 of it."},
        {&Form1::Text2, "48", "No width: Save keeps " + editor.form.Text2 + "."},
        {&Form1::Text2, "0", "No width: Save refuses a layer without tiles."},
        {&Form1::Text14, "10", "No pointer reaches 10: it would lead to 1000010 instead."},
    };
    for (const auto& [field, text, mark] : marks) {
        editor.form.*field = text;
        EXPECT_EQ(field_mark(editor.s, field), mark);
    }
    run_command(editor.s, Command::open_world_of_dawn);
    editor.form.Text24 = "99";
    EXPECT_EQ(field_mark(editor.s, &Form1::Text24),
              "No pointer reaches 99: Save leaves the pointer to the world map as it is.");
}

// The facts in short: painting, command, the fields that differ, those that Save As left out, a
// save, and the image where it is not the one on show.
std::string saving(const EditorState& state) {
    const SaveStatus status = save_status(state);
    const auto names = [](const char* title, const std::vector<RecordControl>& fields) {
        std::string text = fields.empty() ? "" : title;
        for (const RecordControl& field : fields) {
            const auto* number = std::get_if<std::string Form1::*>(&field);
            text += number ? std::string(" ") + text_row(*number).control : " Check8";
        }
        return text;
    };
    return std::string(status.painting ? "P" : "") + (status.command ? "C" : "") +
           (status.saved_at ? "S" : "") + names(":", status.fields) +
           names(" left", status.left_out) + status.save_goes_to;
}

TEST(SaveStatus, FollowsFieldsPaintingCommandsAndBothSaves) {
    Town editor(true);
    copy_properties(editor.s);
    const std::string song = editor.form.Text44;
    expect_steps(editor, saving,
                 {{"a field", type(&Form1::Text44, "77"), ": Text44"},
                  {"typed back", type(&Form1::Text44, (" 0" + song).c_str()), ""},
                  {"no number", type(&Form1::Text44, "x"), ": Text44"},
                  {"and saved", run(Command::save), "S: Text44"}, // the image has the old number
                  {"a number", type(&Form1::Text44, "78"), "S: Text44"},
                  {"a box", tick(&Form1::Check8), "S: Text44 Check8"},
                  {"painted", paint, "PS: Text44 Check8"},
                  {"Save As", save_as("b.smc"), "S left Text44 Check8"},
                  {"another field", type(&Form1::Text13, "4"), "S: Text13 left Text44 Check8"},
                  {"saved once more", run(Command::save), "S"},
                  {"cleared", run(Command::clear_map), "CS"},
                  {"Save As", save_as("a.smc"), "S"},
                  {"pasted", run(Command::paste_properties), "CS: Text13 Text44 Check8"},
                  {"Save As leaves a part", save_as("b.smc"), "CS left Text44 Check8"},
                  {"saved", run(Command::save), "S"},
                  {"layer 3's low bits", type(&Form1::Text23, "2"), "S: Text23"},
                  {"are left out", save_as("c.smc"), "S left Text23"},
                  {"another map", choose(town + 1), ""}});
}

TEST(SaveStatus, KnowsWorldsAndWhereSaveWrites) {
    Town editor;
    expect_steps(editor, saving,
                 {{"painted", [](Editor& e) { build_tileset(e.s), paint(e); }, "P"},
                  {"Save As cancelled at growth",
                   [](Editor& e) {
                       e.s.map.layers[0].layer_packed_size = 1;
                       e.dialogs.answers = {false};
                       save_as("b.smc")(e);
                   },
                   "Pb.smc"},
                  {"opened again", [](Editor& e) { open_image_file(e.s, "b.smc"); }, "P"},
                  {"a world", run(Command::open_world_of_dawn), ""},
                  {"moved", type(&Form1::Text24, "310200"), ": Text24"},
                  {"painted", paint, "P: Text24"},
                  {"saved", run(Command::save), "S"},
                  {"no place", type(&Form1::Text24, "99"), "S: Text24"},
                  {"back to a map", choose(town), ""}});
    open_image_file(editor.s, "none.smc");
    EXPECT_EQ(editor.s.open_failure->path + editor.s.open_failure->reason,
              "none.smcno file can be reached there");
}

std::string picture(const EditorState& state) {
    const PictureStatus status = picture_status(state);
    return status.shown +
           (!status.renew                             ? ""
            : *status.renew == Command::build_tileset ? " tileset"
                                                      : " refresh") +
           (status.why_not.empty() ? "" : " -");
}

TEST(PictureStatus, NamesWhatIsShownAndTheBuildThatRenewsIt) {
    const std::string shown = "map " + std::to_string(town);
    const std::string stale = shown + ", not as the fields and boxes are";
    const std::string width = Town().form.Text2;
    Editor editor;
    expect_steps(editor, picture,
                 {{"map 0", choose(0), "none yet -"},
                  {"the town", choose(town), "none yet tileset"},
                  {"built", run(Command::build_tileset), ""},
                  {"scrolled", [](Editor& e) { e.form.HScroll1.value = 3, on_h_scroll(e.s); }, ""},
                  {"a palette", type(&Form1::Text13, "1"), stale + " tileset"},
                  {"refreshed", run(Command::refresh_map), stale + " tileset"},
                  {"built", run(Command::build_tileset), ""},
                  {"a width", type(&Form1::Text2, "48"), stale + " refresh"},
                  {"typed back", type(&Form1::Text2, width.c_str()), ""},
                  {"markers", tick(&Form1::Check1), stale + " refresh"},
                  {"drawn by a scroll", [](Editor& e) { on_v_scroll(e.s); }, ""},
                  {"no markers", tick(&Form1::Check1), stale + " refresh"},
                  {"drawn by a zoom", run(Command::zoom_out), ""},
                  {"none", [](Editor& e) { e.form.Check5 = e.form.Check6 = e.form.Check7 = false; },
                   stale + " -"},
                  {"two of three", [](Editor& e) { e.form.Check5 = e.form.Check6 = true; },
                   stale + " refresh"},
                  {"and no layer 3", type(&Form1::Text25, "19D3B0"), stale + " refresh"},
                  {"refreshed", run(Command::refresh_map), ""},
                  {"painted", paint, ""},
                  {"Save As", save_as("b.smc"), ""},
                  {"another map", choose(town + 1), shown + " tileset"},
                  {"refreshed", run(Command::refresh_map),
                   "map " + std::to_string(town + 1) + " with the tiles of " + shown + " tileset"},
                  {"built", run(Command::build_tileset), ""},
                  {"a world", run(Command::open_world_of_dusk), ""},
                  {"the town", choose(town), "World of Dusk tileset"},
                  {"built", run(Command::build_tileset), ""},
                  {"painted", paint, ""},
                  {"dropped", choose(town), shown + ", from before it was chosen again refresh"}});
}

auto scroll(int columns) {
    return [columns](Editor& editor) {
        editor.form.HScroll1.value += columns;
        on_h_scroll(editor.s);
    };
}

TEST(PictureStatus, CountsStripsThatReplaceTheWholePicture) {
    const std::string stale = "map " + std::to_string(town) + ", not as the fields and boxes are";
    Town editor(true);
    const std::string width = editor.form.Text2;
    expect_steps(editor, picture,
                 {{"a width", type(&Form1::Text2, "32"), stale + " refresh"},
                  {"most of it", scroll(15), stale + " refresh"},
                  {"all of it", scroll(1), ""},
                  {"one way", type(&Form1::Text2, width.c_str()), stale + " refresh"},
                  {"a strip", scroll(-1), stale + " refresh"},
                  {"and the other", type(&Form1::Text2, "32"), stale + " refresh"},
                  {"refreshed", run(Command::refresh_map), ""},
                  {"markers", tick(&Form1::Check1), stale + " refresh"},
                  {"are drawn", scroll(9), ""},
                  {"are left", tick(&Form1::Check1), stale + " refresh"},
                  {"by most strips", scroll(15), stale + " refresh"},
                  {"are gone", scroll(1), ""},
                  {"a strip", scroll(-15), ""},
                  {"a world", run(Command::open_world_of_dawn), ""},
                  {"the town", choose(town), "World of Dawn refresh"},
                  {"a strip over it", scroll(1), "World of Dawn refresh"}});
}

TEST(SharedData, NamesTheOtherMapsOfALayersData) {
    OpenImage image(Bytes(0x2D9100 + 414 * 33, 0xFF));
    const auto map = std::make_unique<ChosenMap>();
    EXPECT_EQ(sharing_maps(image.rom, *map, 0), "");
    map->source = source_of(image.rom);
    map->map_index = 2;
    map->map_properties.fill(0xFF);
    map->map_properties[13] = 7; // the low bits of layer 1's number
    const char* sentences[] = {"", "Also map 5 has this data.", "Also maps 5, 9 have this data."};
    for (int other = 2; const char* sentence : sentences) {
        image.bytes()[static_cast<std::size_t>(0x2D9100 + 33 * other + 13)] = 7;
        EXPECT_EQ(sharing_maps(image.rom, *map, 0), sentence);
        other += other == 2 ? 3 : 4;
    }
    EXPECT_EQ(sharing_maps(image.rom, *map, 1), "Also maps 0, 1, 3 to 413 have this data.");
}

} // namespace
} // namespace veldrune::test
