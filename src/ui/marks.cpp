#include "ui/marks.h"

#include <QPalette>
#include <QWidget>

namespace veldrune {

QColor mark_colour(const QPalette& palette) {
    QColor colour = palette.color(QPalette::Highlight);
    colour.setAlpha(60);
    return colour;
}

void show_mark(QWidget& widget, bool marked) {
    if (widget.autoFillBackground() == marked)
        return;
    QPalette palette;
    if (marked)
        palette.setColor(QPalette::Window, mark_colour(widget.palette()));
    widget.setPalette(palette);
    widget.setBackgroundRole(QPalette::Window);
    widget.setAutoFillBackground(marked);
}

} // namespace veldrune
