#include "inspect/diff.h"

#include "inspect/diff_parts.h"

namespace veldrune::inspect {

void diff_images(const ImageReading& a, const ImageReading& b, const TakeDifference& take) {
    if (a.image.bytes == b.image.bytes)
        return;
    Comparison comparison{a, b, take};
    compare_facts(comparison);
    compare_streams(comparison);
    compare_scripts(comparison);
    compare_bytes(comparison);
}

std::vector<Column> difference_columns() {
    using enum CellForm;
    return {{"thing", "", words}, {"what", "", words}, {"before", "", words}, {"after", "", words}};
}

std::vector<Cell> difference_row(const Difference& finding) {
    const auto value = [](const std::string& text) { return text.empty() ? Cell() : Cell(text); };
    return {finding.thing, finding.what, value(finding.before), value(finding.after)};
}

std::string difference_line(const Difference& finding) {
    const auto value = [](const std::string& text) { return text.empty() ? "nothing" : text; };
    std::string line = finding.thing + ": " + finding.what;
    if (!finding.before.empty() || !finding.after.empty())
        line.append(": ").append(value(finding.before)).append(" -> ").append(value(finding.after));
    return line;
}

} // namespace veldrune::inspect
