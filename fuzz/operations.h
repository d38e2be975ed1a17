#pragma once

#include "read_back.h"
#include "session.h"
#include "write_oracle.h"

namespace veldrune::test {

/// Something that a window can call, or that happens to the files meanwhile.
struct Operation {
    const char* name;
    int weight;
    void (*run)(Session&);
    Effect effect = Effect::none;
    Plan (*plan)(const EditorState&) = nullptr; // null: writes nothing
    void (*read_back)(const EditorState&,
                      Writes) = nullptr; // after a save that wrote its whole plan
};
std::span<const Operation> operations();

} // namespace veldrune::test
