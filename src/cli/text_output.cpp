#include "cli/text_output.h"

#include "rom/number_text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace veldrune::cli {
namespace {

using namespace inspect;
using Line = std::vector<std::string>;

// Long lists are broken into lines.
std::string shown_text(const Cell& cell, CellForm form) {
    constexpr std::size_t width = 40;
    std::string text = cell_text(cell, form);
    for (std::size_t line = 0;
         cell.kind == Cell::numbers && cell.text.empty() && text.size() - line > width;) {
        const std::size_t blank = text.rfind(' ', line + width);
        if (blank == std::string::npos || blank < line)
            break;
        text[blank] = '\r';
        line = blank + 1;
    }
    return text;
}

// Takes the first line off a text. "\r\n" and "\r" end one.
std::string take_line(std::string& text) {
    const std::size_t end = std::min(text.find('\r'), text.size());
    const std::size_t next = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    std::string line = text.substr(0, end);
    text.erase(0, next);
    return line;
}

std::vector<Line> lines_of(const Listing& listing) {
    std::vector<Line> lines(1);
    for (const Column& column : listing.columns)
        lines.back().emplace_back(column.heading);
    for (const std::vector<Cell>& row : listing.rows) {
        std::vector<std::string> rest; // of the cells, after the lines so far
        for (std::size_t i = 0; i < row.size(); ++i)
            rest.push_back(shown_text(row[i], listing.columns[i].form));
        do {
            lines.emplace_back();
            std::ranges::transform(rest, std::back_inserter(lines.back()), take_line);
        } while (!std::ranges::all_of(rest, &std::string::empty));
    }
    return lines;
}

// Words and lists begin where their heading begins; numbers end where it ends.
bool begins_left(const Listing& listing, std::size_t column) {
    const CellForm form = listing.columns[column].form;
    const auto has_list = [&](const auto& row) { return row[column].kind == Cell::numbers; };
    return form == CellForm::words ||
           (form != CellForm::size && std::ranges::any_of(listing.rows, has_list));
}

} // namespace

std::string text_of(const Listing& listing) {
    constexpr std::size_t widest = 80;
    const std::vector<Line> lines = lines_of(listing);
    std::vector<std::size_t> widths(listing.columns.size());
    for (const Line& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], std::min(character_count(line[i]), widest));
    std::vector<bool> left;
    for (std::size_t i = 0; i < widths.size(); ++i)
        left.push_back(begins_left(listing, i));
    std::string text;
    for (const Line& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::string blanks(widths[i] - std::min(character_count(line[i]), widths[i]),
                                     ' ');
            text += (i == 0 ? "" : "  ") + (left[i] ? line[i] + blanks : blanks + line[i]);
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

} // namespace veldrune::cli
