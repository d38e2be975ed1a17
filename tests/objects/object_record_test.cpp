#include "objects/object_record.h"
#include "rom/number_text.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum ObjectKind;

ObjectBytes any_record(ObjectKind kind, Random& random) {
    ObjectBytes record{};
    for (std::size_t i = 0; i < place_of(kind).size; ++i)
        record[i] = random.byte();
    return record;
}

TEST(ObjectRecord, RandomRecordsComeBackByteForByte) {
    Random random(1);
    ScriptedDialogs dialogs;
    for (int i = 0; i < 20000; ++i) {
        const ObjectKind kind = all_kinds[random.below(5)];
        ObjectBytes record = any_record(kind, random);
        Form10 form;
        form.option = random.below(6) - 1;
        unpack_object(kind, record, form);
        if (kind == chest) {
            const int bits = record[3] & 0xF8;
            const int pressed = bits != 0 ? bits & -bits : form.option < 0 ? 0 : 8 << form.option;
            record[3] = static_cast<std::uint8_t>((record[3] & 7) | pressed);
        }
        const auto packed = pack_object(kind, record, form, dialogs);
        ASSERT_EQ(packed, record) << static_cast<int>(kind);
    }
    EXPECT_TRUE(dialogs.silent());
}

// The bytes that the numbers in the fields make, each of them a plain sum.
ObjectBytes summed(ObjectKind kind, const Form10& f, const ObjectBytes& old, const int (&n)[8],
                   int flag_byte, int flag_bit) {
    std::array<int, max_object_size> b{};
    const int e = n[kind == npc ? 1 : 4] - 0xA0200;
    switch (kind) {
    case npc:
        b = {e,
             e >> 8,
             (flag_bit & 3) * 64 + (old[2] & 0x20) + (n[2] & 7) * 4 + (e >> 16 & 0xFF),
             (flag_byte - 0x1EE0) * 2 + (flag_bit >> 2),
             n[5],
             f.Combo3 * 64 + n[6],
             n[7],
             f.Combo1 * 64 + f.Check2 * 32 + f.Check1 * 16 + f.Combo4,
             (old[8] & 0xF8) + (f.Check3 ? 0 : 4) + f.Combo2};
        break;
    case chest:
        b = {n[1], n[2], (flag_byte & 0x1F) * 8 + flag_bit,
             f.Check3 * 4 + f.Check1 * 2 + f.Check2 + (f.option < 0 ? 0 : 8 << f.option), f.Combo2};
        break;
    case event_trigger:
        b = {n[1], n[2], e, e >> 8, e >> 16};
        break;
    case entrance:
        b = {n[1], n[2], n[4], n[4] >> 8, n[7], n[5]};
        break;
    case long_entrance:
        b = {n[1], n[2], n[6], n[4], n[4] >> 8, n[7], n[5]};
        break;
    }
    ObjectBytes bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(b[i]);
    return bytes;
}

TEST(ObjectRecord, ChangedFieldsPackAsTheSumsSay) {
    Random random(2);
    ScriptedDialogs dialogs;
    for (int i = 0; i < 20000; ++i) {
        const ObjectKind kind = all_kinds[random.below(5)];
        Form10 f;
        int n[8] = {};
        for (int& number : n) // often too wide for its bits
            number = random.below(1 << 4 * (1 + random.below(kind == npc ? 5 : 6)));
        std::string* const texts[] = {&f.Text1, &f.Text2, &f.Text4, &f.Text5, &f.Text6, &f.Text7};
        for (std::size_t t = 0; t < 6; ++t)
            *texts[t] = format_hex(n[std::array{1, 2, 4, 5, 6, 7}[t]]) + (t == 3 ? " " : "");
        const int flag_byte = kind == npc ? 0x1000 + random.below(0xF000) : random.below(0x20);
        const int flag_bit = random.below(8);
        if (kind == npc || kind == chest)
            f.Text4 = format_hex(flag_byte) + ":" + format_hex(flag_bit);
        f.Combo1 = random.below(4);
        f.Combo2 = random.below(kind == chest ? 256 : 4);
        f.Combo3 = random.below(4);
        f.Combo4 = random.below(16);
        f.option = random.below(6) - 1;
        for (bool* box : {&f.Check1, &f.Check2, &f.Check3})
            *box = random.below(2) != 0;
        const ObjectBytes old = any_record(kind, random);
        const auto packed = pack_object(kind, old, f, dialogs);
        ASSERT_TRUE(packed);
        ASSERT_EQ(*packed, summed(kind, f, old, n, flag_byte, flag_bit)) << static_cast<int>(kind);
    }
    EXPECT_TRUE(dialogs.silent());
}

