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
        const auto differing = differing_controls(kind, record, form);
        const ObjectBytes former = record;
        if (kind == chest) {
            const int bits = record[3] & 0xF8;
            const int pressed = bits != 0 ? bits & -bits : form.option < 0 ? 0 : 8 << form.option;
            record[3] = static_cast<std::uint8_t>((record[3] & 7) | pressed);
        }
        const auto packed = pack_object(kind, record, form, dialogs);
        ASSERT_EQ(packed, record) << static_cast<int>(kind);
        ASSERT_EQ(differing == std::vector<ObjectControl>{&Form10::option}, record != former);
        ASSERT_EQ(differing.empty(), record == former);
    }
    EXPECT_TRUE(dialogs.silent());
}

TEST(ObjectRecord, AControlDiffersOnceItHoldsAnotherValue) {
    using F = Form10;
    const std::tuple<std::string F::*, const char*, bool> typed[] = {
        {&F::Text5, "05", false},   {&F::Text5, " 5", false},    {&F::Text5, "105", true},
        {&F::Text5, "", true},      {&F::Text2, "9", false}, // three of its bits are kept
        {&F::Text2, "2", true},     {&F::Text1, "A0201", false}, {&F::Text1, "0A0201", true},
        {&F::Text4, "1EE0:1", true}};
    const ObjectBytes record{1, 0, 0x24, 0x10, 5, 0xC6, 3, 0, 0xF8};
    Form10 same;
    unpack_object(npc, record, same);
    const auto expect = [&](const Form10& form, ObjectControl control, bool differs) {
        const auto controls = std::vector(differs ? 1u : 0u, control);
        EXPECT_EQ(differing_controls(npc, record, form), controls);
    };
    for (const auto& [field, text, differs] : typed) {
        Form10 form = same;
        form.*field = text;
        SCOPED_TRACE(text);
        expect(form, field, differs);
    }
    for (bool F::*const box : {&F::Check1, &F::Check2, &F::Check3}) {
        Form10 form = same;
        form.*box = !(form.*box);
        expect(form, box, true);
    }
    for (int F::*const list : {&F::Combo1, &F::Combo2, &F::Combo3, &F::Combo4}) {
        Form10 form = same;
        form.*list ^= 1;
        expect(form, list, true);
    }
}

// The bytes that the numbers in the fields make, each of them a plain sum. n holds the number of
// each text, and in 0 and 3 the byte and the bit of a flag.
ObjectBytes summed(ObjectKind kind, const Form10& f, const ObjectBytes& old, const int (&n)[8]) {
    const int event = n[kind == npc ? 1 : 4] - 0xA0200;
    const int npc_flag = (n[0] - 0x1EE0) * 8 + n[3];
    // clang-format off
    const std::array<int, max_object_size> sums[] = {
        {event, event >> 8,
         (npc_flag & 3) * 64 + (old[2] & 0x20) + (n[2] & 7) * 4 + (event >> 16 & 0xFF),
         npc_flag >> 2, n[5], f.Combo3 * 64 + n[6], n[7],
         f.Combo1 * 64 + f.Check2 * 32 + f.Check1 * 16 + f.Combo4,
         (old[8] & 0xF8) + (f.Check3 ? 0 : 4) + f.Combo2},
        {n[1], n[2], n[0] * 8 + n[3],
         f.Check3 * 4 + f.Check1 * 2 + f.Check2 + (f.option < 0 ? 0 : 8 << f.option), f.Combo2},
        {n[1], n[2], event, event >> 8, event >> 16},
        {n[1], n[2], n[4], n[4] >> 8, n[7], n[5]},
        {n[1], n[2], n[6], n[4], n[4] >> 8, n[7], n[5]},
    };
    // clang-format on
    ObjectBytes bytes;
    std::ranges::copy(sums[static_cast<std::size_t>(kind)], bytes.begin());
    return bytes;
}

