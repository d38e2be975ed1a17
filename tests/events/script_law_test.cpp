// What holds for every script: it is encoded as it was read, and a command that is normalised,
// removed or retyped takes no other with it. Compared with an independent walk over the bytes.

#include "rom/number_text.h"
#include "support/script_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

// The length of every command; q: queue, m: map data, o: offset list, l: counted list,
// c: conditional.
constexpr char command_lengths[] =
    "qqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqq22311115223"  // 00
    "322331213113331124241222222113333422331111667111333mm11224512233"  // 40
    "221133224443321111111111241221116211111211111111214522o5222134l1"  // 80
    "cccccccccccccccc222222222222221111111111444411132322244112111111"; // C0

std::size_t action_length(std::uint8_t code) {
    const bool two = (code >= 0xE0 && code <= 0xE6) || (code >= 0xFA && code <= 0xFD);
    return code == 0xF9 ? 4 : code == 0xD5 ? 3 : two ? 2 : 1;
}

// A walk over the bytes of a script that knows nothing of the program.
struct ScriptWalk {
    const Bytes& bytes;
    int dialogue = 0;
    std::size_t options = 0;
    std::vector<std::size_t> starts; // of the commands
    std::size_t end = 0;             // behind the final FE; 0 where it is not among the bytes

    explicit ScriptWalk(const Bytes& script) : bytes(script) {
        for (std::size_t at = 0; at < bytes.size() && end == 0;) {
            const std::size_t next = at + length_at(at);
            if (next > bytes.size())
                break;
            starts.push_back(at);
            end = bytes[at] == 0xFE ? next : 0;
            at = next;
        }
    }
    std::size_t byte(std::size_t at) const { return at < bytes.size() ? bytes[at] : 0; }
    std::size_t length_at(std::size_t at) {
        const std::uint8_t code = bytes[at];
        if (code == 0x48 || code == 0x4B) {
            const int n = static_cast<int>(byte(at + 1) + 256 * byte(at + 2));
            const int low = n >= 0x8000 ? n - 0x8000 : n >= 0x4000 ? n - 0x4000 : n;
            dialogue = n >= 0x4000 || n < 0xFA0 ? low : dialogue;
            options = static_cast<std::size_t>(options_of(dialogue));
        }
        switch (command_lengths[code]) {
        case 'q':
            return 2 + queue_length(at + 2, byte(at + 1));
        case 'm':
            return 5 + byte(at + 3) * byte(at + 4) % 256;
        case 'l':
            options = byte(at + 1);
            return 2 + 3 * options;
        case 'o':
            return 1 + 3 * options;
        case 'c':
            return 6 + 2 * (code & 7u);
        default:
            return static_cast<std::size_t>(command_lengths[code] - '0');
        }
    }
    std::size_t queue_length(std::size_t at, std::size_t count) const {
        const std::size_t wanted = count > 0x80 ? count - 0x80 : count;
        std::size_t done = 0;
        while (done < wanted)
            done += action_length(static_cast<std::uint8_t>(byte(at + done)));
        return done;
    }
};