TEST(ObjectRecord, WhatCantBeMeantIsToldAndNotPacked) {
    const Message large = {"The event address you've entered is too large", "Error"};
    const Message format = {"Your input must be in the following format xxxx:y", "error"};
    const Message bit = {"Your flag bit must 0 - 7", "Error"};
    const Message wrong = {
        "Your byte:bit is in an incorrect format. The format must be x:y and your\n"
        "byte must be no greater than 1F and your bit must be no greater than 7",
        "Error"};
    const auto hex = [](const char* text) { return no_number(text, "hex"); };
    const auto expect = [](ObjectKind kind, std::string Form10::*field, const std::string& text,
                           bool packed, const Messages& messages) {
        Form10 form;
        unpack_object(kind, {}, form);
        form.*field = text;
        ScriptedDialogs dialogs;
        EXPECT_EQ(pack_object(kind, {}, form, dialogs).has_value(), packed) << text;
        EXPECT_EQ(dialogs.messages, messages) << text;
    };
    // clang-format off
    struct Row { const char* text; bool packed; Messages messages; };
    const Row events[] = {
        {"A0200",     true,  {}},
        {" A 02 00 ", true,  {}},
        {"",          true,  {}},
        {"0A0200",    false, {large}},
        {"A020G",     true,  {hex("0A020G")}},
        {"A020ü",     true,  {hex("0A020ü")}}, // a character of two bytes, here and below
    };
    const Row npc_flags[] = {
        {"1EE0:4",    true,  {}},
        {"1EE0:8",    false, {bit}},
        {"1EE0:4 ",   false, {format}}, // blanks count
        {"1EE0-9",    false, {format, bit}},
        {"",          false, {format}},
        {"1EEX:4",    true,  {hex("1EEX")}},
        {"1EEü:4",    true,  {hex("1EEü")}},
    };
    const Row chest_flags[] = {
        {"3:5",       true,  {}},
        {" 1 F : 7 ", true,  {}},
        {"20:0",      false, {wrong}},
        {"1F:8",      false, {wrong}},
        {"1F:45",     false, {wrong}},
        {"012:4",     false, {wrong, wrong, hex(":")}},
        {"1ü:4",      true,  {hex("1ü")}},
        {"1:üü",      false, {wrong, hex("1:"), hex("ü")}},
        {"",          false, {wrong}},
        {"35",        false, {wrong, wrong}}, // its byte is 35, too
    };
    // clang-format on
    for (const auto& [text, packed, messages] : events)
        expect(npc, &Form10::Text1, text, packed, messages);
    for (const auto& [text, packed, messages] : npc_flags)
        expect(npc, &Form10::Text4, text, packed, messages);
    for (const auto& [text, packed, messages] : chest_flags)
        expect(chest, &Form10::Text4, text, packed, messages);
    expect(npc, &Form10::Text5, " ", true, {blank_hex});
    expect(chest, &Form10::Text1, "1G", true, {hex("1G")});
    expect(entrance, &Form10::Text6, "x", true, {}); // no field of its record
    Form10 form; // all fields are looked at, whatever went wrong before
    unpack_object(npc, {}, form);
    form.Text1 = "1234567";
    form.Text2 = "";
    form.Text4 = "1EE0:F";
    form.Text7 = "Z";
    ScriptedDialogs dialogs;
    EXPECT_FALSE(pack_object(npc, {}, form, dialogs));
    EXPECT_EQ(dialogs.messages, (Messages{large, blank_hex, bit, hex("Z")}));
}

} // namespace
} // namespace veldrune::test
