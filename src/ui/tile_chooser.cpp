#include "ui/tile_chooser.h"

#include "editor/cell_info.h"
#include "editor/tile_chooser.h"
#include "ui/cell_picture.h"
#include "ui/screen_place.h"

#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace veldrune {

namespace {

constexpr int margin = 3;

// Picture1. Passes clicks to the editor, in pixels of the picture.
class SheetPicture : public CellPicture {
  public:
    SheetPicture(EditorState& state, const Bindings& bindings)
        : CellPicture(ScreenPicture(state.display.tile_sheet)), state_(state), bindings_(bindings) {
        setObjectName("Picture1");
        setAccessibleName("All tiles");
        setToolTip("Click a tile to paint with it.");
        setFocusPolicy(Qt::StrongFocus);
        setMouseTracking(true);
        setCursor(Qt::CrossCursor);
    }

  protected:
    int cell_side() const override { return sheet_cell_side; }
    QString text_at(QPoint pixel) const override {
        return QString::fromStdString(sheet_cell_text(pixel.x(), pixel.y()));
    }
    void press_at(Qt::MouseButton button, QPoint at) override {
        pressed_ = button == Qt::LeftButton && contains(at);
    }
    void release_at(Qt::MouseButton button, QPoint at) override {
        if (button == Qt::LeftButton && std::exchange(pressed_, false) && contains(at))
            bindings_.edit([&] { choose_tile(state_, at.x(), at.y()); });
    }
    void end_stroke() override {
        CellPicture::end_stroke();
        pressed_ = false;
    }
    std::vector<Mark> marks() const override {
        std::vector<Mark> marks = CellPicture::marks();
        marks.insert(marks.begin(), {MarkKind::current, cell_at(current_tile())});
        return marks;
    }
    // The cursor starts on the current tile.
    void showEvent(QShowEvent* event) override {
        if (!event->spontaneous())
            set_cursor_cell(current_tile());
        CellPicture::showEvent(event);
    }

  private:
    QPoint current_tile() const {
        const SheetCell cell = cell_of_tile(state_.form1.current_tile);
        return QPoint(cell.column, cell.row) * sheet_cell_side;
    }

    EditorState& state_;
    const Bindings& bindings_;
    bool pressed_ = false; // the left button went down on the picture
};

QLabel* make_line(CellPicture* sheet) {
    auto* line = new QLabel;
    line->setObjectName("cell_line");
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    line->setFixedHeight(line->fontMetrics().height());
    line->setToolTip("The tile under the pointer or the cell cursor. Hexadecimal.");
    QObject::connect(sheet, &CellPicture::place_told, line, &QLabel::setText);
    return line;
}

} // namespace

TileChooser::TileChooser(EditorState& state, EditGate& gate, QWidget& parent)
    : SideWindow(state, gate, state.form8.visible, close_tile_chooser, &parent, Qt::Window),
      sheet_(new SheetPicture(state, bindings_)), area_(new QScrollArea), line_(make_line(sheet_)) {
    setObjectName("Form8");
    setWindowTitle("Choose Tile");
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    bindings_.on_show([this] { sheet_->show_state(); });
    bind_raise_request(state.form8.raise_requested);
    area_->setFrameStyle(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    area_->setWidget(sheet_);
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(area_);
    layout->addWidget(line_);
    setCentralWidget(panel);
    QMainWindow::layout()->setSizeConstraint(QLayout::SetFixedSize);
    sheet_->setFocus();
    // Works in the layer palette, too, which is a child of this window.
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);

    fit_screen();
    // On the right it leaves the map picture visible.
    place_on_screen(*this, parent.frameGeometry(), Qt::AlignRight | Qt::AlignVCenter);
}

void TileChooser::fit_screen() {
    const QSize around(2 * margin, 3 * margin + line_->height());
    const QSize room = screen()->availableSize() - window_frame - around;
    sheet_->fit(room, 1);
    sheet_->resize(sheet_->sizeHint());
    const int bar = area_->verticalScrollBar()->sizeHint().width();
    const bool scrolls = sheet_->size() != sheet_->size().boundedTo(room);
    const QSize bars = scrolls ? QSize(bar, bar) : QSize(0, 0);
    area_->setFixedSize((sheet_->size() + bars).boundedTo(room));
}

bool TileChooser::event(QEvent* event) {
    if (event->type() == QEvent::ScreenChangeInternal)
        fit_screen();
    return SideWindow::event(event);
}

// The picture is the only control here: the next one is in the layer palette.
bool TileChooser::focusNextPrevChild(bool) {
    for (auto* palette : findChildren<QMainWindow*>(Qt::FindDirectChildrenOnly))
        if (palette->isVisible())
            palette->activateWindow();
    return true;
}

// What happens before a window is shown for the first time places it with its frame.
void TileChooser::setVisible(bool visible) {
    if (visible && !isVisible()) {
        fit_screen();
        place_on_screen(*this, frameGeometry(), Qt::AlignLeft | Qt::AlignTop);
    }
    SideWindow::setVisible(visible);
}

} // namespace veldrune
