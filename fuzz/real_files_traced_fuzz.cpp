// Saves on the real disk that are killed, interrupted, cut short or refused at every one of their
// system calls on files. What the file must hold then is worked out independently of the program.

#include "editor/save.h"
#include "editor/world_map.h"
#include "map/map_properties.h"
#include "real_files.h"
#include "real_files_tracer.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <iostream>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace veldrune::test {
namespace {

using demo::demo_map::town;

constexpr std::size_t stream = 0; // as a length: the stream's own, which is its first word
struct Write {
    std::size_t offset, length;
};
using Writes = std::vector<Write>;

struct Operation {
    const char* name;
    void (*prepare)(RealEditor&);
    void (*run)(EditorState&);
    bool as;                       // it is a Save As: into b.smc
    Bytes former;                  // what b.smc held; nothing if it was not there
    Writes (*writes)(RealEditor&); // that the save makes, in order
    const char* calls;             // see letter_of; writes in a row are one letter
    friend void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }
};

void change_map(RealEditor& editor) {
    editor.choose(town);
    Random random(8);
    for (Layer& layer : editor.s.map.layers)
        for (int i = 0; i < 60; ++i)
            layer.map.at(random.below(16), random.below(16)) = random.byte();
    editor.form.Text14 = "300300";
    editor.form.Text12 = "310000";
    editor.form.Text13 = "3"; // palette
    editor.form.Text41 = "77";
    editor.s.changes_saved = false;
}
void change_world(RealEditor& editor) {
    open_world_of_dawn(editor.s);
    for (int i = 0; i < 200; ++i)
        editor.s.world.world_map.at(i, i) ^= 1;
    editor.form.Text24 = "300300";
    editor.s.changes_saved = false;
}

std::size_t pointer(RealEditor& editor, int layer) {
    return static_cast<std::size_t>(
        data_pointer_offset(layer_data_number(editor.s.map.map_properties, layer)));
}
std::size_t layer3_place(RealEditor& editor) {
    return 0x19D3B0u + static_cast<std::size_t>(editor.s.rom.read_pointer24(
                           static_cast<std::int64_t>(pointer(editor, 2))));
}
constexpr std::size_t record = 0x2D9100 + 33 * town;

Writes writes_of_save(RealEditor& editor) {
    return {{0x300300, stream},      {layer3_place(editor), stream},
            {0x310000, stream},      {pointer(editor, 0), 3},
            {pointer(editor, 1), 3}, {pointer(editor, 2), 3},
            {0xF5800u + town, 1},    {record, 33}};
}
Writes writes_of_save_as(RealEditor& editor) {
    Writes all = {{0x300300, stream}, {layer3_place(editor), stream}, {0x310000, stream}};
    for (const int layer : {1, 0})
        for (const std::size_t byte : {2u, 1u, 0u})
            all.push_back({pointer(editor, layer) + byte, 1});
    for (const Write& part : {Write{11, 2}, {25, 1}, {7, 4}, {27, 1}, {30, 2}, {23, 1}})
        all.push_back({record + part.offset, part.length});
    return all;
}
Writes writes_of_world(RealEditor&) {
    return {{0x300300, stream}, {0x2EB40F, 3}};
}

// clang-format off
const Operation operations[] = {
    {"Save",            change_map,   save,    false, {},        writes_of_save,    "wf"},
    {"SaveOfAWorld",    change_world, save,    false, {},        writes_of_world,   "wf"},
    {"SaveAsOverAFile", change_map,   save_as, true,  {1, 2, 3}, writes_of_save_as, "cwfrfwf"},
    {"SaveAsOfAWorld",  change_world, save_as, true,  {},        writes_of_world,   "cwfrfwf"},
};
// clang-format on

// Of the calls that change files or make changes last.
char letter_of(const TracedChild::Call& call) {
    switch (call.number) {
    case SYS_pwrite64:
        return 'w';
    case SYS_fsync:
        return 'f';
    case SYS_rename:
        return 'r';
    case SYS_unlink:
        return 'u';
    default:
        return call.creates ? 'c' : '\0';
    }
}

// One operation, to be run in a process of its own as often as wanted.
class Trial {
  public:
    explicit Trial(const Operation& operation) : operation_(operation) {
        operation.prepare(editor_);
        writes_ = operation.writes(editor_);
        restore();
    }

