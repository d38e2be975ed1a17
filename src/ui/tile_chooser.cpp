#include "ui/tile_chooser.h"

#include "editor/tile_chooser.h"
#include "ui/pixel_picture.h"
#include "ui/screen_place.h"

#include <QMouseEvent>
#include <QShortcut>
#include <QVBoxLayout>

namespace veldrune {

namespace {

constexpr int margin = 3;

// Picture1. Passes clicks to the editor, in pixels of the picture.
class SheetPicture : public PixelPicture {
  public:
    SheetPicture(EditorState& state, const Bindings& bindings)
        : PixelPicture(ScreenPicture(state.display.tile_sheet)), state_(state),
          bindings_(bindings) {
        setObjectName("Picture1");
        setAccessibleName("All tiles");
        setToolTip("Click a tile to paint with it.");
        setCursor(Qt::CrossCursor);
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        pressed_ = event->button() == Qt::LeftButton && contains(pixel_under(*event));
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        const QPoint at = pixel_under(*event);
        if (event->button() == Qt::LeftButton && std::exchange(pressed_, false) && contains(at))
            bindings_.edit([&] { choose_tile(state_, at.x(), at.y()); });
    }

  private:
    EditorState& state_;
    const Bindings& bindings_;
    bool pressed_ = false; // the left button went down on the picture
};

} // namespace

TileChooser::TileChooser(EditorState& state, EditGate& gate, QWidget& parent)
    : SideWindow(state, gate, state.form8.visible, close_tile_chooser, &parent, Qt::Window) {
    setObjectName("Form8");
    setWindowTitle("Choose Tile");
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    auto* sheet = new SheetPicture(state, bindings_);
    bindings_.on_show([sheet] { sheet->update_if_changed(); });
    bind_raise_request(state.form8.raise_requested);
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(sheet);
    setCentralWidget(new ScrolledPanel(panel));
    // Works in the layer palette, too, which is a child of this window.
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);

    // There it leaves the map picture visible.
    place_on_screen(*this, parent.frameGeometry(), Qt::AlignRight | Qt::AlignVCenter);
    setFixedSize(size());
}

} // namespace veldrune
