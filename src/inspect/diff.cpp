#include "inspect/diff.h"

#include "inspect/diff_parts.h"

namespace veldrune::inspect {

std::vector<Difference> diff_images(const ImageReading& a, const ImageReading& b) {
    Comparison comparison{a, b};
    if (a.image.bytes == b.image.bytes)
        return {};
    compare_facts(comparison);
    compare_streams(comparison);
    compare_scripts(comparison);
    compare_bytes(comparison);
    return std::move(comparison.findings);
}

Listing finding_table(const std::vector<Difference>& findings) {
    using enum CellForm;
    Listing listing{
        {{"thing", "", words}, {"what", "", words}, {"before", "", words}, {"after", "", words}},
        {}};
    const auto value = [](const std::string& text) { return text.empty() ? Cell() : Cell(text); };
    for (const Difference& finding : findings)
        listing.rows.push_back(
            {finding.thing, finding.what, value(finding.before), value(finding.after)});
    return listing;
}

Listing finding_lines(const std::vector<Difference>& findings) {
    Listing listing{{{"line", "", CellForm::words}}, {}};
    const auto value = [](const std::string& text) { return text.empty() ? "nothing" : text; };
    for (const Difference& finding : findings) {
        std::string line = finding.thing + ": " + finding.what;
        if (!finding.before.empty() || !finding.after.empty())
            line.append(": ")
                .append(value(finding.before))
                .append(" -> ")
                .append(value(finding.after));
        listing.rows.push_back({std::move(line)});
    }
    return listing;
}

} // namespace veldrune::inspect
