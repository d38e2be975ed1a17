#include "write_plan.h"

#include <algorithm>
#include <array>
#include <limits>

namespace veldrune::test {
namespace {

constexpr std::int64_t layers_at = 0x19D3B0;
constexpr std::int64_t layer_pointers_at = 0x19CF90;
constexpr std::int64_t records_at = 0x2D9100;
constexpr std::int64_t monster_sets_at = 0xF5800;
constexpr std::int64_t added_at = 0x300200;
constexpr std::int64_t largest_image = 0x400200;
constexpr int maps = 414;

// The order in which the layers are written, and their fields.
struct LayerFields {
    int layer;
    std::string Form1::*width;
    std::string Form1::*height;
    std::string Form1::*location;
};
constexpr LayerFields passes[] = {
    {0, &Form1::Text2, &Form1::Text5, &Form1::Text14},
    {2, &Form1::Text21, &Form1::Text22, &Form1::Text25},
    {1, &Form1::Text1, &Form1::Text3, &Form1::Text12},
};

// The kinds of object in the order of the tabs: base and size of their records.
struct Records {
    std::int64_t base, size;
};
constexpr Records records[] = {
    {0x41C10, 9}, {0x2D8834, 5}, {0x40200, 5}, {0x1FBD00, 6}, {0x2DF680, 7}};

Bytes bytes_at(const EditorState& state, std::int64_t offset, std::size_t count) {
    Bytes bytes(count);
    state.rom.read(offset, bytes);
    return bytes;
}

// The pointer of a data number leads there.
std::int64_t stream_of(const EditorState& state, int number) {
    const Bytes b = bytes_at(state, layer_pointers_at + 3 * number, 3);
    return layers_at + (b[0] | b[1] << 8 | b[2] << 16);
}

std::array<int, 3> data_numbers(std::span<const std::uint8_t> record) {
    return {(record[13] | record[14] << 8) & 0x3FF, (record[14] | record[15] << 8) >> 2 & 0x3FF,
            (record[15] | record[16] << 8) >> 4 & 0x3FF};
}

bool is_missing(const EditorState& state, int layer) {
    return layer == 2 && state.form1.Text25 == "19D3B0";
}

bool layers_fit(const EditorState& state) {
    return std::ranges::all_of(passes, [&](const LayerFields& pass) {
        if (is_missing(state, pass.layer))
            return true;
        const std::int64_t tiles =
            decimal_in(state.form1.*pass.width) * decimal_in(state.form1.*pass.height);
        return tiles > 0 && tiles <= 128 * 64 &&
               !state.map.layers[static_cast<std::size_t>(pass.layer)].rows_missing;
    });
}

// The streams of other data numbers that maps use.
std::vector<std::int64_t> streams_of_others(const EditorState& state, int own) {
    std::array<bool, 1024> used{};
    for (int map = 0; map < maps; ++map)
        for (const int number : data_numbers(bytes_at(state, records_at + 33 * map, 33)))
            used[static_cast<std::size_t>(number)] = number != own;
    std::vector<std::int64_t> streams;
    for (int number = 0; number < 1024; ++number)
        if (used[static_cast<std::size_t>(number)])
            streams.push_back(stream_of(state, number));
    return streams;
}

PlannedWrite planned_layer(const EditorState& state, const LayerFields& pass) {
    constexpr std::int64_t longest = 9001;
    const Layer& layer = state.map.layers[static_cast<std::size_t>(pass.layer)];
    PlannedWrite write{hex_in(state.form1.*pass.location), 3, longest, layer.layer_packed_size};
    if (is_missing(state, pass.layer))
        return write;
    if (write.offset != layers_at + layer.layer_offset)
        write.doubtful = streams_of_others(
            state, data_numbers(state.map.record_at_load)[static_cast<std::size_t>(pass.layer)]);
    write.doubtful.push_back(std::max(write.offset, largest_image));
    return write;
}

void ask_for_name(const EditorState& state, Plan& plan) {
    plan.nameless = state.rom.path_leads_here() == Answer::no;
}

void ask_for_source(const EditorState& state, const ImageSource& source, Plan& plan) {
    if (source.identity != state.rom.identity())
        plan.questions.push_back("This map was read from " + source.path);
}

void ask_for_painting(bool unsaved, Plan& plan) {
    if (unsaved)
        plan.questions.push_back("has not been saved and would count as given up");
}

Plan plan_of_world(const EditorState& state) {
    constexpr std::int64_t longest = 0x7FFF;
    constexpr std::int64_t map_pointers[] = {0x2EB40F, 0x2EB421};
    if (!state.world.source || state.world.world_packed_size > longest)
        return {};
    const std::int64_t location = hex_in(state.form1.Text24);
    const bool nameable = location >= 0x100200 && location <= 0x4001FF;
    PlannedWrite stream{location, 3, longest, state.world.world_packed_size};
    stream.doubtful = {nameable ? largest_image : location};
    Plan plan{{stream}, 0, {}};
    if (nameable)
        plan.writes.push_back({map_pointers[static_cast<int>(state.world.world)], 3, 3});
    ask_for_source(state, *state.world.source, plan);
    ask_for_painting(state.map.unsaved_painting, plan);
    return plan;
}

// The streams of the chosen map; none where it can't be saved.
Plan plan_of_layers(const EditorState& state) {
    if (!state.map.source || !layers_fit(state))
        return {};
    Plan plan;
    for (const LayerFields& pass : passes)
        plan.writes.push_back(planned_layer(state, pass));
    ask_for_source(state, *state.map.source, plan);
    ask_for_painting(state.world.unsaved_painting, plan);
    return plan;
}

void add_writes(Plan& plan, std::int64_t base, std::initializer_list<PlannedWrite> writes) {
    for (PlannedWrite write : writes) {
        write.offset += base;
        write.most = write.least;
        plan.writes.push_back(write);
    }
}

// Whether bytes of the added area that mean something would change.
bool holds_data(const EditorState& state, const Bytes& written) {
    const Bytes held = bytes_at(state, added_at, written.size());
    for (std::size_t i = 0; i < held.size(); ++i)
        if (held[i] != 0 && held[i] != 0xFF && held[i] != written[i])
            return true;
    return false;
}

void ask_for_area(const EditorState& state, const Bytes& written, Plan& plan) {
    if (holds_data(state, written))
        plan.questions.push_back("It would be overwritten");
}

int hex_digit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

} // namespace

std::int32_t hex_in(const std::string& text) {
    std::uint32_t value = 0;
    int digit = 0, place = 0;
    for (std::size_t i = text.size(); i-- > 0 && place < 8;) {
        const bool line_break = (text[i] == '\n' && i > 0 && text[i - 1] == '\r') ||
                                (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n');
        const bool inside_character = (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80;
        if (text[i] == ' ' || line_break || inside_character)
            continue;
        if (hex_digit(text[i]) >= 0)
            digit = hex_digit(text[i]);
        value |= static_cast<std::uint32_t>(digit) << 4 * place++;
    }
    return static_cast<std::int32_t>(value);
}

std::int64_t decimal_in(const std::string& text) {
    std::int64_t value = 0;
    for (std::size_t i = std::min(text.find_first_not_of(' '), text.size());
         i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        value =
            std::min<std::int64_t>(value * 10 + (text[i] - '0'), std::numeric_limits<int>::max());
    return value;
}

Plan plan_of_save(const EditorState& state) {
    if (state.world_map_open) {
        Plan plan = plan_of_world(state);
        ask_for_name(state, plan);
        return plan;
    }
    Plan plan = plan_of_layers(state);
    if (plan.writes.empty())
        return plan;
    ask_for_name(state, plan);
    for (const int number : data_numbers(state.map.map_properties))
        add_writes(plan, layer_pointers_at, {{3 * number, 3}});
    add_writes(plan, monster_sets_at, {{state.map.map_index, 1}});
    add_writes(plan, records_at, {{33 * state.map.map_index, 33}});
    return plan;
}

Plan plan_of_save_as(const EditorState& state) {
    if (state.world_map_open)
        return plan_of_world(state);
    Plan plan = plan_of_layers(state);
    if (plan.writes.empty())
        return plan;
    const std::array<int, 3> numbers = data_numbers(state.map.record_at_load);
    for (const int number : {numbers[1], numbers[0]})
        add_writes(plan, layer_pointers_at + 3 * number, {{2, 1}, {1, 1}, {0, 1}});
    add_writes(plan, records_at + 33 * state.map.map_index,
               {{11, 2}, {25, 1}, {7, 4}, {27, 1}, {30, 2}, {23, 1}});
    plan.optional = 1; // the sizes, where they can't be halved to 16
    return plan;
}

Plan plan_of_expansion(const EditorState& state) {
    if (state.rom.size().value_or(largest_image) >= largest_image)
        return {};
    Plan plan;
    const std::int64_t size = largest_image - added_at;
    add_writes(plan, added_at, {{0, size}});
    ask_for_area(state, Bytes(static_cast<std::size_t>(size)), plan);
    ask_for_name(state, plan);
    return plan;
}

Plan plan_of_patch(const EditorState& state) {
    constexpr std::size_t texts = 3327;
    constexpr std::size_t last_in_first_bank = 1591;
    const Bytes narrow = bytes_at(state, 0xCE802, 2 * texts);
    Bytes wide;
    for (std::size_t i = 0; i < texts; ++i)
        wide.insert(wide.end(), {narrow[2 * i], narrow[2 * i + 1],
                                 static_cast<std::uint8_t>(i > last_in_first_bank ? 0xCE : 0xCD)});
    Plan plan;
    add_writes(plan, 0, {{added_at, 3 * texts}, {0x81BF, 29}, {0x3000E1, 1}});
    ask_for_area(state, wide, plan);
    ask_for_name(state, plan);
    return plan;
}

Plan plan_of_object(const EditorState& state) {
    const std::optional<int>& index = state.objects.selected_object.index;
    const ObjectLists& lists = state.objects.lists;
    const auto kind = static_cast<std::size_t>(state.form10.TabStrip1);
    if (!index || !lists.source || lists.source->identity != state.rom.identity() ||
        *index >= lists.lists[kind].row_count)
        return {};
    Plan plan;
    const Records& table = records[kind];
    add_writes(plan, table.base + lists.lists[kind].first_offset,
               {{*index * table.size, table.size}});
    ask_for_name(state, plan);
    return plan;
}

Plan plan_of_script(const EditorState& state) {
    const OpenScript& script = state.script;
    const std::int64_t offset = state.objects.selected_object.script_offset;
    if (!state.form9.visible || !script.loaded.whole || !script.source ||
        script.source->identity != state.rom.identity())
        return {};
    Plan plan{{{offset, 1, std::ssize(script.loaded.bytes)}}, 0, {}};
    if (offset != script.loaded.offset)
        plan.questions.push_back("and will be written to");
    ask_for_name(state, plan);
    return plan;
}

} // namespace veldrune::test
