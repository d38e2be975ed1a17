#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"

#include <QAbstractTableModel>
#include <QPlainTextEdit>
#include <QTableView>

namespace veldrune {

/// The rows of the script below its header. The texts are the state's; of each row that a view
/// knows of it keeps no more than a fingerprint, to find what an operation has changed.
class ScriptModel : public QAbstractTableModel {
  public:
    explicit ScriptModel(const EditorState& state) : state_(state) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Rows from first on, up to end.
    struct Range {
        int first;
        int end;
    };
    /// Tells the views which rows have been changed, inserted and removed since the last time.
    /// Returns those that were changed or inserted.
    Range follow();
    /// Height of a row in units; 0 for the default.
    int height(int row) const { return script_row(row).height; }

  private:
    void take(std::vector<std::size_t> rows, int former_end, int end);
    const ScriptRow& script_row(int row) const;
    QBrush background(int row) const;

    const EditorState& state_;
    std::vector<std::size_t> shown_; // fingerprints
};

/// Text2: Enter takes its text, Shift and Enter part lines.
class CellBox : public QPlainTextEdit {
  public:
    CellBox(QWidget* parent, Action enter);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Action enter_;
};

/// The grid of the Event Editor, with the edit box over its current cell.
class ScriptView : public QTableView {
  public:
    ScriptView(EditorState& state, Bindings& bindings);
    /// Shows what an operation has changed. The view stays where it is, unless the edit box has
    /// come to a cell outside it.
    void show_changes();
    void show_beginning();
    QSize sizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void updateGeometries() override;

  private:
    int pixels(int units) const;
    int row_pixels(int units) const;
    void show_heights(ScriptModel::Range rows);
    void show_box();
    void lay_box();

    const Form9& form_;
    ScriptModel model_;
    CellBox* box_;
    QPersistentModelIndex box_cell_; // where the box lies
};

} // namespace veldrune
