// Any bytes as an image, any order of operations, any text in any field, any failure of the disk:
// nothing may crash, hang or read or write outside a buffer, nothing is written but what the
// operation may write, and what was saved can be read again.

#include "fuzz_target.h"
#include "operations.h"
#include "show_state.h"

#include <numeric>

namespace veldrune::test {
namespace {

const Operation& any_operation(Choices& choices) {
    const std::span<const Operation> all = operations();
    static const int weights = std::accumulate(
        all.begin(), all.end(), 0, [](int sum, const Operation& row) { return sum + row.weight; });
    int rest = choices.below(weights);
    auto row = all.begin();
    for (; rest >= row->weight; ++row)
        rest -= row->weight;
    return *row;
}

MemoryDisk::Fault any_fault(Choices& choices, int accesses) {
    return {1 + choices.below(accesses), choices.one_in(2), choices.one_in(2)};
}

// One of the writes of a plan, the flush after them, or any step of a Save As.
MemoryDisk::Fault any_write_fault(Choices& choices, const Plan& plan) {
    const int flush = static_cast<int>(plan.writes.size()) + 1;
    if (choices.one_in(3))
        return {.at = flush};
    return any_fault(choices, choices.one_in(3) ? 24 : flush);
}

// Most operations meet a disk in order.
void make_faults(Session& s, const Plan& plan) {
    s.disk.vanish_at = 0;
    const int which = s.choices.below(8);
    if (which == 0)
        s.disk.fail(any_fault(s.choices, s.choices.one_in(2) ? 2000 : 20), {});
    if (which == 1)
        s.disk.fail({}, any_write_fault(s.choices, plan));
    if (which == 2) {
        s.disk.vanishing_name = s.choices.one_in(2) ? s.state.rom_path : "c.smc";
        s.disk.vanish_at = 1 + s.choices.below(10);
    }
}

void check_bars(const EditorState& state) {
    for (const auto bar : {&Form1::HScroll1, &Form1::VScroll1, &Form1::HScroll2, &Form1::VScroll2})
        EXPECT_TRUE((state.form1.*bar).value >= 0 &&
                    (state.form1.*bar).value <= (state.form1.*bar).maximum);
    const RecordBar& records = state.form10.HScroll1;
    EXPECT_TRUE(records.value >= 1 && records.value <= records.maximum);
}

void check_script(const Form9& form) {
    const bool loaded = form.load_count > 0 && form.visible;
    EXPECT_TRUE(!loaded || (form.grid.size() >= 2 && is_blank(form.grid.back())));
    EXPECT_FALSE(form.Text2_visible && form.grid_row >= std::ssize(form.grid));
}

// Whether reading can be expected to give back what was saved.
bool should_come_back(const Session& s, const Outcome& outcome) {
    return outcome.complete && s.disk.read_fault.at == 0 &&
           !s.dialogs.said(RandomDialogs::Event::question, "can hardly be meant") &&
           !s.dialogs.said(RandomDialogs::Event::question, "another number of offsets");
}

void run_operation(Session& s, const Operation& operation) {
    s.disk.fail({}, {});
    const Plan plan = operation.plan ? operation.plan(s.state) : Plan{};
    const Before before(s);
    make_faults(s, plan);
    s.disk.log.clear();
    s.disk.accesses.clear();
    s.dialogs.events.clear();
    operation.run(s);
    const Outcome outcome = check_operation(s, before, plan, operation.effect);
    const bool comes_back = operation.read_back && should_come_back(s, outcome);
    s.disk.fail({}, {});
    if (comes_back)
        operation.read_back(s.state, outcome.writes);
    check_bars(s.state);
    check_script(s.state.form9);
    expect_showing_changes_nothing(s);
    EXPECT_TRUE(s.state.rom.is_open());
}

void editor_fuzz(Choices& choices) {
    static const int steps = number_of("VELDRUNE_FUZZ_STEPS", 150);
    Session session(choices);
    std::string history;
    for (int step = 0; step < steps && !choices.spent(); ++step) {
        const Operation& operation = any_operation(choices);
        history.append("\n").append(std::to_string(step)).append(" ").append(operation.name);
        if (std::ranges::count(history, '\n') > 12)
            history.erase(0, history.find('\n', 1));
        run_operation(session, operation);
        if (testing::Test::HasFailure()) {
            for (const RandomDialogs::Event& event : session.dialogs.events)
                history += "\n  " + std::string(event.agreed ? "[OK] " : "[Cancel] ") + event.text;
            ADD_FAILURE() << history;
            return;
        }
    }
}

} // namespace
} // namespace veldrune::test

FUZZ_TARGET(editor_fuzz, 150)
