#include "ui/status_line.h"

#include "editor/picture_status.h"
#include "editor/save_status.h"
#include "ui/panels.h"
#include "ui/tips.h"

#include <QDateTime>
#include <QFileInfo>

namespace veldrune {

namespace {

// A statement in the line, and the same in the tip.
struct Statement {
    QString brief;
    QString full;
};
using Statements = std::vector<Statement>;

QStringList captions(const std::vector<RecordControl>& controls) {
    QStringList names;
    for (const RecordControl& control : controls)
        names << property_caption(control);
    return names;
}

QString clock_time(std::chrono::system_clock::time_point time) {
    return QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(time))
        .toString("HH:mm");
}

void add_saving(const SaveStatus& status, Statements& statements) {
    QStringList unsaved = captions(status.fields);
    if (status.command)
        unsaved.prepend("what \"Clear Map\" or \"Paste Tile Formation\" changed");
    if (status.painting)
        unsaved.prepend("painting");
    if (!unsaved.isEmpty())
        statements.push_back({"not saved", "Not saved: " + unsaved.join(", ") + "."});
    else if (status.saved_at)
        statements.push_back({"saved " + clock_time(*status.saved_at),
                              "Saved at " + clock_time(*status.saved_at) + "."});
    if (const QString left = captions(status.left_out).join(", "); !left.isEmpty())
        statements.push_back({"Save once more: " + left,
                              "Save As has left out: " + left + ". Save once more to write it."});
}

void add_picture(const PictureStatus& status, Statements& statements) {
    const QString why = QString::fromStdString(status.why_not);
    if (const QString shown = "Picture: " + QString::fromStdString(status.shown);
        !status.shown.empty())
        statements.push_back({shown, shown + "."});
    if (!why.isEmpty())
        statements.push_back({why, why});
}

void add_file(const QString& before, const std::string& path, const QString& after,
              Statements& statements) {
    const QString whole = QString::fromStdString(path);
    statements.push_back(
        {before + QFileInfo(whole).fileName() + after, before + whole + after + "."});
}

Statements statements_of(const EditorState& state) {
    Statements statements;
    const SaveStatus saving = save_status(state);
    add_saving(saving, statements);
    if (state.open_failure)
        add_file("", state.open_failure->path,
                 " was not opened: " + QString::fromStdString(state.open_failure->reason),
                 statements);
    if (!saving.save_goes_to.empty())
        add_file("Save writes to ", saving.save_goes_to, "", statements);
    add_picture(picture_status(state), statements);
    return statements;
}

} // namespace

StatusLine::StatusLine(const EditorState& state) : ElidedLabel(Qt::ElideRight), state_(state) {
    setObjectName("Status");
}

void StatusLine::show_state() {
    QStringList line, tip;
    for (const Statement& statement : statements_of(state_)) {
        line << statement.brief;
        tip << statement.full;
    }
    const QString shown = hint_.isEmpty() ? line.join("  \u00B7  ") : hint_;
    setToolTip(plain_tip(hint_.isEmpty() ? tip.join('\n') : hint_));
    if (shown == text())
        return;
    setText(shown);
    setAccessibleName("Status: " + shown);
}

void StatusLine::set_hint(const QString& hint) {
    hint_ = hint;
    show_state();
}

} // namespace veldrune
