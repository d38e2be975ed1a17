#pragma once

#include <QCompleter>
#include <QStringListModel>

class QKeyEvent;
class QPlainTextEdit;

namespace veldrune {

struct EditorState;

/// A list below the edit box of the Event Editor, of the codes that go with what is typed. It does
/// nothing by itself: a row must be moved to, or clicked, to put its code into the box.
class CodeList : public QCompleter {
  public:
    CodeList(QPlainTextEdit& box, const EditorState& state);
    /// Shows what goes with the text of the box, or nothing.
    void offer();
    void close();
    /// Whether the key is for the list: Escape closes it, and Enter takes the row moved to.
    bool takes(const QKeyEvent& key) const;

  private:
    QPlainTextEdit& box_;
    const EditorState& state_;
    QStringListModel offers_;
};

} // namespace veldrune
