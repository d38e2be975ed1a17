#include "editor/map_commands.h"
#include "support/editor_fixture.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

Bytes noise(std::size_t size, const std::string& marks = "FF FF") {
    Bytes bytes(size);
    Random(5).fill(bytes);
    put_bytes(bytes, 0x3000E0, hex_bytes(marks));
    return bytes;
}

Bytes patched(Bytes image) {
    image.resize(std::max<std::size_t>(image.size(), 0x3028FD));
    for (std::size_t i = 0; i < 3327; ++i) {
        image[0x300200 + 3 * i] = image[0xCE802 + 2 * i];
        image[0x300201 + 3 * i] = image[0xCE803 + 2 * i];
        image[0x300202 + 3 * i] = i < 1592 ? 0xCD : 0xCE;
    }
    put_bytes(image, 0x81BF,
              hex_bytes("C2 20 A5 D0 AA A8 E8 E8 88 C0 00 00 D0 F8 BF 00 00 F0 85 C9 98 E2 20 BF "
                        "02 00 F0 85 CB"));
    image[0x3000E1] &= 0xFD;
    return image;
}

constexpr auto expand = [](Editor& editor) { expand_rom(*editor.state); };
constexpr auto patch = [](Editor& editor) { apply_dialogue_patch(*editor.state); };

TEST(DialoguePatch, ChangesTheRoutineTheTableAndTheMark) {
    for (const std::size_t size : {0x300200u, 0x301000u, 0x400200u}) {
        Editor editor(noise(size));
        EXPECT_FALSE(has_dialogue_patch(editor.state->rom));
        for (int times = 0; times < 2; ++times) {
            patch(editor);
            ASSERT_TRUE(editor.image() == patched(noise(size))) << size;
        }
        EXPECT_TRUE(has_dialogue_patch(editor.state->rom) && editor.state->patch_flags[8]);
        // Asked once: the second patch changes nothing.
        EXPECT_EQ(editor.dialogs.questions.size(), size == 0x300200 ? 0u : 1u);
    }
}

TEST(Expansion, FillsTheAddedMegabyteOnceAndWipesATableInIt) {
    Editor editor(noise(0x300200));
    patch(editor);
    editor.dialogs.answers = {false};
    expand(editor);
    EXPECT_EQ(editor.dialogs.asked(), "The image; ");
    EXPECT_TRUE(editor.image() == patched(noise(0x300200)));
    expand(editor);
    Bytes expected = patched(noise(0x300200));
    expected.resize(0x300200);
    expected.resize(0x400200);
    EXPECT_TRUE(editor.image() == expected);
    editor.image()[0x350000] = expected[0x350000] = 1;
    expand(editor);
    ASSERT_EQ(editor.dialogs.messages.size(), 1u);
    EXPECT_TRUE(editor.dialogs.messages[0].text.ends_with("already. Nothing has been changed."));
    EXPECT_TRUE(editor.image() == expected);
}

TEST(Expansion, AFailedWriteLeavesAPrefixOfTheWrites) {
    const auto make = [] { return Editor(noise(0x300200)); };
    expect_prefixes_of_writes(make, expand);
    expect_prefixes_of_writes(make, patch);
    // What can't be read is not copied, and half a patch is none.
    for (const auto& [reading, writing] :
         {std::pair(1, 0), std::pair(2, 0), std::pair(3, 0), std::pair(0, 3)}) {
        Editor editor(noise(0x301000));
        editor.disk.fail(reading, writing);
        patch(editor);
        EXPECT_EQ(editor.disk.writes, writing == 0 ? 0 : writing + 1); // and the flush
        EXPECT_EQ(editor.dialogs.messages.size(), 1u);
        EXPECT_EQ(editor.dialogs.questions.empty(), writing == 0);
        EXPECT_FALSE(has_dialogue_patch(editor.state->rom) || editor.state->patch_flags[8]);
    }
}

TEST(Expansion, NamesOnlyTheMapsThatItWouldOverwrite) {
    for (const auto& [run, place, named] :
         {std::tuple(+patch, 0x3028FC, true), std::tuple(+patch, 0x3028FD, false),
          std::tuple(+expand, 0x3028FD, true)}) {
        Bytes image(0x302900);
        put_word(image, 0x300300, 1);
        put_word(image, 0x19CF90, static_cast<std::size_t>(place - 0x19D3B0) & 0xFFFF);
        image[0x19CF92] = static_cast<std::uint8_t>((place - 0x19D3B0) >> 16);
        Editor editor(image);
        run(editor);
        EXPECT_EQ(editor.dialogs.questions.at(0).find("moved maps") != std::string::npos, named);
    }
}

TEST(PatchMarks, AreClearedBitsAndFlagsAreOnlySet) {
    const std::tuple<const char*, std::size_t, const char*> cases[] = {
        {"7D 16", 0x300200, "0100000101010"},
        {"FF E1", 0x3000E2, "0000000010111"},
        {"00", 0x3000E1, "0000000000000"}, // the file ends between the two
    };
    for (const auto& [marks, size, expected] : cases) {
        Editor editor(noise(size, marks));
        editor.disk["b.smc"] = noise(0x300200);
        open_image_file(*editor.state, "b.smc");
        std::string flags;
        for (const bool flag : editor.state->patch_flags)
            flags += flag ? '1' : '0';
        EXPECT_EQ(flags, expected);
    }
}

} // namespace
} // namespace veldrune::test
