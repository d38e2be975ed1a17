#include "editor/view.h"
#include "editor/world_view.h"
#include "ui/map_picture.h"
#include "ui/panels.h"
#include "ui/status_line.h"
#include "ui/tips.h"

#include <QGridLayout>

#include <algorithm>

namespace veldrune {

namespace {

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

} // namespace

QWidget* make_picture_panel(const Controls& controls, MapPicture* picture, StatusLine* status) {
    auto* panel = new QWidget;
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
    grid->addWidget(status, 3, 0, 1, 2);
    controls.bindings.on_show([status] { status->show_state(); });
    grid->setRowStretch(4, 1);
    controls.bindings.on_show([picture] { picture->update_if_changed(); });
    return panel;
}

} // namespace veldrune
