#pragma once

#include "editor/editor_state.h"

#include <cstdint>
#include <optional>
#include <string>

namespace veldrune {

/// The number that Save makes of a text in a field, as a load after it shows it. Nothing where Save
/// keeps what the image holds. field is one that the user types in.
std::optional<std::int64_t> saved_number(std::string Form1::*field, const std::string& text);

/// What Save would make of the text in a field, where that is not the number that it stands for:
/// one sentence. Empty where it is, and before there is anything to save.
std::string field_mark(const EditorState& state, std::string Form1::*field);
/// The same for a field of the object window on the chosen tab.
std::string field_mark(const EditorState& state, std::string Form10::*field);
/// What Enter would make of a text in the Event Editor's field of the offset that is no number;
/// empty for one that is.
std::string offset_mark(const std::string& offset);

} // namespace veldrune
