#include "write_oracle.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using Access = MemoryDisk::Access;
using Event = RandomDialogs::Event;

// The words of questions that choosing a map and opening a world ask before painting is lost.
constexpr const char* loss_of_painting = "will erase your changes";
constexpr const char* loss_of_world = "drops it. Continue?";
constexpr const char* former_name = " is no longer the image that was opened";
// Errors after which a save goes on.
constexpr const char* harmless_errors[] = {
    "The map width must be", "The map height must be", "Map Data Location must be 6 digits",
    "No pointer reaches",    "There is no tileset",
};

bool is_harmless(const Event& event) {
    return std::ranges::any_of(harmless_errors, [&](const char* words) {
        return event.text.find(words) != std::string::npos;
    });
}

// The accesses of an operation: those that make a copy, and those to the image that it writes.
struct Accesses {
    std::vector<Access> copying;
    std::vector<std::size_t> at; // of the others, in the disk's list
    std::uint64_t file;          // the image
    bool renamed = false;        // the copy has its name
    bool copied = false;         // and the disk has confirmed it
};

// A copy becomes the image with its renaming; the folder is flushed after it.
Accesses parted(const Session& session, std::uint64_t open_file) {
    Accesses parts{{}, {}, open_file};
    const auto& all = session.disk.accesses;
    std::size_t first = 0;
    for (std::size_t i = 0; i < all.size(); ++i)
        if (all[i].kind == Access::create || all[i].kind == Access::rename ||
            all[i].kind == Access::flush_folder)
            first = i + 1;
    if (first == 0 && !all.empty() && all.front().kind == Access::create)
        first = all.size();
    parts.copying.assign(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(first));
    // An unfinished copy is all that the operation did.
    parts.renamed = !parts.copying.empty() && parts.copying.back().kind == Access::flush_folder;
    for (std::size_t i = first; i < all.size(); ++i)
        if (parts.copying.empty() || parts.renamed)
            parts.at.push_back(i);
        else
            parts.copying.push_back(all[i]);
    parts.copied = parts.renamed && parts.copying.back().done;
    if (parts.copied)
        parts.file = parts.copying[parts.copying.size() - 2].file;
    return parts;
}

// A copy is made under a new name, written from its beginning to the size of the original, flushed
// once and closed before it is renamed.
void check_copying(const std::vector<Access>& copying, std::uint64_t source, std::int64_t size) {
    std::int64_t end = 0;
    std::vector<Access::Kind> order;
    bool failed = false;
    for (const Access& access : copying) {
        if (access.kind != Access::write || order.empty() || order.back() != Access::write)
            order.push_back(access.kind);
        EXPECT_NE(access.file, source) << "making a copy changed the original";
        EXPECT_TRUE(!failed || access.kind == Access::create || access.kind == Access::close)
            << "making a copy went on after a failure";
        failed |= !access.done && access.kind != Access::create;
        if (access.kind != Access::write)
            continue;
        EXPECT_EQ(access.offset, end);
        end += access.size;
    }
    std::erase(order, Access::create);
    std::erase(order, Access::write); // of an empty image there is none
    const std::vector<Access::Kind> whole = {Access::flush, Access::close, Access::rename,
                                             Access::flush_folder};
    EXPECT_TRUE(order.size() <= whole.size() || failed);
    for (std::size_t i = 0; i < std::min(order.size(), whole.size()) && !failed; ++i)
        EXPECT_EQ(order[i], whole[i]) << "step " << i << " of making a copy";
    if (!failed && order == whole) {
        EXPECT_EQ(end, size);
    }
}

bool agreed_before(const RandomDialogs& dialogs, const std::string& words, std::size_t access) {
    return std::ranges::any_of(dialogs.events, [&](const Event& event) {
        return event.kind == Event::question && event.agreed && event.accesses <= access &&
               event.text.find(words) != std::string::npos;
    });
}

void check_write(const Session& session, const Access& write, std::size_t at,
                 const PlannedWrite& planned) {
    EXPECT_EQ(write.offset, planned.offset);
    EXPECT_TRUE(write.size >= planned.least && write.size <= planned.most)
        << write.size << " bytes at " << write.offset;
    if (planned.former >= 0 && write.size > planned.former) {
        EXPECT_TRUE(agreed_before(session.dialogs, "undoubtably mess something up", at))
            << "no question about growth before the write at " << write.offset;
    }
    if (session.disk.read_fault.at != 0) // what can't be read is not asked about
        return;
    for (const std::int64_t place : planned.doubtful)
        if (place >= write.offset && place < write.offset + write.size) {
            EXPECT_TRUE(agreed_before(session.dialogs, "can hardly be meant", at))
                << "the write at " << write.offset << " covers " << place;
        }
}

// No write comes after a Cancel or a refusal.
void check_refusals(const RandomDialogs& dialogs, std::size_t last_write) {
    for (const Event& event : dialogs.events) {
        const bool ends = (event.kind == Event::question && !event.agreed) ||
                          (event.kind == Event::error && !is_harmless(event));
        EXPECT_TRUE(!ends || event.accesses > last_write) << "written after: " << event.text;
    }
}

