#include "editor/view.h"
#include "editor/world_view.h"
#include "ui/map_picture.h"
#include "ui/panels.h"
#include "ui/status_line.h"
#include "ui/tips.h"

#include <QEvent>
#include <QGridLayout>

#include <algorithm>

namespace veldrune {

namespace {

// The panel. It lies directly in the layout of its parent, and its picture takes the room that the
// parent has beyond what that layout asks for.
class PicturePanel : public QWidget {
  public:
    explicit PicturePanel(MapPicture* picture) : picture_(picture) {}
    QSize minimumSizeHint() const override { // the picture can shrink again
        return QWidget::minimumSizeHint() + picture_->natural_size() - picture_->sizeHint();
    }

  protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ParentChange && parentWidget())
            parentWidget()->installEventFilter(this);
        return QWidget::event(event);
    }
    bool eventFilter(QObject* parent, QEvent* event) override {
        const bool room_changes =
            event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
        if (room_changes && parent == parentWidget() && parentWidget()->layout())
            fit_picture(*parentWidget());
        return false;
    }

  private:
    void fit_picture(const QWidget& parent) {
        layout()->activate(); // so that the sizes asked for are those of the picture's present one
        const QSize inside =
            parent.contentsRect().marginsRemoved(parent.layout()->contentsMargins()).size();
        const QSize free(parent.width() - parent.sizeHint().width(),
                         inside.height() - sizeHint().height());
        picture_->fit(picture_->sizeHint() + free, natural_side(devicePixelRatioF()));
    }

    MapPicture* picture_;
};

struct BarRow {
    const char* control;
    Qt::Orientation direction;
    ScrollBar Form1::*value;
    void (*on_change)(EditorState&);
};
constexpr BarRow bar_rows[] = {
    {"HScroll1", Qt::Horizontal, &Form1::HScroll1, on_h_scroll},
    {"VScroll1", Qt::Vertical, &Form1::VScroll1, on_v_scroll},
    {"HScroll2", Qt::Horizontal, &Form1::HScroll2, refresh_world_view},
    {"VScroll2", Qt::Vertical, &Form1::VScroll2, refresh_world_view},
};

void add_path(const Controls& controls, QGridLayout& grid) {
    auto* path = new ElidedLabel(Qt::ElideMiddle);
    path->setObjectName(text_row(&Form1::Label20).control);
    const std::string& value = controls.state.form1.Label20;
    controls.bindings.label(path, value);
    controls.bindings.on_show(
        [path, &value] { path->setToolTip(plain_tip(QString::fromStdString(value))); });
    grid.addWidget(path, 0, 0);
}

// Says which cell pointer or cursor is on.
QLabel* make_cell_line(MapPicture* picture) {
    auto* line = new ElidedLabel(Qt::ElideRight);
    line->setObjectName("cell_line");
    line->setToolTip("The tile under the pointer or the cell cursor. Hexadecimal.");
    QObject::connect(picture, &MapPicture::place_told, line, &QLabel::setText);
    return line;
}

} // namespace

QWidget* make_picture_panel(const Controls& controls, MapPicture* picture, StatusLine* status) {
    auto* panel = new PicturePanel(picture);
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(2);
    add_path(controls, *grid);
    grid->addWidget(picture, 1, 0);
    for (const BarRow& row : bar_rows) {
        QScrollBar* bar = controls.bar(row.control, row.direction, row.value, row.on_change);
        const bool horizontal = row.direction == Qt::Horizontal;
        grid->addWidget(bar, horizontal ? 2 : 1, horizontal ? 0 : 1);
        QObject::connect(
            picture, &MapPicture::scrolled, bar, [bar](Qt::Orientation direction, int tiles) {
                const qint64 place = qint64{bar->value()} + tiles;
                if (bar->isVisible() && bar->orientation() == direction)
                    bar->setValue(static_cast<int>(std::clamp<qint64>(place, 0, bar->maximum())));
            });
    }
    grid->addWidget(make_cell_line(picture), 3, 0, 1, 2);
    grid->addWidget(status, 4, 0, 1, 2);
    grid->setRowStretch(5, 1);
    controls.bindings.on_show([picture, status] {
        picture->show_state();
        status->show_state();
    });
    return panel;
}

} // namespace veldrune
