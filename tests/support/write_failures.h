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
        const auto end = static_cast<std::size_t>(log[i].offset) + bytes.size();
        if (!bytes.empty() && file.size() < end)
            file.resize(end);
        std::ranges::copy(bytes, file.begin() + log[i].offset);
    }
    return file;
}

/// Fails every write of an operation once, whole and half: the file must hold what was written
/// before, the failure must be told, and the next try must go through. make() gives a new editor
/// with the image "a.smc" open, run(editor) runs the operation.
template <typename Make, typename Run>
void expect_prefixes_of_writes(const Make& make, const Run& run) {
    auto whole = make();
    whole.disk.fail({}, {});
    whole.disk.log.clear();
    const Bytes before = whole.disk["a.smc"];
    run(whole);
    const auto log = whole.disk.log;
    ASSERT_GT(whole.disk.writes, 0);
    for (int at = 1; at <= whole.disk.writes; ++at)
        for (const bool half : {false, true}) {
            auto editor = make();
            editor.disk.fail({}, {at, true, half});
            run(editor);
            EXPECT_EQ(editor.dialogs.messages.size(), 1u);
            EXPECT_TRUE(editor.disk["a.smc"] ==
                        after_writes(before, log, static_cast<std::size_t>(at - 1), half))
                << at << half;
            editor.disk.fail({}, {});
            run(editor);
            EXPECT_TRUE(editor.disk["a.smc"] == whole.disk["a.smc"]) << at << half;
        }
}

} // namespace veldrune::test