void check_writes(const Session& session, const Accesses& parts, const Plan& plan,
                  Outcome& outcome) {
    const auto& all = session.disk.accesses;
    for (const std::size_t at : parts.at) {
        if (all[at].kind != Access::write)
            continue;
        EXPECT_EQ(all[at].file, parts.file) << "written into another file";
        EXPECT_TRUE(outcome.writes.empty() || outcome.writes.back().done)
            << "written after a failed write";
        const std::size_t number = outcome.writes.size();
        outcome.writes.push_back(all[at]);
        if (number >= plan.writes.size()) {
            ADD_FAILURE() << "unexpected write of " << all[at].size << " bytes at "
                          << all[at].offset;
            continue;
        }
        check_write(session, all[at], at, plan.writes[number]);
        check_refusals(session.dialogs, at);
        for (const std::string& words : plan.questions)
            EXPECT_TRUE(agreed_before(session.dialogs, words, at)) << "not asked: " << words;
        EXPECT_TRUE(!plan.nameless || session.nameless_accepted ||
                    agreed_before(session.dialogs, session.state.rom.path() + former_name, at))
            << "not asked about a file without its name";
    }
}

// What was written is flushed once, after the last write; without a write nothing is. Returns
// whether the flush was done.
bool check_flush(const Session& session, const Accesses& parts, bool written) {
    int flushes = 0;
    bool done = false;
    for (const std::size_t at : parts.at) {
        const Access& access = session.disk.accesses[at];
        if (access.kind == Access::flush) {
            ++flushes;
            done = access.done;
            EXPECT_EQ(access.file, parts.file);
            EXPECT_EQ(at, parts.at.back()) << "flushed before the last write";
        }
    }
    EXPECT_EQ(flushes, written ? 1 : 0) << "flushes";
    return done;
}

bool any_failed(const Session& session) {
    return std::ranges::any_of(session.disk.accesses, [](const Access& access) {
        return !access.done && access.kind != Access::create;
    });
}

bool same_world(const Before& before, const EditorState& state) {
    return before.world.cells == state.world.world_map.cells;
}

bool same_painting(const Before& before, const EditorState& state) {
    for (std::size_t layer = 0; layer < layer_count; ++layer)
        if (before.layers[layer].cells != state.map.layers[layer].map.cells)
            return false;
    return same_world(before, state);
}

void check_changes_saved(const Session& session, const Before& before, Effect effect,
                         bool complete) {
    const EditorState& state = session.state;
    const bool same = same_painting(before, state);
    switch (effect) {
    case Effect::none:
    case Effect::outside:
        EXPECT_TRUE(same);
        EXPECT_EQ(state.changes_saved, before.changes_saved);
        return;
    case Effect::empties:
        EXPECT_EQ(state.changes_saved, before.changes_saved);
        return;
    case Effect::paints:
        EXPECT_TRUE(same || !state.changes_saved) << "painting that counts as saved";
        EXPECT_TRUE(before.changes_saved || !state.changes_saved);
        return;
    case Effect::drops:
        EXPECT_EQ(state.changes_saved,
                  before.changes_saved || session.dialogs.said(Event::question, loss_of_painting));
        EXPECT_TRUE(same_world(before, state) || !session.world_painted || !before.world_readable ||
                    session.dialogs.said(Event::question, loss_of_world))
            << "painting on a world dropped without a question";
        return;
    case Effect::saves:
        EXPECT_TRUE(same);
        EXPECT_EQ(state.changes_saved, before.changes_saved || complete);
        EXPECT_TRUE(!complete || (!state.map.unsaved_painting && !state.world.unsaved_painting));
        EXPECT_TRUE(!complete || !session.world_painted || state.world_map_open ||
                    session.dialogs.said(Event::question, "would count as given up"));
        return;
    }
}

// An agreement holds until the next opening, and is asked for once.
void follow_name(Session& session, const Before& before) {
    const bool agreed = session.dialogs.said(Event::question, former_name);
    EXPECT_FALSE(agreed && session.nameless_accepted)
        << "asked again about a file without its name";
    session.nameless_accepted =
        session.disk.openings == before.openings && (session.nameless_accepted || agreed);
}

void follow_painting(Session& session, const Before& before, Effect effect, bool complete) {
    const bool same = same_world(before, session.state);
    if (effect == Effect::paints)
        session.world_painted |= !same;
    if (complete || (effect == Effect::drops && !same) ||
        session.dialogs.said(Event::question, loss_of_painting) ||
        session.dialogs.said(Event::question, loss_of_world))
        session.world_painted = false;
}

} // namespace

Before::Before(Session& session)
    : changes_saved(session.state.changes_saved), file(session.state.rom.identity().number),
      size(session.state.rom.size().value_or(0)), world(session.state.world.world_map),
      world_readable(session.state.world.source), file_count(session.disk.file_count()),
      openings(session.disk.openings) {
    for (std::size_t layer = 0; layer < layer_count; ++layer)
        layers[layer] = session.state.map.layers[layer].map;
}

Outcome check_operation(Session& session, const Before& before, const Plan& plan, Effect effect) {
    const Accesses parts = parted(session, before.file);
    Outcome outcome;
    check_copying(parts.copying, before.file, before.size);
    check_writes(session, parts, plan, outcome);
    const bool flushed = check_flush(session, parts, !outcome.writes.empty());
    const std::size_t count = outcome.writes.size();
    outcome.complete = count > 0 && count + plan.optional >= plan.writes.size() &&
                       outcome.writes.back().done && flushed;
    check_changes_saved(session, before, effect, outcome.complete);
    follow_name(session, before);
    follow_painting(session, before, effect, effect == Effect::saves && outcome.complete);
    EXPECT_TRUE(!any_failed(session) || session.dialogs.said(Event::error, ""))
        << "a failed write or flush was not reported";
    EXPECT_TRUE(effect == Effect::outside ||
                session.disk.file_count() <= before.file_count + (parts.renamed ? 1 : 0));
    return outcome;
}

} // namespace veldrune::test
