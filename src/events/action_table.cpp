#include "events/command_table.h"

#include <iterator>

namespace veldrune {
namespace {

constexpr Parameter byte(Label label) {
    return {ParameterKind::byte, label};
}
constexpr Parameter pointer(Label label) {
    return {ParameterKind::pointer, label};
}

constexpr ScriptCommand graphic(std::uint8_t code) {
    return {code, "Graphical Actions"};
}
constexpr ScriptCommand flipped(std::uint8_t code) {
    return {code, "Graphical Actions Flipped Horizontally"};
}
constexpr ScriptCommand unnamed(std::uint8_t code) {
    return {code, ""};
}

// clang-format off
constexpr ScriptCommand actions[] = {
    // code and label;  the rows under it
    graphic(0x00), graphic(0x01), graphic(0x02), graphic(0x03), graphic(0x04), graphic(0x05), graphic(0x06), graphic(0x07),
    graphic(0x08), graphic(0x09), graphic(0x0A), graphic(0x0B), graphic(0x0C), graphic(0x0D), graphic(0x0E), graphic(0x0F),
    graphic(0x10), graphic(0x11), graphic(0x12), graphic(0x13), graphic(0x14), graphic(0x15), graphic(0x16), graphic(0x17),
    graphic(0x18), graphic(0x19), graphic(0x1A), graphic(0x1B), graphic(0x1C), graphic(0x1D), graphic(0x1E), graphic(0x1F),
    graphic(0x20), graphic(0x21), graphic(0x22), graphic(0x23), graphic(0x24), graphic(0x25), graphic(0x26), graphic(0x27),
    graphic(0x28), graphic(0x29), graphic(0x2A), graphic(0x2B), graphic(0x2C), graphic(0x2D), graphic(0x2E), graphic(0x2F),
    graphic(0x30), graphic(0x31), graphic(0x32), graphic(0x33), graphic(0x34), graphic(0x35), graphic(0x36), graphic(0x37),
    graphic(0x38), graphic(0x39), graphic(0x3A), graphic(0x3B), graphic(0x3C), graphic(0x3D), graphic(0x3E), graphic(0x3F),
    flipped(0x40), flipped(0x41), flipped(0x42), flipped(0x43), flipped(0x44), flipped(0x45), flipped(0x46), flipped(0x47),
    flipped(0x48), flipped(0x49), flipped(0x4A), flipped(0x4B), flipped(0x4C), flipped(0x4D), flipped(0x4E), flipped(0x4F),
    flipped(0x50), flipped(0x51), flipped(0x52), flipped(0x53), flipped(0x54), flipped(0x55), flipped(0x56), flipped(0x57),
    flipped(0x58), flipped(0x59), flipped(0x5A), flipped(0x5B), flipped(0x5C), flipped(0x5D), flipped(0x5E), flipped(0x5F),
    flipped(0x60), flipped(0x61), flipped(0x62), flipped(0x63), flipped(0x64), flipped(0x65), flipped(0x66), flipped(0x67),
    flipped(0x68), flipped(0x69), flipped(0x6A), flipped(0x6B), flipped(0x6C), flipped(0x6D), flipped(0x6E), flipped(0x6F),
    flipped(0x70), flipped(0x71), flipped(0x72), flipped(0x73), flipped(0x74), flipped(0x75), flipped(0x76), flipped(0x77),
    flipped(0x78), flipped(0x79), flipped(0x7A), flipped(0x7B), flipped(0x7C), flipped(0x7D), flipped(0x7E), flipped(0x7F),
    {0x80, "Move Character Up 1 Tile"},
    {0x81, "Move Character Right 1 Tile"},
    {0x82, "Move Character Down 1 Tile"},
    {0x83, "Move Character Left 1 Tile"},
    {0x84, "Move Character Up 2 Tiles"},
    {0x85, "Move Character Right 2 Tiles"},
    {0x86, "Move Character Down 2 Tiles"},
    {0x87, "Move Character Left 2 Tiles"},
    {0x88, "Move Character Up 3 Tiles"},
    {0x89, "Move Character Right 3 Tiles"},
    {0x8A, "Move Character Down 3 Tiles"},
    {0x8B, "Move Character Left 3 Tiles"},
    {0x8C, "Move Character Up 4 Tiles"},
    {0x8D, "Move Character Right 4 Tiles"},
    {0x8E, "Move Character Down 4 Tiles"},
    {0x8F, "Move Character Left 4 Tiles"},
    {0x90, "Move Character Up 5 Tiles"},
    {0x91, "Move Character Right 5 Tiles"},
    {0x92, "Move Character Down 5 Tiles"},
    {0x93, "Move Character Left 5 Tiles"},
    {0x94, "Move Character Up 6 Tiles"},
    {0x95, "Move Character Right 6 Tiles"},
    {0x96, "Move Character Down 6 Tiles"},
    {0x97, "Move Character Left 6 Tiles"},
    {0x98, "Move Character Up 7 Tiles"},
    {0x99, "Move Character Right 7 Tiles"},
    {0x9A, "Move Character Down 7 Tiles"},
    {0x9B, "Move Character Left 7 Tiles"},
    {0x9C, "Move Character Up 8 Tiles"},
    {0x9D, "Move Character Right 8 Tiles"},
    {0x9E, "Move Character Down 8 Tiles"},
    {0x9F, "Move Character Left 8 Tiles"},
    {0xA0, "Move Character Right/Up 1x1 Tiles"},
    {0xA1, "Move Character Right/Down 1x1 Tiles"},
    {0xA2, "Move Character Left/Up 1x1 Tiles"},
    {0xA3, "Move Character Left/Down 1x1 Tiles"},
    {0xA4, "Move Character Right/Up 1x2 Tiles"},
    {0xA5, "Move Character Right/Up 2x1 Tiles"},
    {0xA6, "Move Character Right/Down 1x2 Tiles"},
    {0xA7, "Move Character Right/Down 2x1 Tiles"},
    {0xA8, "Move Character Left/Up 1x2 Tiles"},
    {0xA9, "Move Character Left/Up 2x1 Tiles"},
    {0xAA, "Move Character Left/Down 1x2 Tiles"},
    {0xAB, "Move Character Left/Down 2x1 Tiles"},
    unnamed(0xAC), unnamed(0xAD), unnamed(0xAE), unnamed(0xAF),
    unnamed(0xB0), unnamed(0xB1), unnamed(0xB2), unnamed(0xB3),
    unnamed(0xB4), unnamed(0xB5), unnamed(0xB6), unnamed(0xB7),
    unnamed(0xB8), unnamed(0xB9), unnamed(0xBA), unnamed(0xBB),
    unnamed(0xBC), unnamed(0xBD), unnamed(0xBE), unnamed(0xBF),
    {0xC0, "Set Character's Movement Speed to Slowest"},
    {0xC1, "Set Character's Movement Speed to Slow"},
    {0xC2, "Set Character's Movement Speed to Normal"},
    {0xC3, "Set Character's Movement Speed to Fast"},
    {0xC4, "Set Character's Movement Speed to Fastest"},
    {0xC5, "Set Character to Walk when Moved"},
    {0xC6, "Set Character to Stay Still when Moved"},
    {0xC7, "Unknown"},
    {0xC8, "Unknown"},
    unnamed(0xC9), unnamed(0xCA), unnamed(0xCB),
    {0xCC, "Turn Character Up"},
    {0xCD, "Turn Chracter Right"},
    {0xCE, "Turn Character Down"},
    {0xCF, "Turn Character Left"},
    {0xD0, "Unknown"},
    {0xD1, "Make Character Disappear"},
    unnamed(0xD2), unnamed(0xD3), unnamed(0xD4),
    {0xD5, "Set Position",                                    byte("Destination X"), byte("Destination Y")},
    unnamed(0xD6),
    {0xD7, "Unknown"},
    unnamed(0xD8), unnamed(0xD9), unnamed(0xDA), unnamed(0xDB),
    {0xDC, "Make Character Jump (Low)"},
    {0xDD, "Make Character Jump (High)"},
    unnamed(0xDE), unnamed(0xDF),
    {0xE0, "Pause for xx Units",                              byte("xx")},
    {0xE1, "Set event bit $1E80 + xx ($1E80 + $0xx)",         byte("xx")},
    {0xE2, "Set event bit $1EA0 + xx ($1E80 + $1xx)",         byte("xx")},
    {0xE3, "Set event bit $1EC0 + xx ($1E80 + $2xx)",         byte("xx")},
    {0xE4, "Clear event bit $1E80 + xx ($1E80 + $0xx)",       byte("xx")},
    {0xE5, "Clear event bit $1EA0 + xx ($1E80 + $1xx)",       byte("xx")},
    {0xE6, "Clear event bit $1EC0 + xx ($1E80 + $2xx)",       byte("xx")},
    unnamed(0xE7), unnamed(0xE8), unnamed(0xE9), unnamed(0xEA),
    unnamed(0xEB), unnamed(0xEC), unnamed(0xED), unnamed(0xEE),
    unnamed(0xEF), unnamed(0xF0), unnamed(0xF1), unnamed(0xF2),
    unnamed(0xF3), unnamed(0xF4), unnamed(0xF5), unnamed(0xF6),
    unnamed(0xF7), unnamed(0xF8),
    {0xF9, "Branch to Sub Action Queue Code",                 pointer("Offset")},
    {0xFA, "Increment $1F6D, if ($C0FD00 + ($1F6D)) >= $80, branch backwards xx bytes in the queue", byte("xx")},
    {0xFB, "Increment $1F6D, if ($C0FD00 + ($1F6D)) >= $80, branch forwards xx bytes in the queue", byte("xx")},
    {0xFC, "Branch backwards xx bytes in the queue",          byte("xx")},
    {0xFD, "Branch forwards xx bytes in the queue",           byte("xx")},
    unnamed(0xFE),
    {0xFF, "End Queue"},
};
// clang-format on

// The order of the table, and that an action's arguments are of a fixed size.
constexpr bool is_in_order() {
    for (std::size_t code = 0; code < std::size(actions); ++code) {
        if (actions[code].code != code)
            return false;
        for (const Parameter& parameter : actions[code].parameters())
            if (parameter.kind != ParameterKind::byte && parameter.kind != ParameterKind::pointer)
                return false;
    }
    return std::size(actions) == 256;
}
static_assert(is_in_order());

} // namespace

const ScriptCommand& queue_action(std::uint8_t code) {
    return actions[code];
}

int action_size(std::uint8_t code) {
    int size = 1;
    for (const Parameter& parameter : actions[code].parameters())
        size += size_of(parameter.kind);
    return size;
}

} // namespace veldrune
