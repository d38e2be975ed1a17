#pragma once

#include "editor/commands.h"
#include "ui/bindings.h"

#include <QKeySequence>

#include <optional>
#include <span>

class QMainWindow;

namespace veldrune {

/// The keys of an entry: the platform's own, or others where it has none.
struct Shortcut {
    QKeySequence::StandardKey key = QKeySequence::UnknownKey;
    const char* otherwise = nullptr;
};
inline constexpr Shortcut save_keys = {QKeySequence::Save, "Ctrl+S"};

/// A menu or an entry. Every row stands in the menu above it of one level less; those of level 0
/// are the menus of the bar. "&" in a caption marks the access key.
struct MenuRow {
    int level;
    const char* control;
    const char* caption;                 // null for a line between entries
    std::optional<Command> command = {}; // an entry without one closes the window
    Shortcut shortcut = {};
};

/// Builds the window's menus.
void build_menus(QMainWindow& window, std::span<const MenuRow> rows, EditorState& state,
                 const Bindings& bindings);

} // namespace veldrune
