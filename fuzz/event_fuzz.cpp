// Any bytes as a script, any clicks, any texts, any order of commands in the Event Editor: no
// crash, no hang, no access outside the grid; a save writes what the grid encodes to, or nothing.

#include "fuzz_target.h"
#include "session.h"
#include "support/script_fixture.h"

namespace veldrune::test {
namespace {

void any_step(ScriptEditor& editor, Choices& choices) {
    EditorState& state = *editor.state;
    const int rows = static_cast<int>(editor.window.grid.size());
    switch (choices.below(12)) {
    case 0:
    case 1:
        return editor.click(choices.below(rows + 4) - 2, choices.below(6) - 1);
    case 2:
        return add_script_item(state);
    case 3:
        if (choices.below(4) == 0)
            remove_script_item(state);
        return;
    case 4:
        return on_script_escape(state);
    case 5:
        return save_script(state);
    case 6:
        editor.window.Text3 = choices.below(2) == 0 ? "30000" : any_text(choices);
        if (choices.below(8) == 0)
            on_script_offset_enter(state);
        return;
    default:
        return editor.type(any_text(choices));
    }
}

Bytes any_script(Choices& choices) {
    Bytes script(static_cast<std::size_t>(choices.below(120)));
    for (std::uint8_t& byte : script)
        byte = choices.byte();
    script.push_back(0xFE);
    return script;
}

void damage_dialogues(ScriptEditor& editor, Random random) {
    for (int i = 0; i < 1000; ++i)
        editor.image()[0xCE802 + static_cast<std::size_t>(random.below(0x2000))] = random.byte();
}

void check_grid(const Form9& window) {
    ASSERT_GE(window.grid.size(), 2u);
    ASSERT_TRUE(is_blank(window.grid.back()));
    ASSERT_FALSE(window.Text2_visible && window.grid_row >= static_cast<int>(window.grid.size()));
}

void event_fuzz(Choices& choices) {
    const Bytes script = any_script(choices);
    ScriptEditor editor;
    if (choices.one_in(3))
        damage_dialogues(editor, choices.bulk());
    editor.load(script);
    for (int step = 0; step < 60 && !choices.spent(); ++step) {
        any_step(editor, choices);
        ASSERT_NO_FATAL_FAILURE(check_grid(editor.window));
    }
    on_script_escape(*editor.state);
    const EncodedScript encoded = editor.encode();
    editor.disk.log.clear();
    save_script(*editor.state);
    ASSERT_LE(editor.disk.log.size(), encoded.refusal ? 0u : 1u);
    for (const MemoryDisk::Write& write : editor.disk.log)
        ASSERT_EQ(write.bytes, encoded.bytes);
}

} // namespace
} // namespace veldrune::test

FUZZ_TARGET(event_fuzz, 600)
