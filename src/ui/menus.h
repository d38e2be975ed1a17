#pragma once

#include "editor/commands.h"
#include "ui/bindings.h"

#include <QKeySequence>

#include <optional>
#include <span>

class QMainWindow;

namespace veldrune {

/// The keys of an entry: the standard ones of the platform or, without any, those of otherwise.
struct Shortcut {
    QKeySequence::StandardKey key = QKeySequence::UnknownKey;
    const char* otherwise = nullptr;
};
inline constexpr Shortcut save_keys = {QKeySequence::Save, "Ctrl+S"};

/// A menu or an entry. It belongs to the nearest row above it that is one level lower; rows of
/// level 0 are the menus of the menu bar. "&" in a caption marks the access key.
struct MenuRow {
    int level;
    const char* control;
    const char* caption;                 // null for a separator
    std::optional<Command> command = {}; // an entry without one closes the window
    Shortcut shortcut = {};
    const char* tip = nullptr; // says what the entry writes, and when
};

/// Builds the window's menus.
void build_menus(QMainWindow& window, std::span<const MenuRow> rows, EditorState& state,
                 const Bindings& bindings);

} // namespace veldrune
