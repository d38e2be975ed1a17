// Any bytes as a script, any clicks, any texts, any order of commands in the Event Editor: no
// crash, no hang, no access outside the grid; a save writes what the grid encodes to, or nothing.

#include "support/script_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

std::string any_text(Random& random) {
    static const std::string texts[] = {
        "",   " ",     "0",        "5",  "83", "FE", "D5", "F9",
        "E0", "A0200", "0A0200",   "3D", "48", "4B", "B6", "BE",
        "73", "C1",    "1G",       "80", "FF", "66", "2",  "0A0200\r\nA0201",
        "1",  "0102",  "FFFFFFFFF"};
    if (random.below(8) != 0)
        return texts[random.below(std::size(texts))];
    std::string text(static_cast<std::size_t>(random.below(40)), ' ');
    for (char& c : text)
        c = static_cast<char>(random.byte());
    return text;
}

void any_step(ScriptEditor& editor, Random& random) {
    EditorState& state = *editor.state;
    const int rows = static_cast<int>(editor.window.grid.size());
    switch (random.below(12)) {
    case 0:
    case 1:
        return editor.click(random.below(rows + 4) - 2, random.below(6) - 1);
    case 2:
        return add_script_item(state);
    case 3:
        if (random.below(4) == 0)
            remove_script_item(state);
        return;
    case 4:
        return on_script_escape(state);
    case 5:
        return save_script(state);
    case 6:
        editor.window.Text3 = random.below(2) == 0 ? "30000" : any_text(random);
        if (random.below(8) == 0)
            on_script_offset_enter(state);
        return;
    default:
        return editor.type(any_text(random));
    }
}

TEST(EventFuzz, AnyScriptAnyStepAnyText) {
    for (unsigned seed = 0; seed < 600; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        Bytes script(static_cast<std::size_t>(random.below(120)));
        for (std::uint8_t& byte : script)
            byte = random.byte();
        script.push_back(0xFE);
        ScriptEditor editor;
        if (random.below(3) == 0)
            for (int i = 0; i < 1000; ++i) // dialogues of any bytes
                editor.image()[0xCE802 + static_cast<std::size_t>(random.below(0x2000))] =
                    random.byte();
        editor.load(script);
        for (int step = 0; step < 60; ++step) {
            any_step(editor, random);
            const Form9& window = editor.window;
            ASSERT_GE(window.grid.size(), 2u);
            ASSERT_TRUE(is_blank(window.grid.back()));
            ASSERT_FALSE(window.Text2_visible &&
                         window.grid_row >= static_cast<int>(window.grid.size()));
        }
        on_script_escape(*editor.state);
        const EncodedScript encoded = editor.encode();
        editor.disk.log.clear();
        save_script(*editor.state);
        ASSERT_LE(editor.disk.log.size(), encoded.refusal ? 0u : 1u);
        for (const MemoryDisk::Write& write : editor.disk.log)
            ASSERT_EQ(write.bytes, encoded.bytes);
    }
}

} // namespace
} // namespace veldrune::test
