#pragma once

#include <cstddef>
#include <iterator>
#include <string>

namespace veldrune {

/// The row of a text in a table. Throws where there is none.
constexpr const auto& row_of(const auto& rows, const auto text) {
    for (const auto& row : rows)
        if (row.text == text)
            return row;
    throw "no row of this text";
}

/// The number of rows of a text.
constexpr int count_rows(const auto& rows, const auto text) {
    int count = 0;
    for (const auto& row : rows)
        count += row.text == text;
    return count;
}

/// Whether each text of a window has exactly one row. Texts is a struct of these texts only.
template <typename Texts>
constexpr bool each_has_one_row(const auto& rows) {
    for (const auto& row : rows)
        if (count_rows(rows, row.text) != 1)
            return false;
    return sizeof(Texts) == std::size(rows) * sizeof(std::string);
}

/// Whether there is one row per enumerator, in the order of the enumeration, which ends with count.
template <typename Enum>
constexpr bool in_order(const auto& rows, const auto member) {
    std::size_t at = 0;
    for (const auto& row : rows)
        if (row.*member != static_cast<Enum>(at++))
            return false;
    return at == static_cast<std::size_t>(Enum::count);
}

} // namespace veldrune
