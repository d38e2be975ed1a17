#include "editor/event_editor.h"
#include "editor/map_commands.h"
#include "editor/object_window.h"
#include "editor/save.h"
#include "editor/world_map.h"
#include "inspect/field_names.h"
#include "inspect/ownership.h"
#include "inspect/share_out.h"
#include "rom/number_field.h"
#include "support/editor_fixture.h"
#include "support/image_reports.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

#include <set>

namespace veldrune::inspect {
namespace {

using test::Editor;
using test::Random;

const MemoryImage& demo() {
    static const MemoryImage image{"a.smc", test::demo_bytes()};
    return image;
}
const ImageReading& demo_reading() {
    static const ImageReading reading = read_whole(demo());
    return reading;
}

// How the thing of a finding, and what is said of it, begin.
struct Named {
    std::string thing;
    std::string what;
};

bool names(const Difference& finding, const Named& named) {
    if (named.thing == "script") // any of them
        return finding.thing.starts_with("script ") && finding.what.starts_with("row at ");
    const std::string_view rest =
        std::string_view(finding.thing).substr(std::min(named.thing.size(), finding.thing.size()));
    return finding.thing.starts_with(named.thing) &&
           (rest.empty() || rest[0] == ',' || named.thing.back() == ' ') &&
           finding.what.starts_with(named.what);
}

// How findings call the owner of bytes that an edit has written over.
std::string thing_of(const OwnedRange& range) {
    switch (range.kind) {
    case OwnerKind::formation_set:
        return "formation-set " + std::to_string(range.number);
    case OwnerKind::world_map:
        return range.number == 0 ? "world dawn map" : "world dusk map";
    case OwnerKind::npcs:
    case OwnerKind::chests:
    case OwnerKind::triggers:
    case OwnerKind::entrances:
    case OwnerKind::long_entrances: { // objects are named one by one
        const auto kind = static_cast<int>(range.kind) - static_cast<int>(OwnerKind::npcs);
        return "map " + std::to_string(range.number) + ' ' +
               kind_name(static_cast<ObjectKind>(kind)) + ' ';
    }
    default:
        return owner_name(range);
    }
}

// The owners of bytes that differ, and have no finding of their own kind.
std::set<std::string> changed_owners(const test::Bytes& after) {
    static const Ownership ownership(demo_reading());
    std::set<std::string> owners;
    for (const OwnedRange& range : ownership.ranges()) {
        const auto size = static_cast<std::size_t>(range.end - range.begin);
        if (range.kind != OwnerKind::structure &&
            !std::equal(after.begin() + range.begin, after.begin() + range.end,
                        demo().at(range.begin, range.end - range.begin).first(size).begin()))
            owners.insert(thing_of(range));
    }
    return owners;
}

// An edit, saved; returns what names it. Nothing where there was nothing to edit.
using Edit = std::vector<Named> (*)(Editor& editor, Random& random);

// A map that can be saved.
int choose_map(Editor& editor, Random& random) {
    do
        editor.choose(2 + random.below(rom_layout::map_count - 2));
    while (std::ranges::any_of(editor.s.map.layers, &Layer::rows_missing));
    return editor.s.map.map_index;
}

std::string data_of(const Editor& editor, std::size_t layer) {
    return "data " +
           std::to_string(layer_data_number(editor.s.map.map_properties, static_cast<int>(layer)));
}

// Draws a tile somewhere, or so many that the layer grows.
std::vector<Named> paint(Editor& editor, Random& random) {
    choose_map(editor, random);
    build_tileset(editor.s);
    const auto layer = static_cast<std::size_t>(random.below(2));
    LayerMap& map = editor.s.map.layers[layer].map;
    const int column = random.below(16), row = random.below(16);
    if (random.below(4) == 0) {
        for (int i = 0; i < 200; ++i)
            map.at(random.below(16), random.below(16)) = random.byte();
        save(editor.s);
        return {{data_of(editor, layer), ""}};
    }
    const std::uint8_t tile = map.at(column, row);
    editor.form.edit_layer = static_cast<int>(layer);
    editor.form.current_tile = tile ^ (1 + random.below(255));
    editor.click(MouseButton::left, 32 * column + 9, 32 * row + 9);
    save(editor.s);
    if (!editor.dialogs.questions.empty()) // it has grown, perhaps into the next layer
        return {{data_of(editor, layer), ""}};
    return {{data_of(editor, layer),
             "1 tile in column " + std::to_string(column) + ", row " + std::to_string(row)}};
}

std::vector<Named> move_layer(Editor& editor, Random& random) {
    choose_map(editor, random);
    editor.form.Text14 = format_hex(0x2FF000 + random.below(0x100));
    save(editor.s);
    return {{data_of(editor, 0), "moved"}};
}

std::vector<Named> change_property(Editor& editor, Random& random) {
    using enum RecordField;
    constexpr RecordField fields[] = {song,     palette,  layer_priorities, scroll_index,
                                      tileset1, tileset3, viewable_first,   left_shift1};
    const int number = choose_map(editor, random);
    const RecordField field = fields[random.below(std::size(fields))];
    const auto text = std::get<std::string Form1::*>(record_row(field).control);
    const std::uint32_t value = record_value(editor.s.map.map_properties, field) ^ 1;
    editor.form.*text = format_number(text_row(text).form, value);
    save(editor.s);
    return {{"map " + std::to_string(number), field_name(field)}};
}

std::vector<Named> change_object(Editor& editor, Random& random) {
    const auto& objects = demo_reading().objects;
    const ObjectAt& object = objects[random.engine() % objects.size()];
    editor.choose(object.map);
    build_tileset(editor.s);
    for (const auto box : {&Form1::Check1, &Form1::Check2, &Form1::Check3, &Form1::Check4})
        editor.form.*box = true;
    refresh_map(editor.s);
    open_object(editor.s, object.kind, object.index);
    Form10& window = editor.s.form10;
    (object.kind == ObjectKind::npc ? window.Text5 : window.Text1) =
        format_hex(object_value(object.kind, object.bytes, ObjectField::map_x).value() ^ 1);
    save_object(editor.s);
    return {{"map " + std::to_string(object.map) + ' ' + kind_name(object.kind) + ' ' +
                 std::to_string(object.index),
             "column"}};
}

// Removes a command: what follows it moves up, and other scripts may begin there.
std::vector<Named> change_script(Editor& editor, Random& random) {
    const auto& scripts = demo_reading().scripts.scripts;
    while (editor.image() == test::demo_bytes()) { // a click may find no command
        editor.s.objects.selected_object.script_offset =
            scripts[random.engine() % scripts.size()].offset;
        open_event_editor(editor.s);
        const int rows = static_cast<int>(editor.s.form9.grid.size());
        on_script_click(editor.s, 1 + random.below(std::max(rows - 3, 1)), 0);
        remove_script_item(editor.s);
        save_script(editor.s);
    }
    return {{"script", ""}};
}

std::vector<Named> paint_world(Editor& editor, Random& random) {
    const bool dawn = random.below(2) == 0;
    (dawn ? open_world_of_dawn : open_world_of_dusk)(editor.s);
    const int column = random.below(32), row = random.below(32);
    editor.form.current_tile = editor.s.world.world_map.at(column, row) ^ (1 + random.below(255));
    editor.click(MouseButton::left, 16 * column + 3, 16 * row + 3);
    save(editor.s);
    return {{dawn ? "world dawn map" : "world dusk map",
             "1 tile in column " + std::to_string(column) + ", row " + std::to_string(row)}};
}

std::vector<Named> expand(Editor& editor, Random&) {
    expand_rom(editor.s);
    return {{"image", "size"}, {"bytes 300200-4001FF", "1048576 bytes"}};
}

std::vector<Named> patch(Editor& editor, Random&) {
    apply_dialogue_patch(editor.s);
    return {{"image", "size"},      {"dialogue-routine", "entry 0"}, {"patch-marks", "entry 0"},
            {"dialogue table", ""}, {"dialogue 637", "location"},    {"dialogue 637", "text"}};
}

void expect_named(Edit edit, unsigned seed) {
    Random random(seed);
    Editor editor;
    const std::vector<Named> edits = edit(editor, random);
    const MemoryImage after{"b.smc", editor.image()};
    const std::vector<Difference> findings =
        test::differences_of(demo_reading(), read_whole(after));
    std::vector<Named> owners;
    for (const std::string& owner : changed_owners(after.bytes))
        owners.push_back({owner, ""});
    std::string all = "\n";
    for (const Difference& finding : findings)
        all += difference_line(finding).substr(0, 200) + '\n';
    const auto is_found = [&](const Named& named) {
        return std::ranges::any_of(findings, [&](auto& finding) { return names(finding, named); });
    };
    for (const Named& named : edits)
        EXPECT_TRUE(is_found(named)) << seed << ' ' << named.thing << ": " << named.what << all;
    for (const Named& owner : owners)
        EXPECT_TRUE(is_found(owner)) << seed << ' ' << owner.thing << all;
    for (const Difference& finding : findings) {
        const auto is_named = [&](const Named& named) { return names(finding, named); };
        EXPECT_TRUE(std::ranges::any_of(edits, is_named) || std::ranges::any_of(owners, is_named))
            << seed << ' ' << finding.thing << ": " << finding.what << all;
    }
}

TEST(Diff, NamesAnEditAndWhatItOverwroteAndNothingElse) {
    const struct {
        Edit edit;
        int times;
    } rows[] = {{paint, 60},         {move_layer, 20},  {change_property, 40}, {change_object, 40},
                {change_script, 40}, {paint_world, 10}, {expand, 1},           {patch, 1}};
    std::vector<Edit> edits;
    for (const auto& [edit, times] : rows)
        edits.insert(edits.end(), static_cast<std::size_t>(times), edit);
    share_out(static_cast<int>(edits.size()), [&] {
        return [&](int i) {
            expect_named(edits[static_cast<std::size_t>(i)], static_cast<unsigned>(i));
        };
    });
}

// An image of zeros, with a trigger on map 2 and its script.
MemoryImage with_script(const char* script) {
    MemoryImage image{"a.smc", test::Bytes(0x300200)};
    test::put_objects(image.bytes, ObjectKind::event_trigger, 2, {{1, 2, 0x00, 0x10, 0x00}});
    test::put_bytes(image.bytes, 0xA1200, test::hex_bytes(script));
    return image;
}

TEST(Diff, ComparesScriptsRowByRow) {
    const struct {
        const char* before;
        const char* after;
        std::string lines;
    } rows[] = {
        {"38 39 3A FE", "38 39 3A FE", ""},
        {"38 39 3A FE", "38 3A FE FE", "A1201 39 (Free Screen) -> nothing; "},
        {"38 3A FE", "38 39 3A FE", "A1201 nothing -> 39 (Free Screen); "},
        {"D0 01 D0 02 FE", "D0 01 D0 03 FE",
         "A1202 D0 02 (Set event bit $1E80 + xx ($1E80 + $0xx)) -> D0 03 (Set event bit $1E80 + xx "
         "($1E80 + $0xx)); "},
        {"38 D0 01 39 3A FE", "D0 01 39 38 FE",
         "A1200 38 (Hold Screen) -> nothing; A1204 3A (Unknown) -> 38 (Hold Screen); "},
    };
    for (const auto& row : rows) {
        const MemoryImage before = with_script(row.before), after = with_script(row.after);
        std::string lines;
        for (const Difference& f : test::differences_of(read_whole(before), read_whole(after)))
            if (f.thing == "script A1200")
                lines += f.what.substr(7) + ' ' + (f.before.empty() ? "nothing" : f.before) +
                         " -> " + (f.after.empty() ? "nothing" : f.after) + "; ";
        EXPECT_EQ(lines, row.lines) << row.before;
    }
}

} // namespace
} // namespace veldrune::inspect
