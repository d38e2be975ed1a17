#include "demo/dialogue_book.h"
#include "dialogue/dialogue_text.h"
#include "support/demo_reader.h"

#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

namespace veldrune::test {
namespace {

constexpr int scripts = 0xA0200, scripts_end = 0xCE802, second_bank = 1591, dialogues = 3327;

// Bytes of each command, the queues aside; letters where the bytes tell.
constexpr std::string_view command_sizes = "qqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqqq"
                                           "qqqqq22311115223" // 30
                                           "32233121d11d3311"
                                           "2424122222211333"
                                           "3422331111667111"
                                           "333mm11224512233"
                                           "2211332244433211" // 80
                                           "1111111124122111"
                                           "6211111211111111"
                                           "214522o5222134l1"
                                           "cccccccccccccccc" // C0
                                           "2222222222222211"
                                           "1111111144441113"
                                           "2322244112111111";
static_assert(command_sizes.size() == 256);

constexpr int action_size(int code) {
    return code == 0xF9                                                       ? 4
           : code == 0xD5                                                     ? 3
           : (code >= 0xE0 && code <= 0xE6) || (code >= 0xFA && code <= 0xFD) ? 2
                                                                              : 1;
}

/// Walks over scripts and remembers what is there.
class Walker {
  public:
    explicit Walker(const Reader& reader) : rom(reader) {}

    /// The place behind the script that begins at one.
    int script_end(int at) {
        starts.insert(at);
        while (true) {
            places.insert(at);
            const int code = rom.byte(at);
            commands.insert(code);
            at += size(at, code);
            if (code == 0xFE || at >= scripts_end)
                return at;
        }
    }
    std::set<int> starts, places, commands, actions, targets;

  private:
    int size(int at, int code) {
        const char kind = command_sizes[static_cast<std::size_t>(code)];
        if (code == 0xB2 || code == 0xBD)
            targets.insert(scripts + rom.pointer(at + 1));
        switch (kind) {
        case 'q':
            return queue_size(at);
        case 'd':
            options = count_options(rom.word(at + 1) & 0x3FFF);
            return 3;
        case 'm':
            return 5 + rom.byte(at + 3) * rom.byte(at + 4) % 256;
        case 'l':
            options = rom.byte(at + 1);
            return 2 + take_targets(at + 2, options);
        case 'o':
            EXPECT_GE(options, 2) << at;
            return 1 + take_targets(at + 1, options);
        case 'c': {
            const int words = code % 8 + 1;
            return 1 + 2 * words + take_targets(at + 1 + 2 * words, 1);
        }
        default:
            return kind - '0';
        }
    }
    int queue_size(int at) {
        int next = at + 2;
        const int end = next + rom.byte(at + 1);
        while (next < end) {
            actions.insert(rom.byte(next));
            EXPECT_TRUE(next + 1 < end || rom.byte(next) == 0xFF) << at;
            next += action_size(rom.byte(next));
        }
        EXPECT_EQ(next, end) << at;
        return end - at;
    }
    int take_targets(int at, int count) {
        for (int i = 0; i < count; ++i)
            targets.insert(scripts + rom.pointer(at + 3 * i));
        return 3 * count;
    }
    int count_options(int number) const {
        int at = (number < second_bank ? 0xD0200 : 0xE0200) + rom.word(0xCE802 + 2 * number);
        int count = 0;
        for (const int first = at; rom.byte(at) != 0; ++at)
            count += rom.byte(at) == 0x15 && at > first;
        return count;
    }

    const Reader& rom;
    int options = 0;
};

TEST_F(DemoImage, ScriptsFollowEachOtherAndHoldEveryCommandAndAction) {
    Walker walker(rom);
    std::set<int> objects; // scripts of NPCs and triggers
    for (int at = 0x41C10 + rom.word(0x41C10), end = 0x41C10 + rom.word(0x41C10 + 828); at < end;
         at += 9)
        objects.insert(scripts + (rom.pointer(at) & 0x3FFFF));
    for (int at = 0x40200 + rom.word(0x40200), end = 0x40200 + rom.word(0x40200 + 828); at < end;
         at += 5)
        objects.insert(scripts + rom.pointer(at + 2));
    int next = scripts;
    while (next <= *objects.rbegin() || next <= *walker.targets.rbegin())
        next = walker.script_end(next);
    EXPECT_LT(next, scripts_end);
    EXPECT_GT(objects.size(), 300u);
    for (const int at : objects)
        EXPECT_TRUE(walker.starts.contains(at)) << at;
    for (const int at : walker.targets)
        EXPECT_TRUE(walker.places.contains(at)) << at;
    EXPECT_EQ(walker.commands.size(), 256u);
    EXPECT_EQ(walker.actions.size(), 256u);
}

TEST_F(DemoImage, DialoguesFillTheirBanksFromBothEndsOfTheTable) {
    std::set<std::string> texts;
    std::size_t bytes = 0, letters = 0, most_options = 0, longest = 0;
    for (int number = 0; number < dialogues; ++number) {
        const int bank = number < second_bank ? 0xD0200 : 0xE0200;
        std::string text;
        int at = bank + rom.word(0xCE802 + 2 * number);
        for (; rom.byte(at) != 0; ++at)
            text += decode_dialogue_byte(static_cast<std::uint8_t>(rom.byte(at)));
        ASSERT_LT(at, bank + 0x10000) << number;
        EXPECT_EQ(text.find('('), std::string::npos) << text;
        bytes += static_cast<std::size_t>(at - bank - rom.word(0xCE802 + 2 * number));
        letters += text.size();
        longest = std::max(longest, text.size());
        most_options = std::max<std::size_t>(most_options, wrap_dialogue(text).option_count);
        texts.insert(std::move(text));
    }
    EXPECT_GT(texts.size(), 300u);
    EXPECT_LT(3 * bytes, 2 * letters); // most letters stand in pairs
    EXPECT_GE(most_options, 3u);
    EXPECT_GT(longest, 150u);
    EXPECT_TRUE(texts.contains("Lie down for a while?\r\n> Yes\r\n> No"));
    EXPECT_TRUE(texts.contains("Good to see you again, VARNA."));
}

TEST(DialogueBook, TakesTheCodeThatStandsForMost) {
    EXPECT_EQ(demo::encode_dialogue("The end...\n> VARNA"),
              (Bytes{0x9D, 0x80, 0xA4, 0x3D, 0x67, 0x01, 0x15, 0x02, 0x00}));
    EXPECT_THROW(demo::encode_dialogue("a | b"), std::invalid_argument);
}

} // namespace
} // namespace veldrune::test
