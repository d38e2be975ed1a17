#include "cli/text_output.h"

#include "rom/number_text.h"

#include <algorithm>
#include <string_view>

namespace veldrune::cli {
namespace {

using namespace inspect;
using Line = std::vector<std::string>;

std::vector<Line> lines_of(const Listing& listing) {
    std::vector<Line> lines;
    const auto has_heading = [](const Column& column) { return *column.heading != '\0'; };
    if (std::ranges::any_of(listing.columns, has_heading)) {
        lines.emplace_back();
        for (const Column& column : listing.columns)
            lines.back().emplace_back(column.heading);
    }
    for (const std::vector<Cell>& row : listing.rows) {
        lines.emplace_back();
        for (std::size_t i = 0; i < row.size(); ++i)
            lines.back().push_back(cell_text(row[i], listing.columns[i].form));
    }
    return lines;
}

} // namespace

std::string text_of(const Listing& listing) {
    const std::vector<Line> lines = lines_of(listing);
    std::vector<std::size_t> widths(listing.columns.size());
    for (const Line& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], character_count(line[i]));
    std::string text;
    for (const Line& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::string blanks(widths[i] - character_count(line[i]), ' ');
            const bool left = listing.columns[i].form == CellForm::words;
            text += (i == 0 ? "" : "  ") + (left ? line[i] + blanks : blanks + line[i]);
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

} // namespace veldrune::cli
