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
    std::size_t end = 0;             // after the final FE; 0 where it is not among the bytes

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

Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// A whole script and its walk. Of the bytes half are small, so that counts and sizes stay small in
// part, and some are the end's, in the place of arguments too.
struct AnyScript {
    Bytes bytes;
    ScriptWalk walk;
    explicit AnyScript(Random& random) : bytes(any_bytes(random) + Bytes(800, 0xFE)), walk(bytes) {
        bytes.resize(walk.end);
    }
    static Bytes any_bytes(Random& random) {
        Bytes bytes(static_cast<std::size_t>(1 + random.below(300)));
        for (std::uint8_t& byte : bytes)
            byte = random.below(50) == 0  ? 0xFE
                   : random.below(2) == 0 ? random.byte()
                                          : static_cast<std::uint8_t>(random.below(12));
        return bytes;
    }
};

TEST(ScriptLaw, EveryScriptComesBackAsItIsAndNormalised) {
    ScriptEditor editor;
    for (unsigned seed = 0; seed < 1500; ++seed) {
        Random random(seed);
        const AnyScript script(random);
        editor.load(script.bytes);
        ScriptGrid& grid = editor.window.grid;
        ASSERT_TRUE(editor.state->script.loaded.whole);
        ASSERT_EQ(editor.state->script.loaded.length(), static_cast<int>(script.walk.end));
        ASSERT_EQ(editor.encode().bytes, script.bytes) << seed;
        int row = 1;
        for (const std::size_t start : script.walk.starts) {
            ASSERT_EQ(std::stoi(editor.cell(row, 0), nullptr, 16), script.bytes[start]) << seed;
            const ScriptGrid before = grid;
            const int end = command_end(grid, row);
            normalise_command(grid, row, editor.dialogs);
            ASSERT_EQ(grid.size(), before.size());
            for (int at = 0; at < std::ssize(grid); ++at)
                ASSERT_TRUE((at >= row && at < end) ||
                            row_at(grid, at).cells == row_at(before, at).cells)
                    << seed << " row " << at;
            row = end;
        }
        const std::string once = editor.rows();
        for (row = 1; starts_command(grid, row); row = command_end(grid, row))
            normalise_command(grid, row, editor.dialogs);
        ASSERT_EQ(editor.rows(), once);
        ASSERT_EQ(editor.encode().bytes, script.bytes) << seed;
        ASSERT_TRUE(editor.dialogs.silent()) << seed;
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
        const Bytes after(bytes + starts[index + 1], bytes + script.bytes.size());
        editor.load(script.bytes);
        int row = 1;
        for (std::size_t command = 0; command < index; ++command)
            row = command_end(editor.window.grid, row);
        const bool retyped = random.below(2) == 0;
        const int clicked = row + random.below(command_end(editor.window.grid, row) - row);
        const int column = clicked == row ? 0 : is_blank(editor.cell(clicked, 1)) ? 2 : 1;
        if (retyped || is_blank(editor.cell(clicked, column))) // an empty list
            editor.click(row, 0);
        else
            editor.click(clicked, column);
        editor.act(retyped ? "b3 1a A0205" : "-");
        EXPECT_EQ(editor.encode().bytes,
                  (before + (retyped ? Bytes{0xB3, 0x1A, 5, 0, 0} : Bytes()) + after))
            << seed;
        EXPECT_TRUE(editor.dialogs.silent()) << seed;
        EXPECT_FALSE(editor.window.Text2_visible);
    }
}

// An action with a random code, and what is typed for it.
struct AnyAction {
    Bytes bytes;
    std::string typed;
    explicit AnyAction(Random& random) : bytes{random.byte()}, typed(format_hex(bytes[0])) {
        const std::size_t length = action_length(bytes[0]);
        bytes.resize(length, length == 4 ? 0 : 7);
        typed += length == 4 ? " 0A0200" : length == 3 ? " 7 7" : length == 2 ? " 7" : "";
    }
};

TEST(ScriptLaw, ARetypedActionTakesItsOwnBytesAndTheCountFollows) {
    ScriptEditor editor;
    for (unsigned seed = 0; seed < 1000; ++seed) {
        Random random(seed);
        Bytes before, after;
        int row = 3;
        for (int count = random.below(4); count > 0; --count) {
            const AnyAction action(random);
            before = before + action.bytes;
            row += static_cast<int>(std::ranges::count(action.typed, ' ')) + 1;
        }
        const AnyAction former(random), typed(random);
        for (int count = random.below(4); count > 0; --count)
            after = after + AnyAction(random).bytes;
        const int mark = random.below(2) * 0x80;
        const auto script = [&](const Bytes& action) {
            const Bytes queue = before + action + after;
            const auto count = static_cast<std::uint8_t>(static_cast<int>(queue.size()) | mark);
            return Bytes{5, count} + queue + Bytes{0x38, 0xFE};
        };
        editor.load(script(former.bytes));
        editor.click(row, 1);
        editor.act(typed.typed);
        ASSERT_EQ(editor.encode().bytes, script(typed.bytes)) << seed;
        ASSERT_FALSE(editor.window.Text2_visible);
    }
}

} // namespace
} // namespace veldrune::test
