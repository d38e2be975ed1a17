#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"
#include "ui/code_list.h"

#include <QAbstractTableModel>
#include <QPlainTextEdit>
#include <QTableView>

namespace veldrune {

/// The rows of the script below its header. The texts are read from the state; the model stores
/// only a fingerprint of each row, to find what an operation has changed.
class ScriptModel : public QAbstractTableModel {
  public:
    explicit ScriptModel(const EditorState& state) : state_(state) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Rows first to end - 1.
    struct Range {
        int first;
        int end;
    };
    /// Notifies the views of rows changed, inserted and removed since the last call. Returns those
    /// that were changed or inserted.
    Range update_rows();
    /// What a row means, in one line.
    QString label(int row) const;
    /// Height of a row in units; 0 for the default.
    int height(int row) const { return script_row(row).height; }

  private:
    void replace_rows(std::vector<std::size_t> rows, int old_end, int end);
    const ScriptRow& script_row(int row) const;
    QBrush background(int row) const;

    const EditorState& state_;
    std::vector<std::size_t> shown_; // fingerprints of the rows that the views know
    int saved_rows_ = 0;             // those after them are left out by a save
};

/// Text2: Enter accepts the text, Shift and Enter begin a new line. While it awaits a code, it
/// offers those that go with what is typed.
class CellBox : public QPlainTextEdit {
  public:
    CellBox(QWidget* parent, const EditorState& state, Action enter);

  protected:
    bool event(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Action enter_;
    CodeList codes_;
};

/// The grid of the Event Editor, with the edit box over its current cell.
class ScriptView : public QTableView {
  public:
    ScriptView(EditorState& state, Bindings& bindings);
    /// Shows what an operation has changed. Scrolls only to a new edit box outside the view.
    void show_changes();
    /// Shows the first row, which gets the focus.
    void show_beginning();
    QSize sizeHint() const override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void updateGeometries() override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

  private:
    void lay_out();
    int column_pixels(int column) const;
    int pixels(int units) const;
    int row_pixels(int units) const;
    void show_heights(ScriptModel::Range rows);
    void show_box();
    void place_box();
    void focus_box();

    const Form9& form_;
    ScriptModel model_;
    CellBox* box_;
    QPersistentModelIndex box_cell_; // the cell under the box
};

} // namespace veldrune
