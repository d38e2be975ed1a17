#include "events/command_table.h"

#include <iterator>

namespace veldrune {
namespace {

constexpr Parameter byte(Label label) {
    return {ParameterKind::byte, label};
}
constexpr Parameter byte(const char* loaded, const char* added) {
    return byte({loaded, added});
}
constexpr Parameter word(Label label) {
    return {ParameterKind::word, label};
}
constexpr Parameter word(const char* loaded, const char* added) {
    return word({loaded, added});
}
constexpr Parameter pointer(Label label) {
    return {ParameterKind::pointer, label};
}
constexpr Parameter dialogue() {
    return {ParameterKind::dialogue, ""};
}
constexpr Parameter high_nibble(Label label) {
    return {ParameterKind::high_nibble, label};
}
constexpr Parameter low_nibble(Label label) {
    return {ParameterKind::low_nibble, label};
}
constexpr Parameter list_count(Label label) {
    return {ParameterKind::list_count, label};
}
constexpr Parameter offset_list(Label label) {
    return {ParameterKind::offset_list, label};
}
constexpr Parameter offset_list(const char* loaded, const char* added) {
    return offset_list({loaded, added});
}

constexpr Parameter x_scroll = byte("X Scroll (0-7F = Left, 80-FF = Right)");
constexpr Parameter y_scroll = byte("Y Scroll (0-7F = Left, 80-FF = Right)");
constexpr Parameter vehicle = byte("Vehicle (0 = none, 01 = airship, 02 = Runbird)");

constexpr ScriptCommand queue(std::uint8_t code) {
    return {code, "Action Queue",
            Parameter{
                ParameterKind::queue_count,
                {"Number of Bytes in Queue (includes end command)", "Number of Actions in Queue"}}};
}

constexpr ScriptCommand map_change(std::uint8_t code, Label label) {
    return {code,
            label,
            byte("New Map Data X Position"),
            byte("New Map Data Y Position"),
            byte("New Map Data Width"),
            byte("New Map Data Height"),
            Parameter{ParameterKind::map_data, "New Data"}};
}

// One to eight words and a pointer after them.
constexpr ScriptCommand conditional(std::uint8_t code, const char* label) {
    constexpr const char* words[] = {"Parameter 1", "Parameter 2", "Parameter 3", "Parameter 4",
                                     "Parameter 5", "Parameter 6", "Parameter 7", "Parameter 8"};
    ScriptCommand command{code, {label, "Conditional (Branch to Location if Parameter is Met)"}};
    const std::size_t count = (code & 7u) + 1;
    for (std::size_t i = 0; i < count; ++i)
        command.rows[i] = word(words[i]);
    command.rows[count] = pointer({"Location", "Offset"});
    return command;
}

constexpr ScriptCommand loaded_only(ScriptCommand command) {
    command.can_be_added = false;
    return command;
}

constexpr ScriptCommand uncoded(std::uint8_t code) {
    return loaded_only({code, "Uncoded"});
}

// clang-format off
constexpr ScriptCommand commands[] = {
    // code and label, {of a loaded command, of an added one};  the rows under it
    queue(0x00), queue(0x01), queue(0x02), queue(0x03), queue(0x04), queue(0x05), queue(0x06),
    queue(0x07), queue(0x08), queue(0x09), queue(0x0A), queue(0x0B), queue(0x0C), queue(0x0D),
    queue(0x0E), queue(0x0F), queue(0x10), queue(0x11), queue(0x12), queue(0x13), queue(0x14),
    queue(0x15), queue(0x16), queue(0x17), queue(0x18), queue(0x19), queue(0x1A), queue(0x1B),
    queue(0x1C), queue(0x1D), queue(0x1E), queue(0x1F), queue(0x20), queue(0x21), queue(0x22),
    queue(0x23), queue(0x24), queue(0x25), queue(0x26), queue(0x27), queue(0x28), queue(0x29),
    queue(0x2A), queue(0x2B), queue(0x2C), queue(0x2D), queue(0x2E), queue(0x2F), queue(0x30),
    queue(0x31), queue(0x32), queue(0x33), queue(0x34),
    {0x35, "Unknown",                                         byte("Unknown")},
    {0x36, "Unknown",                                         byte("Unknown")},
    {0x37, "Assign Sprite to Object",                         byte("Object"), byte("Sprite")},
    {0x38, "Hold Screen"},
    {0x39, "Free Screen"},
    {0x3A, "Unknown"},
    {0x3B, "Postition Character in 'ready to go' stance"},
    {0x3C, "Assign Characters to Party",                      byte("Character 1"), byte("Character 2"), byte("Character 3"), byte("Character 4")},
    {0x3D, "Create Object",                                   byte("Object Number")},
    {0x3E, "Delete Object",                                   byte("Object Number")},
    {0x3F, "Assign Character to Party",                       byte("Character"), byte("Party (if 0 then remove character from party)", "Party (If 0 then Remove Character from Party)")},
    {0x40, "Assign Properties to Character",                  byte("Character"), byte("Properties")},
    {0x41, "Show Object",                                     byte("Object Number")},
    {0x42, "Hide Object",                                     byte("Object Number")},
    {0x43, "Assign Palette to Object",                        byte("Object"), byte("Palette")},
    {0x44, "Place Character on Vehicle",                      byte("Character"), byte("Vehicle")},
    {0x45, {"Refresh Objects", "Refresh objects"}},
    {0x46, "Choose Party",                                    byte("Party Number")},
    {0x47, "Unknown"},
    {0x48, {"Display Dialogue, Wait", "Display Dialogue, Don't Wait"}, dialogue()},
    {0x49, {"If dialogue window is up, wait for keypress then dismiss", "Unknown"}},
    {0x4A, "Unknown"},
    {0x4B, "Display Dialogue, Wait",                          dialogue()},
    {0x4C, "Unknown",                                         byte("Unknown"), byte("Unknown")},
    {0x4D, "Enter Battle",                                    byte("Monster Set"), byte("Background (0-2F)", "Background (0 to 2F)")},
    {0x4E, "Unknown"},
    {0x4F, "Exit Current Location"},
    {0x50, "Tint Screen (Cumulative)",                        byte("?Intensity")},
    {0x51, "Modify Background Color Range",                   byte("?Color"), byte("?From"), byte("?To")},
    {0x52, "Tint Character (Cumulative)",                     byte("?Intensity")},
    {0x53, {"Modify Object Color Range", "Modify Background Color Range"}, byte("?Color"), byte("?From"), byte("?To")},
    {0x54, "Unknown"},
    {0x55, "Flash Screen With Color",                         high_nibble("Color (0 to F)"), low_nibble("Intensity (0 to F)")},
    {0x56, "Increase Color Component",                        high_nibble("Color (0 to F)"), low_nibble("Intensity (0 to F)")},
    {0x57, "Decrease Color Component",                        high_nibble("Color (0 to F)"), low_nibble("Intensity (0 to F)")},
    {0x58, "Shake Screen",                                    byte("??")},
    {0x59, "Unfade Screen",                                   byte("Speed")},
    {0x5A, "Fade Screen",                                     byte("Speed")},
    {0x5B, "Unknown"},
    {0x5C, "Unknown"},
    {0x5D, "Scroll Layer 1",                                  x_scroll, y_scroll},
    {0x5E, "Scroll Layer 2",                                  x_scroll, y_scroll},
    {0x5F, "Scroll Layer 3",                                  x_scroll, y_scroll},
    {0x60, "Change Background Palette",                       byte("Layer Number"), byte("Palette Number", "Palette NUmber")},
    {0x61, "Desaturate Color from Color Range",               byte("?Color"), byte("?From"), byte("?To")},
    {0x62, "Mosiac Screen",                                   byte("Speed (Lower = Slower", "Speed (Lower = Slower)")},
    {0x63, "Unknown",                                         byte("Unknown")},
    {0x64, "Unknown",                                         byte("Unknown"), byte("Unknown")},
    {0x65, "Unknown",                                         byte("Unknown"), byte("Unknown")},
    uncoded(0x66), uncoded(0x67), uncoded(0x68), uncoded(0x69),
    {0x6A, "Load Map",                                        word("Map Number"), byte("Destination X"), byte("Destination Y"), vehicle},
    {0x6B, "Load Map",                                        word("Map Number"), byte("Destination X"), byte("Destination Y"), vehicle},
    {0x6C, "Unknown",                                         word("Unknown"), word("Unknown"), word("Unknown")},
    uncoded(0x6D), uncoded(0x6E), uncoded(0x6F),
    {0x70, {"Scroll Layer 1", "Scroll Layer 3"},              x_scroll, y_scroll},
    {0x71, {"Scroll Layer 2", "Scroll Layer 1"},              x_scroll, y_scroll},
    {0x72, {"Scroll Layer 3", "Scroll Layer 2"},              x_scroll, y_scroll},
    map_change(0x73, "Change Layer 1 Map Data (With Refresh)"),
    map_change(0x74, "Change Layer 1 Map Data (Without Refresh)"),
    {0x75, "Refresh Map After Change"},
    uncoded(0x76),
    {0x77, "Unknown",                                         byte("Unknown")},
    {0x78, "Unknown",                                         byte("Unknown")},
    {0x79, "Unknown",                                         byte("Unknown"), byte("Unknown"), byte("Unknown")},
    {0x7A, "Unknown",                                         byte("Unknown"), byte("Unknown"), byte("Unknown"), byte("Unknown")},
    {0x7B, "Unknown"},
    {0x7C, "Unknown",                                         byte("Unknown")},
    {0x7D, "Unknown",                                         byte("Unknown")},
    {0x7E, "Move Character to New Location on Current Map",   byte("Destination X"), byte("Desination Y", "Destination Y")},
    {0x7F, "Change Character's Name",                         byte("Character Index", "Character"), byte("New Name Index")},
    {0x80, "Place Item in Inventory",                         byte("Item")},
    {0x81, "Remove Item from Inventory",                      byte("Item")},
    {0x82, "Unknown"},
    uncoded(0x83),
    {0x84, "Give GP to Party",                                word("Amount")},
    {0x85, "Remove GP from Party",                            word("Amount")},
    {0x86, "Give Aether to Party",                            byte("Aether (36 to 50)", "Aether (36 - 50)")},
    {0x87, "Remove Aether from Party",                        byte("Aether (36 to 50)", "Aether (36 - 50)")},
    {0x88, {"Remove Status from Character", "Remove Status Ailments from Character"}, byte("Character"), byte("Status #1"), byte("Status #2")},
    {0x89, {"Inflict Status on Character", "Inflict Status Ailments from Character"}, byte("Character"), byte("Status #1"), byte("Status #2")},
    {0x8A, {"Toggle Status on Character", "Toggle Status Ailments from Character"}, byte("Character"), byte("Status #1"), byte("Status #2")},
    {0x8B, "Unknown",                                         byte("Unknown"), byte("Unknown")},
    {0x8C, "Unknown",                                         byte("Unknown"), byte("Unknown")},
    {0x8D, {"Remove Equipment From Character, Place in Inventory", "Remove Equipment from Character"}, byte("Character")},
    {0x8E, "Unknown"},
    {0x8F, "Unknown"},
    {0x90, "Unknown"},
    {0x91, {"Pause for 15 Units", "Pause for 15 units"}},
    {0x92, {"Pause for 30 Units", "Pause for 30 units"}},
    {0x93, {"Pause for 45 Units", "Pause for 45 units"}},
    {0x94, {"Pause for 60 Units", "Pause for 60 units"}},
    {0x95, {"Pause for 120 Units", "Pause for 120 units"}},
    {0x96, "Refresh Screen after Menu or Battle"},
    {0x97, "Fade Screen to Black"},
    {0x98, "Invoke Name Change Screen",                       byte("Character")},
    {0x99, "Invoke Party Selection Screen",                   byte("Number of Parties"), byte("??"), byte("??")},
    {0x9A, "Invoke Coliseum Item Selection Screen"},
    {0x9B, "Invoke Shop",                                     byte("Shop Number")},
    {0x9C, "Unknown",                                         byte("Unknown")},
    {0x9D, "Invoke Party Order Screen from Final Battle"},
    uncoded(0x9E), uncoded(0x9F),
    {0xA0, "Unknown",                                         byte("Unknown"), byte("Unknown"), byte("Unknown"), byte("Unknown"), byte("Unknown")},
    {0xA1, "Unknown",                                         byte("Unknown")},
    {0xA2, "Unknown"},
    uncoded(0xA3), uncoded(0xA4), uncoded(0xA5),
    {0xA6, "Unknown"},
    {0xA7, "Unknown",                                         byte("Unknown")},
    {0xA8, "Show Floating Island Rising"},
    {0xA9, "Show Title Screen"},
    {0xAA, "Show Gearcore Armor Walking Towards Sollen"},
    {0xAB, "Show Game Loading Screen"},
    {0xAC, "Unknown"},
    {0xAD, "Show World Getting Torn Apart"},
    {0xAE, "Show Escape From Calder"},
    {0xAF, "Invoke Random Coliseum Battle"},
    {0xB0, "Repeat Following Commands (Until B1 is Encountered)", byte("Number of Execution", "Number of Executions")},
    {0xB1, "End Block of Repeating Commands"},
    {0xB2, "Jump to Subroutine",                              pointer("Offset")},
    {0xB3, "Unknown",                                         byte("Unknown"), pointer("Unknown")},
    {0xB4, "Pause for xx Units",                              byte("xx")},
    {0xB5, {"Pause for 15 times X units", "Pause for 15 times xx Units"}, byte("X", "xx")},
    {0xB6, {"Jump to Subroutine Based on Prior Dialogue Selection", "Jump to Subroutine based on Prior Dialogue Selection"}, offset_list("Offset")},
    {0xB7, "Jump to Subroutine if bit $1DC9 + $xx is clear",  byte("xx"), pointer("Offset")},
    loaded_only({0xB8, "Set bit $1DC9 + $xx", byte("xx")}),
    {0xB9, "Clear bit $1DC9 + $xx",                           byte("xx")},
    {0xBA, "Unknown",                                         byte("Unknown")},
    {0xBB, "Unknown"},
    {0xBC, "Return if bit $1E80 + $xx is clear",              byte("xx"), byte("??")},
    {0xBD, "Increment $1F6D, if ($C0FD00 + ($1F6D)) >= $80, branch to aaaaaa + $CA0000/$0A0200", pointer("Offset")},
    {0xBE, "Jump to indexed subroutine based on the state of bit $1EB4(x)", list_count("Number of Parameters"), offset_list("Location", "Offset")},
    {0xBF, "Show Ending Airship Scene"},
    conditional(0xC0, "Conditional (Branch to Location if Parameter is Met)"),
    conditional(0xC1, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xC2, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xC3, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xC4, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xC5, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xC6, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xC7, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xC8, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xC9, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xCA, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xCB, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xCC, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xCD, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xCE, "Conditional (Branch to Location if Parameter is Met"),
    conditional(0xCF, "Conditional (Branch to Location if Parameter is Met"),
    {0xD0, "Set event bit $1E80 + xx ($1E80 + $0xx)",         byte("xx")},
    {0xD1, "Clear event bit $1E80 + xx ($1E80 + $0xx)",       byte("xx")},
    {0xD2, "Set event bit $1EA0 + xx ($1E80 + $1xx)",         byte("xx")},
    {0xD3, "Clear event bit $1EA0 + xx ($1E80 + $1xx)",       byte("xx")},
    {0xD4, "Set event bit $1EC0 + xx ($1E80 + $2xx)",         byte("xx")},
    {0xD5, "Clear event bit $1EC0 + xx ($1E80 + $2xx)",       byte("xx")},
    {0xD6, "Set event bit $1EE0 + xx ($1E80 + $3xx)",         byte("xx")},
    {0xD7, "Clear event bit $1EE0 + xx ($1E80 + $3xx)",       byte("xx")},
    {0xD8, "Set event bit $1F00 + xx ($1E80 + $4xx)",         byte("xx")},
    {0xD9, "Clear event bit $1F00 + xx ($1E80 + $4xx)",       byte("xx")},
    {0xDA, "Set event bit $1F20 + xx ($1E80 + $5xx)",         byte("xx")},
    {0xDB, "Clear event bit $1F20 + xx ($1E80 + $5xx)",       byte("xx")},
    {0xDC, "Set event bit $1F40 + xx ($1E80 + $6xx)",         byte("xx")},
    {0xDD, "Clear event bit $1F40 + xx ($1E80 + $6xx)",       byte("xx")},
    {0xDE, "Unknown"},
    {0xDF, "Unknown"},
    {0xE0, "Unknown"},
    {0xE1, "Unknown"},
    {0xE2, "Unknown"},
    {0xE3, "Load bits $1EB4(0-7) and $1EB5(0-7) with the available characters"},
    {0xE4, "Unknown"},
    uncoded(0xE5), uncoded(0xE6),
    {0xE7, "Unknown"},
    {0xE8, "Set word $1FC2 + $xx to yyyy",                    byte("xx"), word("yyyy")},
    {0xE9, {"Unknown", ""},                                   byte("Unknown", ""), word("Unknown", "")},
    {0xEA, {"Unknown", ""},                                   byte("Unknown", ""), word("Unknown", "")},
    {0xEB, {"Unknown", ""},                                   byte("Unknown", ""), word("Unknown", "")},
    uncoded(0xEC), uncoded(0xED), uncoded(0xEE),
    {0xEF, "Play Song",                                       byte("Song Number"), byte("Volume")},
    {0xF0, "Play Song",                                       byte("Song Number")},
    {0xF1, "Fade in Song",                                    byte("Song Number"), byte("Fade in Speed (Higher = Slower)", "Speed (Higher = Slower)")},
    {0xF2, "Fade Out Current Song",                           byte("Fade out Speed (Higher = Slower)", "Speed (Higher = Slower)")},
    {0xF3, "Unknown",                                         byte("Unknown")},
    {0xF4, "Play Sound Effect",                               byte("Effect Number", "Sound Effect Number")},
    {0xF5, "Unknown",                                         byte("Unknown"), byte("Unknown"), byte("Unknown")},
    {0xF6, "Unknown",                                         byte("Unknown"), byte("Unknown"), byte("Unknown")},
    {0xF7, "Unknown"},
    {0xF8, "Unknown"},
    {0xF9, "Unknown",                                         byte("Unknown")},
    {0xFA, "Unknown"},
    uncoded(0xFB), uncoded(0xFC), uncoded(0xFD),
    {0xFE, "Return"},
    uncoded(0xFF),
};
// clang-format on

constexpr bool is_in_order() {
    for (std::size_t code = 0; code < std::size(commands); ++code)
        if (commands[code].code != code)
            return false;
    return std::size(commands) == 256;
}
static_assert(is_in_order());

} // namespace

const ScriptCommand& script_command(std::uint8_t code) {
    return commands[code];
}

} // namespace veldrune
