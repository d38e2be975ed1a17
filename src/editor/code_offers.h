#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// The codes to offer for what has been typed into form9.Text2 so far, each as "B6  " and what it
/// means. While the edit box awaits the code of a command or of an action: up to two digits find
/// the codes that begin with them and the one of their value, any other text the explanations that
/// hold it. Nothing for a blank text, and while the box awaits anything else.
std::vector<std::string> offered_codes(const EditorState& state);

/// The code in an offer.
inline std::string code_of(const std::string& offer) {
    return offer.substr(0, 2);
}

} // namespace veldrune
