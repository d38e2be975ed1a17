#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace veldrune::inspect {

/// How text shows the numbers of a column: as the editor does at that place. JSON has them as
/// decimal numbers whatever the form.
enum class CellForm {
    decimal,
    hexadecimal, // upper case, without leading zeros
    size,        // two numbers as "64x32"
    words,
};

struct Column {
    const char* key;     // in JSON, with "_" for "-"; lower case, never renamed
    const char* heading; // in text
    CellForm form;
};

/// A number of which text shows the hexadecimal digits, whatever its column's form.
struct HexNumber {
    std::int64_t value;
};
/// Nothing, a number, words, or several numbers. Nothing is blank in text and null in JSON.
struct Cell {
    enum Kind { nothing, number, hex_number, words, numbers } kind = nothing;
    std::int64_t value = 0;
    std::string text;
    std::vector<std::int64_t> values;

    Cell() = default;
    Cell(std::integral auto the_value)
        : kind(number), value(static_cast<std::int64_t>(the_value)) {}
    Cell(HexNumber hex) : kind(hex_number), value(hex.value) {}
    Cell(std::string the_words) : kind(words), text(std::move(the_words)) {}
    Cell(const char* the_words) : kind(words), text(the_words) {}
    /// Text shows the numbers one after the other, or these words in their place.
    Cell(std::vector<std::int64_t> all, std::string shown = {})
        : kind(numbers), text(std::move(shown)), values(std::move(all)) {}
};

/// A cell as text shows it in a column of this form.
std::string cell_text(const Cell& cell, CellForm form);

/// What a report says: a table of plain values.
struct Listing {
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows; // as many cells each as there are columns
};

} // namespace veldrune::inspect