Bytes joined(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

// Bytes of which every other is small, so that counts and sizes stay small in part.
Bytes any_bytes(Random& random, int count) {
    Bytes bytes;
    while (count-- > 0)
        bytes.push_back(random.below(2) == 0 ? random.byte()
                                             : static_cast<std::uint8_t>(random.below(12)));
    return bytes;
}

// A whole script of such bytes, and the commands that it makes.
struct AnyScript {
    Bytes bytes;
    ScriptWalk walk;
    explicit AnyScript(Random& random)
        : bytes(joined({any_bytes(random, 1 + random.below(200)), Bytes(400, 0xFE)})), walk(bytes) {
        bytes.resize(walk.end);
    }
};

// Loads the bytes and compares with the walk; a script that is whole is saved as it was.
void expect_law(ScriptEditor& editor, const Bytes& bytes) {
    Bytes padded = bytes;
    padded.resize(longest_script, 0xFE);
    editor.load(padded);
    const ScriptWalk walk(padded);
    std::vector<std::size_t> codes, shown;
    for (const std::size_t start : walk.starts)
        codes.push_back(padded[start]);
    for (int row = 1; row < static_cast<int>(editor.window.grid.size()); ++row)
        if (starts_command(editor.window.grid, row))
            shown.push_back(std::stoul(editor.cell(row, 0), nullptr, 16));
    ASSERT_EQ(shown, codes);
    ASSERT_EQ(editor.state->script.loaded.whole, walk.end != 0);
    ASSERT_EQ(editor.dialogs.messages.size(), walk.end != 0 ? 0u : 1u);
    editor.dialogs.messages.clear();
    if (walk.end == 0)
        return;
    ASSERT_EQ(editor.state->script.loaded.length, static_cast<int>(walk.end));
    const EncodedScript encoded = editor.encode();
    ASSERT_FALSE(encoded.refusal) << encoded.refusal->text;
    padded.resize(walk.end);
    ASSERT_EQ(encoded.bytes, padded);
    ASSERT_TRUE(editor.dialogs.silent());
}

TEST(ScriptLaw, EveryCommandAndEveryCutComesBack) {
    ScriptEditor editor;
    Random random(1);
    for (int code = 0; code < 256; ++code) {
        const Bytes list{0xBE, 3, 1, 2, 3, 0xFE, 5, 6, 7, 0xFE, 0xFE};
        Bytes script = joined({list, {static_cast<std::uint8_t>(code), 9, 3, 2, 4}});
        script = joined({script, any_bytes(random, 30), Bytes(800, 0x38)});
        const ScriptWalk walk(script);
        script.resize(code == 0xFE ? walk.end : walk.starts.at(2));
        script = joined({script, {0x38, 0xFE}});
        // As it is, and with an FE in the place of every argument.
        for (std::size_t at = list.size(); at + 2 < script.size(); ++at) {
            Bytes cut = script;
            cut[at] = at == list.size() ? cut[at] : 0xFE;
            ASSERT_NO_FATAL_FAILURE(expect_law(editor, cut)) << code << " at " << at;
        }
    }
}

TEST(ScriptLaw, EveryActionComesBackUnderEveryCount) {
    ScriptEditor editor;
    for (int action = 0; action < 256; ++action)
        for (const int count : {0, 1, 2, 3, 5, 0x7F, 0x80, 0x81, 0x85, 0xFF}) {
            const auto code = static_cast<std::uint8_t>(action);
            const Bytes bytes{5, static_cast<std::uint8_t>(count), code, 1, 0xFE, code, 3, 0xFF};
            ASSERT_NO_FATAL_FAILURE(expect_law(editor, bytes)) << action << " " << count;
        }
}

TEST(ScriptLaw, RandomScriptsComeBack) {
    ScriptEditor editor;
    for (unsigned seed = 0; seed < 4000; ++seed) {
        Random random(seed);
        const Bytes bytes = any_bytes(random, 1 + random.below(600));
        ASSERT_NO_FATAL_FAILURE(expect_law(editor, bytes)) << seed;
    }
}

TEST(ScriptLaw, NormalisingTouchesItsOwnRowsAndNoValue) {
    ScriptEditor editor;
    const auto same_rows = [](const ScriptRow& a, const ScriptRow& b) {
        return a.cells == b.cells && a.height == b.height;
    };
    for (unsigned seed = 0; seed < 400; ++seed) {
        Random random(seed);
        const AnyScript script(random);
        editor.load(script.bytes);
        ScriptGrid& grid = editor.window.grid;
        for (int row = 1; starts_command(grid, row); row = command_end(grid, row)) {
            const ScriptGrid before = grid;
            normalise_command(grid, row, editor.dialogs);
            ASSERT_EQ(grid.size(), before.size());
            for (std::size_t i = 0; i < grid.size(); ++i) {
                const int at = static_cast<int>(i);
                const bool own = at >= row && at < command_end(grid, row);
                ASSERT_TRUE(own || same_rows(grid[i], before[i])) << seed << " row " << i;
            }
            const ScriptGrid once = grid;
            normalise_command(grid, row, editor.dialogs);
            ASSERT_TRUE(std::equal(grid.begin(), grid.end(), once.begin(), same_rows));
        }
        ASSERT_EQ(editor.encode().bytes, script.bytes) << seed;
    }
}

TEST(ScriptLaw, RemovingAndRetypingTakeTheirOwnBytesAndNoOthers) {
    ScriptEditor editor;
    for (unsigned seed = 0; seed < 600; ++seed) {
        Random random(seed);
        const AnyScript script(random);
        const std::vector<std::size_t>& starts = script.walk.starts;
        if (starts.size() < 2)
            continue;
        const std::size_t index = random.engine() % (starts.size() - 1);
        const std::uint8_t* bytes = script.bytes.data();
        const Bytes before(bytes, bytes + starts[index]);
        const Bytes behind(bytes + starts[index + 1], bytes + script.bytes.size());
        editor.load(script.bytes);
        int row = 1;
        for (std::size_t command = 0; command < index; ++command)
            row = command_end(editor.window.grid, row);
        if (random.below(2) == 0) {
            const int clicked = row + random.below(command_end(editor.window.grid, row) - row);
            const int column = clicked == row ? 0 : is_blank(editor.cell(clicked, 1)) ? 2 : 1;
            if (is_blank(editor.cell(clicked, column))) // an empty list
                editor.click(row, 0);
            else
                editor.click(clicked, column);
            remove_script_item(*editor.state);
            EXPECT_EQ(editor.encode().bytes, joined({before, behind})) << seed;
        } else {
            editor.click(row, 0);
            editor.type({"b3", "1a", "A0205"});
            EXPECT_EQ(editor.encode().bytes, joined({before, {0xB3, 0x1A, 5, 0, 0}, behind}));
        }
        EXPECT_TRUE(editor.dialogs.silent()) << seed;
        EXPECT_FALSE(editor.window.Text2_visible);
    }
}

// An action with a random code, and what is typed for it.
struct AnyAction {
    Bytes bytes;
    std::vector<std::string> typed;
    explicit AnyAction(Random& random) : bytes{random.byte()} {
        const std::size_t length = action_length(bytes[0]);
        typed.push_back(format_hex(bytes[0]));
        bytes.resize(length, length == 4 ? 0 : 7);
        typed.resize(length == 4 ? 2 : length, length == 4 ? "0A0200" : "7");
    }
};

TEST(ScriptLaw, ARetypedActionTakesItsOwnBytesAndTheCountFollows) {
    ScriptEditor editor;
    for (unsigned seed = 0; seed < 1000; ++seed) {
        Random random(seed);
        Bytes actions[3];
        int row = 3;
        for (int part = 0; part < 3; ++part) // those before the one, it, and those behind it
            for (int count = part == 1 ? 1 : random.below(4); count > 0; --count) {
                const AnyAction action(random);
                actions[part] = joined({actions[part], action.bytes});
                row += part == 0 ? static_cast<int>(action.typed.size()) : 0;
            }
        const AnyAction typed(random);
        const auto mark = static_cast<std::uint8_t>(random.below(2) * 0x80);
        const auto script = [&](const Bytes& middle) {
            const Bytes queue = joined({actions[0], middle, actions[2]});
            return joined(
                {{5, static_cast<std::uint8_t>(mark | queue.size())}, queue, {0x38, 0xFE}});
        };
        editor.load(script(actions[1]));
        editor.click(row, 1);
        editor.type(typed.typed);
        ASSERT_EQ(editor.encode().bytes, script(typed.bytes)) << seed;
        ASSERT_FALSE(editor.window.Text2_visible);
    }
}

} // namespace
} // namespace veldrune::test
