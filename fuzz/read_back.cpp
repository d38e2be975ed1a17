#include "read_back.h"

#include "rom/patch_marks.h"
#include "write_plan.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace veldrune::test {
namespace {

// A field of a map that a load must show as it was typed, if it is a number below its limit and
// typed as the window would show it.
struct MapField {
    std::string Form1::*text;
    bool hexadecimal;
    std::int64_t limit;
    bool save_as; // Save As writes it, too
};
constexpr MapField map_fields[] = {
    {&Form1::Text8, false, 128, true},   {&Form1::Text9, false, 128, true},
    {&Form1::Text10, false, 128, true},  {&Form1::Text11, false, 128, true},
    {&Form1::Text6, false, 128, true},   {&Form1::Text7, false, 128, true},
    {&Form1::Text23, false, 64, false},  {&Form1::Text18, false, 32, true},
    {&Form1::Text13, false, 256, true},  {&Form1::Text16, false, 256, true},
    {&Form1::Text17, false, 256, true},  {&Form1::Text44, false, 256, false},
    {&Form1::Text37, false, 256, false}, {&Form1::Text45, false, 256, false},
    {&Form1::Text39, true, 256, false},  {&Form1::Text40, true, 256, false},
    {&Form1::Text42, true, 256, false},  {&Form1::Text43, true, 256, false},
    {&Form1::Text46, true, 128, false},  {&Form1::Text41, true, 256, false},
};

struct SizeFields {
    std::string Form1::*width;
    std::string Form1::*height;
};
constexpr SizeFields size_fields[] = {{&Form1::Text2, &Form1::Text5},
                                      {&Form1::Text1, &Form1::Text3},
                                      {&Form1::Text21, &Form1::Text22}};

std::string shown(std::int64_t value, bool hexadecimal) {
    char text[16];
    std::snprintf(text, sizeof text, hexadecimal ? "%llX" : "%lld", static_cast<long long>(value));
    return text;
}

bool is_plain(const std::string& text, bool hexadecimal, std::int64_t limit) {
    const std::int64_t value = hexadecimal ? hex_in(text) : decimal_in(text);
    return value >= 0 && value < limit && text == shown(value, hexadecimal);
}

void expect_fields_back(const EditorState& state, const ChosenMap& loaded, bool save_as) {
    Form1 form;
    show_record(state.rom, loaded.map_properties, form);
    show_monster_set(state.rom, loaded.map_index, form);
    for (const MapField& field : map_fields) {
        const std::string& typed = state.form1.*field.text;
        if ((!save_as || field.save_as) && is_plain(typed, field.hexadecimal, field.limit)) {
            EXPECT_EQ(form.*field.text, typed) << text_row(field.text).control;
        }
    }
    EXPECT_TRUE(save_as || form.Check8 == state.form1.Check8);
}

bool is_missing(const EditorState& state, std::size_t layer) {
    return layer == 2 && state.form1.Text25 == "19D3B0";
}

void expect_layer_back(const EditorState& state, const ChosenMap& loaded, std::size_t layer) {
    const bool missing = is_missing(state, layer);
    const auto side = [&](std::string Form1::*text) {
        return missing ? 16 : decimal_in(state.form1.*text);
    };
    const std::int64_t width = side(size_fields[layer].width);
    const std::int64_t height = side(size_fields[layer].height);
    const LayerMap& held = state.map.layers[layer].map;
    int different = 0;
    for (std::int64_t row = 0; row < height; ++row)
        for (std::int64_t column = 0; column < width; ++column)
            different += held.at(column, row) != loaded.layers[layer].map.at(column, row);
    EXPECT_EQ(different, 0) << "cells of layer " << layer + 1;
}

// A field of an object and the greatest value that it can hold.
struct ObjectField {
    std::string Form10::*text;
    std::int64_t limit;
};
using F = Form10;
constexpr ObjectField npc_fields[] = {
    {&F::Text1, 0xE0200}, {&F::Text2, 8}, {&F::Text5, 256}, {&F::Text6, 64}, {&F::Text7, 256}};
constexpr ObjectField chest_fields[] = {{&F::Text1, 256}, {&F::Text2, 256}};
constexpr ObjectField trigger_fields[] = {
    {&F::Text1, 256}, {&F::Text2, 256}, {&F::Text4, 0x1000000}};
constexpr ObjectField entrance_fields[] = {
    {&F::Text1, 256}, {&F::Text2, 256}, {&F::Text4, 0x10000}, {&F::Text7, 256}, {&F::Text5, 256}};
constexpr ObjectField long_fields[] = {{&F::Text1, 256}, {&F::Text2, 256}, {&F::Text4, 0x10000},
                                       {&F::Text7, 256}, {&F::Text5, 256}, {&F::Text6, 256}};
constexpr std::span<const ObjectField> object_fields[] = {npc_fields, chest_fields, trigger_fields,
                                                          entrance_fields, long_fields};

bool is_plain(const Form10& form, const ObjectField& field) {
    const bool script = field.limit > 0x10000;
    return is_plain(form.*field.text, true, field.limit) &&
           (!script || hex_in(form.*field.text) >= 0xA0200);
}

// The values of a script without the explanations, up to the end: what is between blanks.
std::vector<std::string> values_in(const ScriptGrid& grid) {
    std::vector<std::string> values;
    for (std::size_t row = 1; row + 1 < grid.size(); ++row)
        for (const ScriptColumn column : {primary, secondary, tertiary}) {
            std::string value = grid[row].cells[column];
            std::erase_if(value, [](char c) { return c == ' ' || c == '\r' || c == '\n'; });
            std::ranges::transform(value, value.begin(), [](unsigned char c) {
                return static_cast<char>(std::toupper(c));
            });
            values.push_back(value);
            if (column == primary && value == "FE")
                return values;
        }
    return values;
}

// Whether a value that was read back is the one that was saved. Lists and map data, which are
// longer than a number, may have been typed with blanks for zeros and with surplus offsets. Of half
// a byte the upper digit doesn't count.
bool same_value(const std::string& back, const std::string& held) {
    if (back.empty() || held.empty())
        return back == held;
    if (back.size() > 8 || held.size() > 8)
        return back.size() != held.size() || back == held;
    const std::int32_t value = hex_in(back);
    return value == hex_in(held) || (back.size() == 1 && value == (hex_in(held) & 0xF));
}

// The layer that all maps without a layer 3 share is saved as 16 by 16 tiles without a look at the
// size in the record, nor at what else the save writes over it.
bool may_differ(const ChosenMap& loaded, Writes writes) {
    constexpr std::size_t layer3 = 1;
    const std::int64_t begin = writes[layer3].offset;
    const std::int64_t end = begin + writes[layer3].size;
    const LayerSize size = layer_size(loaded.map_properties, 2);
    return size.width != 16 || size.height < 16 ||
           std::ranges::any_of(writes.subspan(layer3 + 1), [&](const MemoryDisk::Access& write) {
               return write.offset < end && write.offset + write.size > begin;
           });
}

void expect_map_back(const EditorState& state, Writes writes, bool save_as) {
    const auto loaded = std::make_unique<ChosenMap>();
    const auto buffer = std::make_unique<DecompressBuffer>();
    load_map(state.rom, state.map.map_index, *buffer, *loaded);
    EXPECT_TRUE(save_as || loaded->map_properties == state.map.map_properties);
    expect_fields_back(state, *loaded, save_as);
    for (std::size_t layer = 0; layer < layer_count; ++layer)
        if (!is_missing(state, layer) || !may_differ(*loaded, writes))
            expect_layer_back(state, *loaded, layer);
}

void expect_world_back(const EditorState& state) {
    const auto loaded = std::make_unique<OpenWorld>();
    const auto buffer = std::make_unique<DecompressBuffer>();
    EXPECT_EQ(load_world(state.rom, state.world.world, *buffer, *loaded),
              hex_in(state.form1.Text24));
    EXPECT_TRUE(loaded->world_map.cells == state.world.world_map.cells);
}

} // namespace

