#include "editor/script_status.h"

#include "editor/event_editor.h"
#include "events/script_encoder.h"
#include "rom/number_text.h"

namespace veldrune {
namespace {

// Bytes that a save would write, after the end of an entry that is unfinished; nothing where the
// script can't be encoded.
std::optional<int> bytes_to_save(const EditorState& state) {
    SilentDialogs silent;
    EncodedScript script;
    if (entry_unfinished(state.script.entry)) {
        Form9 form = state.form9;
        ScriptEntry entry = state.script.entry;
        end_entry({form, entry, state.rom, silent});
        script = encode_script(form.grid, silent);
    } else {
        script = encode_script(state.form9.grid, silent);
    }
    if (script.refusal)
        return std::nullopt;
    return static_cast<int>(script.bytes.size());
}

} // namespace

SavePlace save_place(const EditorState& state) {
    if (script_save_refusal(state))
        return {"Can't be saved", true};
    const std::int64_t loaded = state.script.loaded.offset;
    const std::int64_t offset = state.objects.selected_object.script_offset;
    std::string text = "Save writes to " + format_hex(offset);
    if (offset != loaded)
        text += ", loaded from " + format_hex(loaded);
    return {text, offset != loaded};
}

GridStatus grid_status(const EditorState& state) {
    const std::optional<int> bytes = bytes_to_save(state);
    const int loaded = state.script.loaded.length();
    const std::string count = bytes ? std::to_string(*bytes) : "-";
    return {count + " of " + std::to_string(loaded) + " bytes", bytes.value_or(0) > loaded,
            values_of(state.form9.grid) != state.script.loaded_values};
}

} // namespace veldrune
