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

// A whole script and a walk over its commands that knows nothing of the program. Of the bytes half
// are small, so that counts and sizes stay small in part, and some are the end's, in the place of
// arguments too.
struct AnyScript {
    Bytes bytes = Bytes(1200, 0xFE);
    int dialogue = 0;
    std::size_t options = 0;
    std::vector<std::size_t> starts; // of the commands

    explicit AnyScript(Random& random) {
        for (std::uint8_t& byte : std::span(bytes).first(1 + random.engine() % 300))
            byte = random.below(50) == 0  ? 0xFE
                   : random.below(2) == 0 ? random.byte()
                                          : static_cast<std::uint8_t>(random.below(12));
        std::size_t end = 0;
        do {
            starts.push_back(end);
            end += length_at(end);
        } while (bytes[starts.back()] != 0xFE);
        bytes.resize(end);
    }
    std::size_t length_at(std::size_t at) {
        const std::uint8_t code = bytes[at];
        if (code == 0x48 || code == 0x4B) {
            const int n = bytes[at + 1] + 256 * bytes[at + 2];
            const int low = n >= 0x8000 ? n - 0x8000 : n >= 0x4000 ? n - 0x4000 : n;
            dialogue = n >= 0x4000 || n < 0xFA0 ? low : dialogue;
            options = static_cast<std::size_t>(options_of(dialogue));
        }
        switch (command_lengths[code]) {
        case 'q':
            return 2 + queue_length(at + 2, bytes[at + 1]);
        case 'm':
            return 5u + bytes[at + 3] * bytes[at + 4] % 256u;
        case 'l':
            options = bytes[at + 1];
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
            done += action_length(bytes[at + done]);
        return done;
    }
};

Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(ScriptLaw, EveryScriptComesBackAndACommandIsNormalisedRemovedOrRetypedAlone) {
    ScriptEditor editor;
    for (unsigned seed = 0; seed < 1500; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        const AnyScript script(random);
        const std::vector<std::size_t>& starts = script.starts;
        editor.load(script.bytes);
        ScriptGrid& grid = editor.window.grid;
        ASSERT_TRUE(editor.state->script.loaded.whole);
        ASSERT_EQ(editor.state->script.loaded.length(), static_cast<int>(script.bytes.size()));
        ASSERT_EQ(editor.encode().bytes, script.bytes);
        std::vector<int> rows{1};
        for (const std::size_t start : starts) {
            const int row = rows.back(), end = command_end(grid, row);
            ASSERT_EQ(std::stoi(editor.cell(row, 0), nullptr, 16), script.bytes[start]);
            const ScriptGrid before = grid;
            normalise_command(grid, row, editor.dialogs);
            ASSERT_EQ(grid.size(), before.size());
            for (int at = 0; at < std::ssize(grid); ++at)
                ASSERT_TRUE((at >= row && at < end) ||
                            row_at(grid, at).cells == row_at(before, at).cells)
                    << "row " << at;
            rows.push_back(end);
        }
        ASSERT_EQ(editor.encode().bytes, script.bytes);
        if (starts.size() < 2)
            continue;
        const std::size_t index = random.engine() % (starts.size() - 1);
        const auto bytes = script.bytes.begin();
        const Bytes before(bytes, bytes + std::ptrdiff_t(starts[index]));
        const Bytes after(bytes + std::ptrdiff_t(starts[index + 1]), script.bytes.end());
        const bool retyped = random.below(2) == 0;
        editor.load(script.bytes);
        editor.click(rows[index], 0);
        editor.act(retyped ? "b3 1a A0205" : "-");
        ASSERT_EQ(editor.encode().bytes,
                  before + (retyped ? Bytes{0xB3, 0x1A, 5, 0, 0} : Bytes()) + after);
        ASSERT_TRUE(editor.dialogs.silent() && !editor.window.Text2_visible);
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
        const int row = 3 + random.below(4);
        const Bytes before(static_cast<std::size_t>(row - 3), 0xCC); // each in one row
        const AnyAction former(random), typed(random);
        Bytes after;
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
