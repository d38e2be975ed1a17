#pragma once

#include "support/memory_disk.h"

#include <gtest/gtest.h>

namespace veldrune::test {

/// What a file holds after the first done of the writes, and, with half, half of the next one.
inline Bytes after_writes(Bytes file, const std::vector<MemoryDisk::Write>& log, std::size_t done,
                          bool half) {
    for (std::size_t i = 0; i <= done && i < log.size(); ++i) {
        Bytes bytes = log[i].bytes;
        if (i == done)
            bytes.resize(half ? bytes.size() / 2 : 0);
        put_bytes(file, static_cast<std::size_t>(log[i].offset), bytes);
    }
    return file;
}

/// Fails every write of an operation, alone and with all after it, whole and half: the target must
/// hold what was written before and any other file stay, one message must report it, and the next
/// try must go through. make() gives a new editor with the image "a.smc" open, run(editor) runs the
/// operation.
template <typename Make, typename Run>
void expect_prefixes_of_writes(const Make& make, const Run& run,
                               const std::string& target = "a.smc") {
    auto whole = make();
    whole.disk.fail(0, 0);
    whole.disk.log.clear();
    const Bytes source = whole.image();
    const Bytes before = target == "a.smc" ? source : Bytes();
    run(whole);
    ASSERT_GT(whole.disk.writes, 0);
    const auto fail = [&](int at, bool from_then_on, bool half) {
        auto editor = make();
        const bool saved = editor.state->changes_saved;
        editor.disk.log.clear();
        editor.disk.fail(MemoryDisk::Fault{}, MemoryDisk::Fault{at, from_then_on, half});
        run(editor);
        ASSERT_EQ(editor.dialogs.messages.size(), 1u);
        ASSERT_EQ(editor.dialogs.messages[0].title, "Error");
        ASSERT_EQ(editor.state->changes_saved, saved);
        ASSERT_TRUE(editor.state->rom.is_open());
        ASSERT_LE(editor.disk.file_count(), 2u);
        const Bytes expected =
            after_writes(before, whole.disk.log, editor.disk.log.size(), editor.disk.wrote_half);
        ASSERT_TRUE(!editor.disk.exists(target) || editor.disk[target] == expected);
        ASSERT_TRUE(target == "a.smc" || editor.image() == source);
        editor.disk.fail(0, 0);
        run(editor);
        ASSERT_TRUE(editor.disk[target] == whole.disk[target]);
        ASSERT_EQ(editor.state->changes_saved, whole.state->changes_saved);
    };
    for (int at = 1; at <= whole.disk.writes; ++at)
        for (const bool from_then_on : {false, true})
            for (const bool half : {false, true}) {
                SCOPED_TRACE(testing::Message() << at << " " << from_then_on << half);
                ASSERT_NO_FATAL_FAILURE(fail(at, from_then_on, half));
            }
}

/// Refuses every read of an operation in turn: each must be reported by one message. Then
/// check(editor) looks at what is left, with the disk in order again.
template <typename Make, typename Run, typename Check>
void expect_refused_reads(const Make& make, const Run& run, const Check& check) {
    for (int at = 1;; ++at) {
        auto editor = make();
        editor.disk.fail(at, 0);
        run(editor);
        ASSERT_GT(editor.disk.reads, 0);
        if (editor.disk.reads < at)
            return;
        ASSERT_EQ(editor.dialogs.messages.size(), 1u) << at;
        ASSERT_TRUE(editor.dialogs.messages[0].text.starts_with("Reading a.smc failed.")) << at;
        editor.disk.fail(0, 0);
        check(editor);
    }
}

} // namespace veldrune::test
