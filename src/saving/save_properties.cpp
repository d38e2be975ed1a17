#include "saving/save_properties.h"

#include "rom/number_field.h"
#include "rom/reported_access.h"
#include "rom/rom_layout.h"

#include <optional>
#include <span>

namespace veldrune {
namespace {

using enum RecordField;

// Each in the order in which a save reads the fields and reports errors.
// clang-format off
constexpr RecordField save_as_sizes[]   = {
    layer_fields[1].height, layer_fields[1].width, layer_fields[0].height, layer_fields[0].width,
};
constexpr RecordField formations[]      = {
    layer_fields[1].formation, layer_fields[0].formation, layer_fields[2].formation,
};
constexpr RecordField shifts[]          = {left_shift1, left_shift2, upward_shift1, upward_shift2};
constexpr RecordField animated[]        = {animated_tileset};
constexpr RecordField viewable[]        = {viewable_first, viewable_second};
constexpr RecordField others[]          = {
    song, palette, layer_priorities, scroll_index, battles_enabled, battle_background,
};
constexpr RecordField save_as_palette[] = {palette};

// The fields that Save merges after the pointers are written.
using Fields = std::span<const RecordField>;
constexpr Fields after_pointers[] = {shifts, tileset_fields, animated, viewable, others};

// The parts of the record that Save As writes: fields and the bytes that contain them.
struct SaveAsStep { Fields fields; std::size_t first_byte; std::size_t byte_count; };
constexpr SaveAsStep save_as_steps[] = {
    {formations, 11, 2},
    {save_as_palette, 25, 1},
    {tileset_fields, 7, 4},
    {animated,   27, 1},
    {viewable,   30, 2},
};
constexpr std::size_t size_byte = 23; // of layers 1 and 2
// clang-format on

// The number of doublings from the smallest side to the size. Reports a size that is none of these.
std::optional<std::uint32_t> doubling_code(NumberForm form, int tiles, Dialogs& dialogs) {
    const bool width = form == NumberForm::width;
    const int max = width ? max_layer_width : max_layer_height;
    for (std::uint32_t code = 0; min_layer_side << code <= max; ++code)
        if (tiles == min_layer_side << code)
            return code;
    dialogs.error(width ? "The map width must be either 16, 32, 64, or 128"
                        : "The map height must be either 16, 32, or 64");
    return std::nullopt;
}

// The number of halvings from the size, modulo 256, down to the smallest side. Reports a size that
// does not reach it.
std::optional<std::uint32_t> halving_code(NumberForm, int tiles, Dialogs& dialogs) {
    std::uint32_t code = 0;
    int side = tiles % 256;
    for (; side > min_layer_side; side /= 2)
        ++code;
    if (side == min_layer_side)
        return code;
    dialogs.message(MessageKind::error, "Not a valid mapsize", "error");
    return std::nullopt;
}

// The number in the field's control; 1 for a ticked box, 0 for another.
TextNumber control_number(Form1& form, RecordField field, Dialogs& dialogs) {
    const auto& control = record_row(field).control;
    if (const auto* box = std::get_if<bool Form1::*>(&control))
        return {form.*(*box), true};
    return read_field(form, std::get<std::string Form1::*>(control), dialogs);
}

// Leaves the bits of the record where a text is not a number.
void merge_fields(MapProperties& record, Form1& form, Fields fields, Dialogs& dialogs) {
    for (const RecordField field : fields) {
        const TextNumber number = control_number(form, field, dialogs);
        if (number.is_number)
            set_record_value(record, field, static_cast<std::uint32_t>(number.value));
    }
}

using SizeCode = std::optional<std::uint32_t> (*)(NumberForm form, int tiles, Dialogs& dialogs);

// False where a size has no code, which is reported. The bits then stay as they are, also where the
// text is not a number.
bool merge_size(MapProperties& record, Form1& form, RecordField field, SizeCode size_code,
                Dialogs& dialogs) {
    const auto text = std::get<std::string Form1::*>(record_row(field).control);
    const TextNumber tiles = read_field(form, text, dialogs);
    const auto code = size_code(text_row(text).form, tiles.value, dialogs);
    if (code && tiles.is_number)
        set_record_value(record, field, *code);
    return code.has_value();
}

// The pointer table's bytes for the layer's "Map Data Location".
Pointer24 location_pointer(Form1& form, int layer, Dialogs& dialogs) {
    const std::int64_t location = read_field(form, layer_controls[layer].location, dialogs).value;
    return pointer24_bytes(location - rom_layout::layer_data);
}

bool write_pointers(RomImage& rom, Form1& form, const MapProperties& record, Dialogs& dialogs) {
    for (int layer = 0; layer < layer_count; ++layer) {
        const std::int64_t entry = data_pointer_offset(layer_data_number(record, layer));
        if (!write_or_report(rom, entry, location_pointer(form, layer, dialogs), dialogs))
            return false;
    }
    return true;
}

// Only layers 2 and 1. Each byte is written separately, the most significant first.
bool write_save_as_pointers(RomImage& rom, Form1& form, const MapProperties& at_load,
                            Dialogs& dialogs) {
    for (const int layer : {1, 0}) {
        const std::int64_t entry = data_pointer_offset(layer_data_number(at_load, layer));
        const Pointer24 pointer = location_pointer(form, layer, dialogs);
        for (const std::size_t i : {2u, 1u, 0u})
            if (!write_or_report(rom, entry + static_cast<std::int64_t>(i), {&pointer[i], 1},
                                 dialogs))
                return false;
    }
    return true;
}

} // namespace

bool save_map_properties(RomImage& rom, Form1& form, MapProperties& record, int map_index,
                         Dialogs& dialogs) {
    MapProperties merged = record;
    for (const auto size : {&LayerFields::width, &LayerFields::height})
        for (const LayerFields& fields : layer_fields)
            merge_size(merged, form, fields.*size, doubling_code, dialogs);
    merge_fields(merged, form, formations, dialogs);
    if (!write_pointers(rom, form, merged, dialogs))
        return false;
    for (const Fields fields : after_pointers)
        merge_fields(merged, form, fields, dialogs);
    const auto monster_set =
        static_cast<std::uint8_t>(read_field(form, &Form1::Text41, dialogs).value);
    if (!write_or_report(rom, monster_set_offset(map_index), {&monster_set, 1}, dialogs) ||
        !write_or_report(rom, record_offset(map_index), merged, dialogs))
        return false;
    record = merged;
    return true;
}

std::optional<std::int64_t> saved_property(std::string Form1::*field, std::string text) {
    const NumberForm form = text_row(field).form;
    SilentDialogs silent;
    const TextNumber number = parse_number_text(form, text, silent);
    const RecordRow* row = record_row_of(field);
    if (form == NumberForm::location)
        return ((std::int64_t{number.value} - rom_layout::layer_data) & 0xFFFFFF) +
               rom_layout::layer_data;
    if (!row) // the monster set, a byte of its own
        return static_cast<std::uint8_t>(number.value);
    if (!number.is_number)
        return std::nullopt;
    if (!is_size(form))
        return static_cast<std::uint32_t>(number.value) & row->bits.mask();
    const auto code = doubling_code(form, number.value, silent);
    return code ? std::optional(std::int64_t{min_layer_side} << *code) : std::nullopt;
}

bool save_map_properties_as(RomImage& rom, Form1& form, const MapProperties& at_load, int map_index,
                            Dialogs& dialogs) {
    if (!write_save_as_pointers(rom, form, at_load, dialogs))
        return false;
    const ReadWatch reads(rom);
    MapProperties record = read_record(rom, map_index);
    if (report_refused_reads(reads, "Nothing more is written.", dialogs))
        return false;
    const auto write_bytes = [&](std::size_t first, std::size_t count) {
        return write_or_report(rom, record_offset(map_index) + static_cast<std::int64_t>(first),
                               std::span(record).subspan(first, count), dialogs);
    };
    set_record_value(record, byte27_high, record_value(at_load, byte27_high));
    for (const SaveAsStep& step : save_as_steps) {
        merge_fields(record, form, step.fields, dialogs);
        // Of the number of layer 3's graphics only the bits in byte 11 are taken from the window.
        record[10] = static_cast<std::uint8_t>((record[10] & 0x0F) | (at_load[10] & 0xF0));
        if (!write_bytes(step.first_byte, step.byte_count))
            return false;
    }
    for (const RecordField field : save_as_sizes)
        if (!merge_size(record, form, field, halving_code, dialogs))
            return true;
    return write_bytes(size_byte, 1);
}

} // namespace veldrune
