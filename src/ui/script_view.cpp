#include "ui/script_view.h"

#include "editor/event_editor.h"
#include "ui/emphasis.h"
#include "ui/tips.h"

#include <QAccessible>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPalette>
#include <QScrollBar>

#include <algorithm>
#include <span>

namespace veldrune {

namespace {

constexpr int units_per_pixel = 15;
constexpr int cell_margin = 3;
constexpr int visible_rows = 26;                                             // in a new window
constexpr int column_widths[script_column_count] = {1200, 1200, 1200, 5000}; // units of the grid

constexpr std::pair<const char*, NumberForm> column_tips[script_column_count] = {
    {"Codes of commands.", NumberForm::hexadecimal},
    {"Values of a command, or the actions of its queue.", NumberForm::hexadecimal},
    {"Values of an action.", NumberForm::hexadecimal},
    {"What the row means, or the text of its dialogue.", NumberForm::words},
};

QFont value_font() {
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

QBrush pale_text() {
    return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
}

std::size_t fingerprint(const ScriptRow& row) {
    auto sum = static_cast<std::size_t>(row.height);
    for (const std::string& cell : row.cells)
        sum = sum * 0x9E3779B97F4A7C15 + std::hash<std::string>{}(cell);
    return sum;
}

// The fingerprints of the rows below the header.
std::vector<std::size_t> fingerprints(const std::vector<ScriptRow>& grid) {
    std::vector<std::size_t> rows;
    for (const ScriptRow& row : std::span(grid).subspan(grid.empty() ? 0 : 1))
        rows.push_back(fingerprint(row));
    return rows;
}

// The text to show for a cell: with "\n" for every kind of line break, each line trimmed.
QString shown_text(const std::string& cell) {
    QStringList lines =
        QString::fromStdString(cell).replace("\r\n", "\n").replace('\r', '\n').split('\n');
    for (QString& line : lines)
        line = line.trimmed();
    if (lines.last().isEmpty()) // in lists the last line ends with a line break, too
        lines.removeLast();
    return lines.join('\n');
}

} // namespace

// The model

const ScriptRow& ScriptModel::script_row(int row) const {
    static const ScriptRow none;
    const auto at = static_cast<std::size_t>(row) + 1; // below the header
    return at < state_.form9.grid.size() ? state_.form9.grid[at] : none;
}

int ScriptModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int ScriptModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : script_column_count;
}

// Marks the remembered command, and sets off the rows that begin a command.
QBrush ScriptModel::background(int row) const {
    const ScriptRows marked = remembered_rows(state_);
    const QPalette colours = QGuiApplication::palette();
    if (row + 1 >= marked.first && row + 1 < marked.end)
        return tint_of(colours);
    return starts_command(state_.form9.grid, row + 1) ? colours.brush(QPalette::Window) : QBrush();
}

QVariant ScriptModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const ScriptRow& row = script_row(index.row());
    const std::string& cell = row.cells[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return shown_text(cell);
    case Qt::ToolTipRole:
        return index.column() == explanation ? plain_tip(shown_text(cell)) : QString();
    case Qt::TextAlignmentRole:
        return int(Qt::AlignLeft | (row.height == 0 ? Qt::AlignVCenter : Qt::AlignTop));
    case Qt::FontRole:
        return index.column() == explanation ? QVariant() : value_font();
    case Qt::BackgroundRole:
        return background(index.row());
    case Qt::ForegroundRole:
        return index.row() < saved_rows_ ? QVariant() : pale_text();
    default:
        return {};
    }
}

QVariant ScriptModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const QString header = shown_text(script_row(-1).cells[static_cast<std::size_t>(section)]);
    if (role == Qt::DisplayRole)
        return header;
    if (role == Qt::AccessibleTextRole)
        return header.simplified();
    const auto& [meaning, form] = column_tips[section];
    return role == Qt::ToolTipRole ? number_tip(meaning, form) : QVariant();
}

QString ScriptModel::label(int row) const {
    return QString::fromStdString(script_row(row).cells[explanation]).simplified();
}

// Replaces the rows; those from end on are the former ones from old_end on.
void ScriptModel::replace_rows(std::vector<std::size_t> rows, int old_end, int end) {
    if (end > old_end)
        beginInsertRows({}, old_end, end - 1);
    if (end < old_end)
        beginRemoveRows({}, end, old_end - 1);
    shown_ = std::move(rows);
    if (end > old_end)
        endInsertRows();
    if (end < old_end)
        endRemoveRows();
}

ScriptModel::Range ScriptModel::update_rows() {
    std::vector<std::size_t> rows = fingerprints(state_.form9.grid);
    const auto head = std::ranges::mismatch(shown_, rows).in1 - shown_.begin();
    const auto tail =
        std::mismatch(shown_.rbegin(), shown_.rend() - head, rows.rbegin(), rows.rend() - head)
            .first -
        shown_.rbegin();
    const auto first = static_cast<int>(head);
    const auto old_end = static_cast<int>(std::ssize(shown_) - tail);
    const auto end = static_cast<int>(std::ssize(rows) - tail);
    replace_rows(std::move(rows), old_end, end);
    saved_rows_ = script_end(state_.form9.grid) - 1;
    if (const int changed_end = std::min(old_end, end); first < changed_end)
        emit dataChanged(index(first, 0), index(changed_end - 1, explanation));
    return {first, end};
}

// The edit box

CellBox::CellBox(QWidget* parent, const EditorState& state, Action enter)
    : QPlainTextEdit(parent), enter_(std::move(enter)), codes_(*this, state) {
    const TextRow<Form9>& row = text_row(&Form9::Text2);
    setObjectName(row.control);
    setToolTip(number_tip("Enter takes the value, Escape leaves it; Shift and Enter begin a line.",
                          row.form));
    setFont(value_font());
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWrapMode(NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabChangesFocus(true);
    document()->setDocumentMargin(cell_margin - frameWidth());
    hide();
}

// Escape is a shortcut of the window, too.
bool CellBox::event(QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride || !codes_.takes(static_cast<QKeyEvent&>(*event)))
        return QPlainTextEdit::event(event);
    event->accept();
    return true;
}