    // Starts a process that returns the number of messages, or 100 where that does not go with
    // changes_saved: no message, all saved.
    TracedChild start() {
        return TracedChild([this] {
            editor_.dialogs.file_names = {target()};
            operation_.run(editor_.s);
            const auto count = static_cast<int>(editor_.dialogs.messages.size());
            return editor_.s.changes_saved == (count == 0) ? count : 100;
        });
    }
    void restore() {
        put_contents(editor_.image, demo_bytes());
        if (!operation_.as)
            return;
        std::filesystem::remove(target());
        if (!operation_.former.empty())
            put_contents(target(), operation_.former);
    }
    // Runs it whole, and learns from the file what the writes write.
    void expect_whole_run() {
        TracedChild child = start();
        std::string calls;
        while (const auto call = child.next_call())
            if (const char letter = letter_of(*call); letter != '\0' && !calls.ends_with(letter))
                calls += letter;
        ASSERT_EQ(child.finish(), 0);
        EXPECT_EQ(calls, operation_.calls);
        whole_ = contents(target());
        Bytes expected = demo_bytes();
        for (Write& write : writes_) {
            if (write.length == stream)
                write.length = whole_.at(write.offset) + 256u * whole_.at(write.offset + 1);
            apply(write, expected);
        }
        ASSERT_TRUE(whole_ == expected) << "something else was written";
        expect_source();
        restore();
    }
    // The target must hold what it held, or a beginning of the writes, at least as much as the last
    // time.
    void expect_beginning() {
        const Bytes found = contents(target());
        if (!copied_ && found != expected_) {
            expected_ = demo_bytes();
            copied_ = true;
        }
        for (; found != expected_; ++done_) {
            ASSERT_LT(done_, writes_.size()) << "no beginning of the writes";
            apply(writes_[done_], expected_);
        }
        expect_source();
    }
    void expect_whole() const { ASSERT_TRUE(contents(target()) == whole_); }
    void expect_source() const {
        ASSERT_TRUE(!operation_.as || contents(editor_.image) == demo_bytes());
    }
    // A temporary file that a killed run has left must not hinder the next one, nor be touched.
    void expect_leftover_is_no_hindrance(int& leftovers) {
        const std::string leftover = target() + ".part";
        if (!std::filesystem::exists(leftover))
            return;
        ++leftovers;
        const Bytes former = contents(leftover);
        restore();
        ASSERT_EQ(start().finish(), 0);
        expect_whole();
        ASSERT_TRUE(contents(leftover) == former);
        std::filesystem::remove(leftover);
        expect_no_leftover();
    }
    void expect_no_leftover() const {
        const bool two = operation_.as && std::filesystem::exists(target());
        ASSERT_EQ(editor_.folder.file_count(), two ? 2u : 1u);
    }

  private:
    std::string target() const { return editor_.folder.file(operation_.as ? "b.smc" : "a.smc"); }
    void apply(const Write& write, Bytes& bytes) const {
        const auto from = whole_.begin() + static_cast<std::ptrdiff_t>(write.offset);
        put_bytes(bytes, write.offset,
                  Bytes(from, from + static_cast<std::ptrdiff_t>(write.length)));
    }

    const Operation& operation_;
    RealEditor editor_;
    Writes writes_;
    Bytes whole_;          // the target after a whole run
    std::size_t done_ = 0; // how many of the writes were found at the last look
    bool copied_ = !operation_.as;
    Bytes expected_ = operation_.as ? operation_.former : demo_bytes(); // the target then
};

class RealSave : public testing::TestWithParam<Operation> {
  protected:
    void SetUp() override {
        if (!TracedChild::possible())
            GTEST_SKIP() << "the system allows no tracing of processes";
        trial = std::make_unique<Trial>(GetParam());
        ASSERT_NO_FATAL_FAILURE(trial->expect_whole_run());
    }
    std::unique_ptr<Trial> trial;
};

// A pipe is put in the place of an image after the look at its name and before its opening.
TEST(RealOpening, OfANameThatIsSwappedMeanwhileIsRefused) {
    if (!TracedChild::possible())
        GTEST_SKIP() << "the system allows no tracing of processes";
    RealEditor editor;
    const std::string path = editor.folder.file("b.smc");
    put_contents(path, {1});
    TracedChild child([&] { return editor.disk->open(path) != nullptr; });
    for (auto call = child.next_call(); call && call->number != SYS_openat;)
        call = child.next_call();
    std::filesystem::remove(path);
    ASSERT_EQ(::mkfifo(path.c_str(), 0666), 0);
    EXPECT_EQ(child.finish(), 0);
}

