#pragma once

#include "inspect/grade.h"
#include "inspect/listing.h"
#include "inspect/reading.h"

#include <string>
#include <vector>

namespace veldrune::inspect {

struct Finding {
    const char* check; // its name, never changed
    Grade grade;
    std::string place; // where the editor finds it: map numbers decimal, locations hexadecimal
    std::string why;
    const char* effect; // what it does in the editor
};

/// All that is wrong or unusual with an image, by check.
std::vector<Finding> check_image(const ImageReading& reading);

/// The checks: a row each, with its name, its grade and what its findings do in the editor.
Listing list_checks();

/// Takes away the findings that an older state of the image had as well.
void remove_known(std::vector<Finding>& findings, const std::vector<Finding>& old);

/// Takes away what is only unusual.
void remove_unusual(std::vector<Finding>& findings);

/// A row a finding; of a check and grade with more than most, the others as one row with their
/// number.
Listing list_findings(const std::vector<Finding>& findings, std::size_t most);

} // namespace veldrune::inspect