void expect_save_back(const EditorState& state, Writes writes) {
    state.world_map_open ? expect_world_back(state) : expect_map_back(state, writes, false);
}

void expect_save_as_back(const EditorState& state, Writes writes) {
    state.world_map_open ? expect_world_back(state) : expect_map_back(state, writes, true);
}

void expect_object_back(const EditorState& state, Writes) {
    const int tab = state.form10.TabStrip1;
    const auto kind = static_cast<ObjectKind>(tab);
    const int index = state.objects.selected_object.index.value_or(0);
    ObjectList list;
    load_object_list(state.rom, kind, state.objects.lists.map, list);
    if (index >= list.row_count ||
        list.first_offset != state.objects.lists[kind].first_offset) // it lies on the pointers
        return;
    ObjectBytes record{};
    std::ranges::copy(object_row(kind, list, index), record.begin());
    Form10 form;
    unpack_object(kind, record, form);
    const auto fields = object_fields[tab];
    if (!std::ranges::all_of(
            fields, [&](const ObjectField& field) { return is_plain(state.form10, field); }))
        return;
    for (const ObjectField& field : fields)
        EXPECT_EQ(form.*field.text, state.form10.*field.text);
}

// The bytes that were loaded are saved without a look at how they would be read by now: the
// dialogues that give the lengths of lists may have changed since then.
void expect_script_back(const EditorState& state, Writes) {
    const std::int64_t offset = state.objects.selected_object.script_offset;
    Bytes bytes(state.script.loaded.bytes.size());
    state.rom.read(offset, bytes);
    if (bytes == state.script.loaded.bytes)
        return;
    ScriptGrid grid;
    const LoadedScript loaded =
        load_script(state.rom, offset, state.script.entry.dialogue_patched, grid);
    EXPECT_TRUE(loaded.whole);
    const std::vector<std::string> back = values_in(grid);
    const std::vector<std::string> held = values_in(state.form9.grid);
    const auto differs = std::ranges::mismatch(back, held, same_value);
    EXPECT_TRUE(differs.in1 == back.end() && differs.in2 == held.end())
        << "value " << differs.in1 - back.begin() << ": "
        << (differs.in1 == back.end() ? "none" : *differs.in1) << ", not "
        << (differs.in2 == held.end() ? "none" : *differs.in2);
}

} // namespace veldrune::test
