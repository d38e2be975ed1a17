#include "events/script_rows.h"

#include "rom/number_text.h"

#include <algorithm>

namespace veldrune {
namespace {

constexpr const char* bad_list =
    "Each offset must be 6 digit hex, (i.e. 0A0200 or some such thing)\n"
    "You can use spaces as seporators, but nothing else or so help me God...";
constexpr const char* bad_map_data = "You've entered the map data in an incorrect format.\n"
                                     "Each byte must be two didgit hex (i.e. 01 or 1F)\n"
                                     "and you must enter exactly (Width*Height) bytes of data.";

std::size_t digits_of(ParameterKind kind) {
    return 2 * static_cast<std::size_t>(size_of(kind));
}

void normalise_cell(std::string& cell, ParameterKind kind) {
    cell = cell_text(padded(without_blanks(cell), digits_of(kind)));
}

// A cell of lines: a blank before every line and after the last line break.
std::string lines_cell(const std::vector<std::string>& lines) {
    std::string cell = " ";
    for (const std::string& line : lines)
        cell += line + "\r\n ";
    return cell;
}

bool normalise_offsets(ScriptRow& row) {
    std::optional<std::vector<std::string>> offsets = offsets_in(row.cells[secondary]);
    if (!offsets)
        return false;
    for (std::string& offset : *offsets)
        offset = padded(offset, digits_of(ParameterKind::pointer));
    row.cells[secondary] = lines_cell(*offsets);
    row.height = static_cast<int>(offsets->size()) * script_line_height;
    return true;
}

// The value of one of the rows above the map data.
std::uint32_t size_in(const ScriptRow& row, Dialogs& dialogs) {
    std::string text = row.cells[secondary];
    return static_cast<std::uint32_t>(parse_hex_text(text, dialogs));
}

// The data may have the full size, or as many bytes of it as a script holds.
bool normalise_map_data(ScriptGrid& grid, int row, Dialogs& dialogs) {
    const std::uint64_t width = size_in(row_at(grid, row - 2), dialogs);
    const std::uint64_t height = size_in(row_at(grid, row - 1), dialogs);
    ScriptRow& data = row_at(grid, row);
    const std::string digits = without_breaks(data.cells[secondary]);
    const std::size_t count = digits.size() / 2;
    if (digits.size() % 2 != 0 || (count != width * height && count != width * height % 256))
        return false;
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < digits.size(); at += width * 2)
        lines.push_back(digits.substr(at, width * 2));
    data.cells[secondary] = lines_cell(lines);
    data.height = static_cast<int>(std::min<std::uint64_t>(height, 0xFF)) * script_line_height;
    return true;
}

void normalise_actions(ScriptGrid& grid, int row, int end) {
    std::span<const Parameter> parameters;
    for (; row < end; ++row) {
        auto& cells = row_at(grid, row).cells;
        if (!is_blank(cells[secondary])) {
            const ScriptCommand* action = action_in(row_at(grid, row));
            parameters = action ? action->parameters() : std::span<const Parameter>{};
            normalise_cell(cells[secondary], ParameterKind::byte);
        } else if (!parameters.empty()) {
            normalise_cell(cells[tertiary], parameters.front().kind);
            parameters = parameters.subspan(1);
        }
    }
}

} // namespace

std::uint64_t number_in(const std::string& cell, Dialogs& dialogs) {
    if (const auto value = plain_hex(cell))
        return *value;
    std::string text = cell;
    return static_cast<std::uint32_t>(parse_hex_text(text, dialogs));
}

void add_command_rows(ScriptGrid& grid, int row, const ScriptCommand& command) {
    insert_row(grid, row, script_row(primary, format_hex(command.code), command.label.added));
    for (const Parameter& parameter : command.parameters())
        insert_row(grid, ++row, blank_script_row(parameter.label.added));
}

std::optional<CellRefusal> normalise_command(ScriptGrid& grid, int row, Dialogs& dialogs) {
    const int code = command_code_at(grid, row);
    if (code < 0)
        return std::nullopt;
    const ScriptCommand& command = script_command(static_cast<std::uint8_t>(code));
    const int end = command_end(grid, row);
    normalise_cell(row_at(grid, row).cells[primary], ParameterKind::byte);
    for (const Parameter& parameter : command.parameters()) {
        if (++row == end)
            return std::nullopt;
        if (parameter.kind == ParameterKind::offset_list) {
            if (!normalise_offsets(row_at(grid, row)))
                return CellRefusal{row, secondary, bad_list, "Oh no jou dihdn't"};
        } else if (parameter.kind == ParameterKind::map_data) {
            if (!normalise_map_data(grid, row, dialogs))
                return CellRefusal{row, secondary, bad_map_data, "Nope"};
        } else {
            normalise_cell(row_at(grid, row).cells[secondary], parameter.kind);
        }
    }
    if (command.is_queue())
        normalise_actions(grid, row + 1, end);
    return std::nullopt;
}

const ScriptCommand* action_in(const ScriptRow& row) {
    const std::uint64_t code = plain_hex(row.cells[secondary]).value_or(0x100);
    return code > 0xFF ? nullptr : &queue_action(static_cast<std::uint8_t>(code));
}

int queue_bytes(const ScriptGrid& grid, int row) {
    int bytes = 0;
    const int end = command_end(grid, row);
    for (int at = row + 2; at < end; ++at) {
        const ScriptRow& cells = row_at(grid, at);
        if (const ScriptCommand* action = action_in(cells))
            bytes += action_size(action->code);
        else if (!is_blank(cells.cells[secondary]))
            ++bytes;
    }
    return bytes;
}

} // namespace veldrune
