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
    /// Steps parted by blanks. "+": Add Item, "-": Remove Item, "esc", "save", "@r,c": a click;
    /// anything else is typed, "_" for a blank and "/" for a line break.
    void act(const std::string& steps) {
        std::istringstream words(steps);
        for (std::string step; words >> step;)
            if (step == "+")
                add_script_item(*state);
            else if (step == "-")
                remove_script_item(*state);
            else if (step == "esc")
                on_script_escape(*state);
            else if (step == "save")
                save_script(*state);
            else if (step[0] == '@')
                click(std::stoi(step.substr(1)), std::stoi(step.substr(step.find(',') + 1)));
            else {
                std::ranges::replace(step, '_', ' ');
                std::ranges::replace(step, '/', '\n');
                type(step);
            }
    }
    EncodedScript encode() { return encode_script(window.grid, dialogs); }
    std::string& cell(int row, int column) {
        return window.grid.at(static_cast<std::size_t>(row))
            .cells.at(static_cast<std::size_t>(column));
    }
    /// A row as "primary.secondary.tertiary explanation@height", cells without blanks at their
    /// ends, "/" for a line break; or its values alone.
    std::string row(int at, bool values_alone = false) {
        std::string text =
            trimmed(cell(at, 0)) + "." + trimmed(cell(at, 1)) + "." + trimmed(cell(at, 2));
        if (!values_alone)
            text.append(" ").append(trimmed(cell(at, 3)));
        const int height = row_at(window.grid, at).height;
        return height == 0 ? text : text + "@" + std::to_string(height);
    }
    /// The rows from one on without the spare row, with "; " between them.
    std::string rows(bool values_alone = false) {
        std::string all;
        for (int at = 1; at + 1 < std::ssize(window.grid); ++at)
            all += (at == 1 ? "" : "; ") + row(at, values_alone);
        return all;
    }
    static std::string trimmed(std::string text) {
        std::erase(text, '\r');
        std::ranges::replace(text, '\n', '/');
        text.erase(0, text.find_first_not_of(' '));
        return text.erase(text.find_last_not_of(' ') + 1);
    }
};

} // namespace veldrune::test
