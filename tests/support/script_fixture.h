#pragma once

#include "editor/event_editor.h"
#include "events/script_encoder.h"
#include "support/editor_fixture.h"

namespace veldrune::test {

inline constexpr std::size_t script_at = 0x30000;

/// An empty image whose dialogue n offers n modulo 6 choices, as "A", "A\r\n> B", ...
inline Bytes make_script_image() {
    Bytes image(0x110000, 0);
    for (std::size_t n = 0; n < 3327; ++n)
        put_word(image, 0xCE802 + 2 * n, 0x1000 + n % 6 * 0x20);
    for (const std::size_t bank : {0xD0200u, 0xE0200u})
        for (std::size_t options = 0; options < 6; ++options) {
            std::size_t at = bank + 0x1000 + options * 0x20;
            image[at++] = 0x20;
            for (std::size_t i = 1; i <= options; ++i)
                for (const std::size_t byte : {std::size_t{1}, std::size_t{0x15}, 0x20 + i})
                    image[at++] = static_cast<std::uint8_t>(byte);
        }
    return image;
}
inline const Bytes& script_image() {
    static const Bytes image = make_script_image();
    return image;
}
inline int options_of(int dialogue) {
    return dialogue < 3327 ? dialogue % 6 : 0;
}

/// The Event Editor on such an image.
struct ScriptEditor : Editor {
    Form9& window = state->form9;

    explicit ScriptEditor(const Bytes& script = {}) : Editor(script_image()) {
        if (!script.empty())
            load(script);
    }
    void load(const Bytes& script) {
        put_bytes(image(), script_at, script);
        state->objects.selected_object.script_offset = script_at;
        open_event_editor(*state);
    }
    void click(int row, int column) { on_script_click(*state, row, column); }
    void type(const std::string& text) {
        window.Text2 = text;
        on_script_enter(*state);
    }
    void type(const std::vector<std::string>& texts) {
        for (const std::string& text : texts)
            type(text);
    }
    EncodedScript encode() { return encode_script(window.grid, dialogs); }
    const std::string& cell(int row, int column) {
        return window.grid.at(static_cast<std::size_t>(row))
            .cells.at(static_cast<std::size_t>(column));
    }
    /// The grid without header and spare row: "primary|secondary|tertiary|explanation|height",
    /// cells without blanks at their ends, and "/" for a line break.
    std::vector<std::string> rows() const {
        std::vector<std::string> lines;
        for (std::size_t row = 1; row + 1 < window.grid.size(); ++row) {
            std::string line;
            for (const std::string& cell : window.grid[row].cells)
                line += trimmed(cell) + "|";
            lines.push_back(line + std::to_string(window.grid[row].height));
        }
        return lines;
    }
    static std::string trimmed(const std::string& cell) {
        std::string text;
        for (const char c : cell)
            if (c != '\r')
                text += c == '\n' ? '/' : c;
        const std::size_t first = text.find_first_not_of(' ');
        return first == std::string::npos
                   ? ""
                   : text.substr(first, text.find_last_not_of(' ') + 1 - first);
    }
};

} // namespace veldrune::test