TEST(ObjectRecord, ChangedFieldsPackAsTheSumsSay) {
    Random random(2);
    ScriptedDialogs dialogs;
    for (int i = 0; i < 20000; ++i) {
        const ObjectKind kind = all_kinds[random.below(5)];
        int n[8];
        for (int& number : n) // often too wide for its bits
            number = random.below(1 << 4 * (1 + random.below(kind == npc ? 5 : 6)));
        n[0] = kind == npc ? 0x1000 + random.below(0xF000) : random.below(0x20);
        n[3] = random.below(8);
        const bool has_flag = kind == npc || kind == chest;
        Form10 f;
        f.Text1 = format_hex(n[1]);
        f.Text2 = format_hex(n[2]);
        f.Text4 = has_flag ? format_hex(n[0]) + ":" + format_hex(n[3]) : format_hex(n[4]);
        f.Text5 = format_hex(n[5]);
        f.Text6 = format_hex(n[6]);
        f.Text7 = format_hex(n[7]);
        f.Combo1 = random.below(4);
        f.Combo2 = random.below(kind == chest ? 256 : 4);
        f.Combo3 = random.below(4);
        f.Combo4 = random.below(16);
        f.option = random.below(6) - 1;
        for (bool* box : {&f.Check1, &f.Check2, &f.Check3})
            *box = random.below(2) != 0;
        const ObjectBytes old = any_record(kind, random);
        ASSERT_EQ(pack_object(kind, old, f, dialogs), summed(kind, f, old, n))
            << static_cast<int>(kind);
    }
    EXPECT_TRUE(dialogs.silent());
}

TEST(ObjectRecord, WhatCantBeMeantIsReportedAndNotPacked) {
    const Message large = {"The event address you've entered is too large", "Error"};
    const Message format = {"Your input must be in the following format xxxx:y", "error"};
    const Message bit = {"Your flag bit must 0 - 7", "Error"};
    const Message wrong = {
        "Your byte:bit is in an incorrect format. The format must be x:y and your\n"
        "byte must be no greater than 1F and your bit must be no greater than 7",
        "Error"};
    const auto hex = [](const char* text) { return no_number(text, "hex"); };
    using F = Form10;
    // clang-format off
    const struct { ObjectKind kind; std::string F::*field; const char* text; bool packed; Messages messages; } cases[] = {
        {npc,      &F::Text1, " A 02 00 ", true,  {}},
        {npc,      &F::Text1, "",          true,  {}},
        {npc,      &F::Text1, "0A0200",    false, {large}},
        {npc,      &F::Text1, "A020ü",     true,  {hex("0A020ü")}}, // a character of two bytes, here and below
        {npc,      &F::Text4, "1EE0:8",    false, {bit}},
        {npc,      &F::Text4, "1EE0:4 ",   false, {format}}, // blanks count
        {npc,      &F::Text4, "12:4:5",    true,  {hex("12:4")}},
        {npc,      &F::Text4, "1EE0-9",    false, {format, bit}},
        {npc,      &F::Text5, " ",         true,  {blank_hex}},
        {chest,    &F::Text4, " 1 F : 7 ", true,  {}},
        {chest,    &F::Text4, "20:0",      false, {wrong}},
        {chest,    &F::Text4, "1F:8",      false, {wrong}},
        {chest,    &F::Text4, "1F:45",     false, {wrong}},
        {chest,    &F::Text4, "012:4",     false, {wrong, wrong, hex(":")}},
        {chest,    &F::Text4, "1:üü",      false, {wrong, hex("1:"), hex("ü")}},
        {chest,    &F::Text4, "",          false, {wrong}},
        {chest,    &F::Text4, "35",        false, {wrong, wrong}}, // its byte is 35, too
        {entrance, &F::Text6, "x",         true,  {}}, // no field of its record
    };
    // clang-format on
    for (const auto& [kind, field, text, packed, messages] : cases) {
        Form10 form;
        unpack_object(kind, {}, form);
        form.*field = text;
        ScriptedDialogs dialogs;
        EXPECT_EQ(pack_object(kind, {}, form, dialogs).has_value(), packed) << text;
        EXPECT_EQ(dialogs.messages, messages) << text;
    }
    Form10 form; // all fields are looked at, whatever went wrong before
    unpack_object(npc, {}, form);
    form.Text1 = "1234567";
    form.Text2 = "";
    form.Text4 = "1EE0:F";
    ScriptedDialogs dialogs;
    EXPECT_FALSE(pack_object(npc, {}, form, dialogs));
    EXPECT_EQ(dialogs.messages, (Messages{large, blank_hex, bit}));
}

} // namespace
} // namespace veldrune::test