void CellBox::hideEvent(QHideEvent* event) {
    codes_.close();
    QPlainTextEdit::hideEvent(event);
}

void CellBox::keyPressEvent(QKeyEvent* event) {
    if (codes_.takes(*event))
        return event->ignore(); // the list acts on what the box leaves
    const QString text = toPlainText();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !(event->modifiers() & Qt::ShiftModifier)) {
        codes_.close();
        return enter_();
    }
    QPlainTextEdit::keyPressEvent(event);
    if (toPlainText() != text)
        codes_.offer();
}

// The view

ScriptView::ScriptView(EditorState& state, Bindings& bindings)
    : form_(state.form9), model_(state), box_(new CellBox(viewport(), state, [&state, &bindings] {
          bindings.edit([&] { on_script_enter(state); });
      })) {
    setObjectName("grid");
    setAccessibleName("Script");
    setAccessibleDescription("Enter or a click edits the current cell.");
    setModel(&model_);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setSectionResizeMode(explanation, QHeaderView::Stretch);
    horizontalHeader()->setSectionsClickable(false);
    lay_out();
    bindings.lines(box_, state.form9.Text2);
    connect(this, &QTableView::clicked, this, [&state, &bindings](const QModelIndex& cell) {
        bindings.edit([&] { on_script_click(state, cell.row() + 1, cell.column()); });
    });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& cells) {
                if (cells.isEmpty())
                    return;
                const QModelIndex cell = cells.indexes().first();
                clearSelection();
                emit clicked(cell);
            });
}

// Mouse and keyboard select nothing. What a screen reader selects counts as clicked.
QItemSelectionModel::SelectionFlags ScriptView::selectionCommand(const QModelIndex&,
                                                                 const QEvent*) const {
    return QItemSelectionModel::NoUpdate;
}

QSize ScriptView::sizeHint() const {
    int width = 0;
    for (int column = 0; column < script_column_count; ++column)
        width += column_pixels(column);
    return {width + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
            visible_rows * verticalHeader()->defaultSectionSize()};
}

// Sets the sizes that follow the fonts.
void ScriptView::lay_out() {
    verticalHeader()->setDefaultSectionSize(row_pixels(0));
    horizontalHeader()->setFixedHeight(row_pixels(script_header_height));
    for (int column = 0; column < script_column_count; ++column)
        setColumnWidth(column, column_pixels(column));
    show_heights({0, model_.rowCount()});
}

void ScriptView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        lay_out();
}

// The width of a column, which has room for its header.
int ScriptView::column_pixels(int column) const {
    const QString header = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
    return std::max(pixels(column_widths[column]),
                    fontMetrics().size(0, header).width() + 4 * margin);
}

// Converts grid units to pixels: more of them where the fonts have higher lines.
int ScriptView::pixels(int units) const {
    const int line =
        std::max(fontMetrics().lineSpacing(), QFontMetrics(value_font()).lineSpacing());
    return std::max(units / units_per_pixel, units * line / script_line_height);
}

int ScriptView::row_pixels(int units) const {
    return pixels(units > 0 ? units : script_line_height) + 2 * cell_margin;
}

void ScriptView::show_changes() {
    show_heights(model_.update_rows());
    viewport()->update(); // the marked command may have changed
    show_box();
}

void ScriptView::show_beginning() {
    scrollToTop();
    setCurrentIndex(model_.index(0, 0));
    setFocus();
}

void ScriptView::show_heights(ScriptModel::Range rows) {
    if (rows.first == rows.end)
        return;
    QHeaderView& heights = *verticalHeader();
    const QSignalBlocker blocked(heights);
    heights.setUpdatesEnabled(false); // otherwise every row would cause a new layout
    for (int row = rows.first; row < rows.end; ++row)
        heights.resizeSection(row, row_pixels(model_.height(row)));
    heights.setUpdatesEnabled(true);
    updateGeometries();
}

void ScriptView::show_box() {
    const QModelIndex cell = model_.index(form_.grid_row - 1, form_.grid_column);
    if (!form_.Text2_visible || !cell.isValid()) {
        if (window()->focusWidget() == box_)
            setFocus();
        box_->hide();
        box_cell_ = QModelIndex();
        return;
    }
    const QString label = model_.label(cell.row());
    box_->setAccessibleName(label.isEmpty() ? "Value" : label);
    if (box_cell_ == cell)
        return place_box();
    box_cell_ = cell;
    setCurrentIndex(cell);
    scrollTo(cell);
    place_box();
    box_->show();
    focus_box();
    box_->selectAll();
}

// A box that keeps the focus on its way to another cell is announced like one that gets it. The
// current cell under it has been announced before.
void ScriptView::focus_box() {
    const bool kept = box_->hasFocus();
    box_->setFocus();
    if (!kept)
        return;
    QAccessibleEvent moved(box_, QAccessible::Focus);
    QAccessible::updateAccessibility(&moved);
}

void ScriptView::place_box() {
    if (box_cell_.isValid())
        box_->setGeometry(visualRect(box_cell_));
}

// Scrolling needs no code here: the box is a child of the viewport and moves with it.
void ScriptView::updateGeometries() {
    QTableView::updateGeometries();
    place_box();
}

// Enter works like a click on the current cell.
void ScriptView::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentIndex().isValid())
        emit clicked(currentIndex());
    else
        QTableView::keyPressEvent(event);
}

} // namespace veldrune