using Calls = bool (*)(const TracedChild::Call&);

bool any_call(const TracedChild::Call&) {
    return true;
}
bool moves_bytes(const TracedChild::Call& call) {
    return call.number == SYS_pread64 || call.number == SYS_pwrite64;
}
bool may_wait(const TracedChild::Call& call) {
    return moves_bytes(call) || call.number == SYS_fsync || call.number == SYS_flock ||
           call.number == SYS_openat || call.number == SYS_close;
}
bool changes_files(const TracedChild::Call& call) {
    return letter_of(call) != '\0';
}

// Lets a process come to one of these calls, by its number from 1, and stop before it. Reads that
// follow each other count as one call, since nothing can differ between them. Nothing if there are
// not so many calls.
std::optional<TracedChild::Call> come_to(TracedChild& child, Calls calls, int at) {
    bool reading = false;
    while (const auto call = child.next_call()) {
        const bool continued = reading && call->number == SYS_pread64;
        reading = call->number == SYS_pread64;
        if (!continued && calls(*call) && --at == 0)
            return call;
    }
    return std::nullopt;
}

TEST_P(RealSave, KilledAtAnyCallLeavesABeginningOfItsWrites) {
    int leftovers = 0;
    int kills = -1;
    for (bool killed = true; killed; ++kills) {
        {
            TracedChild child = trial->start();
            killed = come_to(child, any_call, kills + 2).has_value();
        }
        SCOPED_TRACE(kills);
        ASSERT_NO_FATAL_FAILURE(trial->expect_beginning());
        ASSERT_NO_FATAL_FAILURE(trial->expect_leftover_is_no_hindrance(leftovers));
        trial->restore();
    }
    std::cout << kills << " kills, " << leftovers << " of them left a temporary file\n";
    EXPECT_EQ(leftovers != 0, GetParam().as);
}

// What befalls a call: each read of a row of reads, or any other call alone.
struct Fault {
    const char* name;
    Calls calls;
    void (*strike)(TracedChild&);
    int result; // of the operation then
};

// clang-format off
constexpr Fault short_call{"short", moves_bytes, [](TracedChild& child) { child.halve_call(); }, 0};
constexpr Fault interrupted{"interrupted", may_wait, [](TracedChild& child) { child.fail_call(EINTR); }, 0};
constexpr Fault refused{"refused", changes_files, [](TracedChild& child) { child.fail_call(EIO); }, 1};
// clang-format on

// Strikes a call before which the process stands and, if it reads, every other read after it.
void strike(TracedChild& child, const TracedChild::Call& first, const Fault& fault) {
    fault.strike(child);
    if (first.number != SYS_pread64)
        return;
    bool struck = true; // the call before
    while (const auto call = child.next_call()) {
        if (call->number != SYS_pread64)
            return;
        struck = !struck;
        if (struck)
            fault.strike(child);
    }
}

// Strikes every call in turn and has check() look at what is left of it.
template <typename Check>
void strike_each_call(Trial& trial, const Fault& fault, const Check& check) {
    int at = 1;
    for (;; ++at) {
        SCOPED_TRACE(testing::Message() << fault.name << at);
        TracedChild child = trial.start();
        const auto call = come_to(child, fault.calls, at);
        if (!call)
            break;
        strike(child, *call, fault);
        ASSERT_EQ(child.finish(), fault.result);
        ASSERT_NO_FATAL_FAILURE(check());
        ASSERT_NO_FATAL_FAILURE(trial.expect_no_leftover());
        trial.restore();
    }
    EXPECT_GT(at, 1);
    std::cout << at - 1 << " calls " << fault.name << "\n";
}

TEST_P(RealSave, InterruptedAndShortCallsMakeNoDifference) {
    for (const Fault& fault : {short_call, interrupted})
        strike_each_call(*trial, fault, [&] {
            ASSERT_NO_FATAL_FAILURE(trial->expect_whole());
            trial->expect_source();
        });
}

TEST_P(RealSave, ARefusedCallIsReportedAndLeavesABeginningOfItsWrites) {
    strike_each_call(*trial, refused, [&] { trial->expect_beginning(); });
}

INSTANTIATE_TEST_SUITE_P(, RealSave, testing::ValuesIn(operations),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace veldrune::test
