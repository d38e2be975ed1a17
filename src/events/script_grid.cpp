#include "events/script_grid.h"

#include "events/command_table.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>

namespace veldrune {
namespace {

constexpr const char* headers[script_column_count] = {
    "Primary\r\nCommands", "Secondary\r\nCommands", "Tertiary\r\nCommands",
    "Approximate English Explanations"};

std::string without(std::string_view text, std::string_view dropped) {
    std::string kept;
    std::ranges::copy_if(text, std::back_inserter(kept),
                         [&](char c) { return dropped.find(c) == std::string_view::npos; });
    return kept;
}

// The value of every character; 0x10 where it is no digit.
constexpr auto hex_digits = [] {
    std::array<std::uint8_t, 256> values;
    values.fill(0x10);
    for (std::uint8_t digit = 0; digit < 0x10; ++digit)
        values[static_cast<unsigned char>("0123456789ABCDEF"[digit])] =
            values[static_cast<unsigned char>("0123456789abcdef"[digit])] = digit;
    return values;
}();

bool is_row(const ScriptGrid& grid, int row) {
    return row >= 0 && row < static_cast<int>(grid.size());
}

// What is between blanks and line breaks.
std::vector<std::string> pieces_of(std::string_view cell) {
    std::vector<std::string> pieces;
    for (std::size_t at = 0; at < cell.size();) {
        const std::size_t end = std::min(cell.find_first_of(" \r\n", at), cell.size());
        if (end > at)
            pieces.emplace_back(cell.substr(at, end - at));
        at = end + 1;
    }
    return pieces;
}

bool is_one_offset(const std::string& piece) {
    const std::optional<std::uint64_t> value = plain_hex(piece);
    return value && (piece.size() == 5 || piece.size() == 6 ||
                     (piece.size() == 7 && *value >= 0x1000000 && *value <= highest_script_offset));
}

// Appends the lines of a cell, in upper case, less blanks and leading zeros.
void append_lines(std::string_view cell, std::string& values) {
    std::size_t start = values.size(); // of the line
    for (const char c : cell) {
        if (c == ' ' || c == '\r')
            continue;
        if (values.size() == start + 1 && values.back() == '0' && c != '\n')
            values.pop_back();
        values += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (c == '\n')
            start = values.size();
    }
}

} // namespace

ScriptGrid empty_script_grid() {
    ScriptGrid grid{ScriptRow{{}, script_header_height}, blank_script_row()};
    std::ranges::copy(headers, grid[0].cells.begin());
    return grid;
}

ScriptRow script_row(ScriptColumn column, std::string_view value, std::string_view label) {
    ScriptRow row{{column == primary ? " " : "  ", " ", " ", std::string(label)}};
    row.cells[column] += value;
    return row;
}

ScriptRow blank_script_row(std::string_view label) {
    return {{" ", {}, {}, std::string(label)}};
}

std::string cell_text(std::string_view value) {
    return std::string(1, ' ').append(value);
}

bool is_blank(const ScriptRow& row) {
    return std::ranges::all_of(row.cells, [](const std::string& cell) { return is_blank(cell); });
}

std::string without_blanks(std::string_view cell) {
    return without(cell, " ");
}

std::string without_breaks(std::string_view cell) {
    return without(cell, " \r\n");
}

std::optional<std::uint64_t> plain_hex(std::string_view cell) {
    constexpr std::uint64_t beyond = std::uint64_t{1} << 32;
    std::uint64_t value = 0;
    bool any = false;
    for (const char c : cell) {
        if (c == ' ')
            continue;
        const unsigned digit = hex_digits[static_cast<unsigned char>(c)];
        if (digit > 0xF)
            return std::nullopt;
        value = std::min(beyond, value * 16 + digit);
        any = true;
    }
    return any ? std::optional(value) : std::nullopt;
}

std::string padded(std::string_view digits, std::size_t width) {
    return std::string(width - std::min(width, digits.size()), '0').append(digits);
}

bool starts_command(const ScriptGrid& grid, int row) {
    return row > 0 && is_row(grid, row) && !is_blank(row_at(grid, row).cells[primary]);
}

int command_code_at(const ScriptGrid& grid, int row) {
    if (!starts_command(grid, row))
        return -1;
    return static_cast<int>(plain_hex(row_at(grid, row).cells[primary]).value_or(0) & 0xFF);
}

int command_end(const ScriptGrid& grid, int row) {
    const int spare = static_cast<int>(grid.size()) - 1;
    do
        ++row;
    while (row < spare && !starts_command(grid, row));
    return std::min(row, spare);
}

int script_end(const ScriptGrid& grid) {
    int row = 0;
    while (is_row(grid, row) && command_code_at(grid, row) != return_command)
        ++row;
    return std::min(row + 1, static_cast<int>(grid.size()));
}

std::string values_of(const ScriptGrid& grid) {
    std::string values;
    for (const ScriptRow& row : grid)
        for (const ScriptColumn column : {primary, secondary, tertiary}) {
            append_lines(row.cells[column], values);
            values += '\t';
        }
    return values;
}

void insert_row(ScriptGrid& grid, int row, ScriptRow what) {
    grid.insert(grid.begin() + row, std::move(what));
}

void remove_rows(ScriptGrid& grid, int first, int end) {
    grid.erase(grid.begin() + first, grid.begin() + end);
}

std::optional<std::vector<std::string>> offsets_in(std::string_view cell) {
    std::vector<std::string> offsets = pieces_of(cell);
    if (std::ranges::all_of(offsets, is_one_offset))
        return offsets;
    const std::string digits = without_breaks(cell);
    if (digits.size() % 6 != 0)
        return std::nullopt;
    offsets.clear();
    for (std::size_t at = 0; at < digits.size(); at += 6)
        offsets.push_back(digits.substr(at, 6));
    return offsets;
}

} // namespace veldrune
