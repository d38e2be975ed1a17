#pragma once

#include "forms/form9.h"
#include "rom/rom_layout.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veldrune {

/// The grid of a script, a plain table of text cells: row 0 is the header, the last row is a spare
/// blank one. A command is a row with a non-blank primary cell and all rows down to the next such
/// row. All functions take rows of the grid.

using ScriptGrid = std::vector<ScriptRow>;

inline ScriptRow& row_at(ScriptGrid& grid, int row) {
    return grid[static_cast<std::size_t>(row)];
}
inline const ScriptRow& row_at(const ScriptGrid& grid, int row) {
    return grid[static_cast<std::size_t>(row)];
}

/// The header and the spare row of an empty script.
ScriptGrid empty_script_grid();

/// A row that holds a value in one column, with a blank in front, and a label.
ScriptRow script_row(ScriptColumn column, std::string_view value, std::string_view label);
/// A row that waits for a value.
ScriptRow blank_script_row(std::string_view label = {});

/// A value as a cell holds it, with a blank in front.
std::string cell_text(std::string_view value);

/// Whether a cell holds only blanks.
inline bool is_blank(std::string_view cell) {
    return std::ranges::all_of(cell, [](char c) { return c == ' '; });
}
/// Whether all cells of a row are blank.
bool is_blank(const ScriptRow& row);
/// A cell's text less its blanks and, if wanted, its line breaks.
std::string without_blanks(std::string_view cell);
std::string without_breaks(std::string_view cell);

/// The number in a cell of hexadecimal digits and blanks; beyond 32 bits it stays at 0x100000000.
/// Nothing where the cell holds anything else or no digit.
std::optional<std::uint64_t> plain_hex(std::string_view cell);

/// Digits padded on the left with zeros to a width.
std::string padded(std::string_view digits, std::size_t width);

/// Whether a command begins in this row.
bool starts_command(const ScriptGrid& grid, int row);
/// The code of the command that begins in this row; -1 where none does.
int command_code_at(const ScriptGrid& grid, int row);
/// The row after the last one of the command to which a row belongs; at most the spare row.
int command_end(const ScriptGrid& grid, int row);
/// The row after the first "Return", from which on a save leaves all out; the number of rows of a
/// grid without one.
int script_end(const ScriptGrid& grid);

/// The values in the cells as one text, which is the same for grids that differ only in their
/// explanations and in how the values are written: blanks, leading zeros, upper and lower case.
std::string values_of(const ScriptGrid& grid);

void insert_row(ScriptGrid& grid, int row, ScriptRow what);
void remove_rows(ScriptGrid& grid, int first, int end);

/// The values that a pointer of a script can have, as cells show it.
inline constexpr std::uint64_t lowest_script_offset = rom_layout::event_scripts;
inline constexpr std::uint64_t highest_script_offset = lowest_script_offset + 0xFFFFFF;

/// The offsets in a list cell, each as its digits. Where every piece between blanks or line breaks
/// is as long as an offset, with five or six digits, or seven from 1000000 to 10A01FF, each is one;
/// otherwise all digits are taken six by six. Nothing where their number is no multiple of six.
std::optional<std::vector<std::string>> offsets_in(std::string_view cell);

} // namespace veldrune
