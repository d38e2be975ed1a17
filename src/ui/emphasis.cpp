#include "ui/emphasis.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

namespace veldrune {

namespace {

// The icon in a marked field.
class MarkAction : public QAction {
  public:
    using QAction::QAction;
};

MarkAction* mark_of(QLineEdit* field) {
    for (QAction* action : field->actions())
        if (auto* mark = dynamic_cast<MarkAction*>(action))
            return mark;
    return nullptr;
}

MarkAction* add_mark(QLineEdit* field) {
    const QIcon icon = field->style()->standardIcon(QStyle::SP_MessageBoxWarning);
    auto* mark = new MarkAction(icon, "", field);
    field->addAction(mark, QLineEdit::TrailingPosition);
    return mark;
}

// A colour for the text of a marked field with enough contrast to its base.
QColor mark_colour(const QPalette& palette) {
    constexpr int middle = 128;
    const bool dark = palette.color(QPalette::Base).lightness() < middle;
    return dark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB0, 0x00, 0x20);
}

} // namespace

void emphasise(QPushButton* button, bool on, const char* why) {
    if (button->font().bold() == on)
        return;
    QFont font = button->font();
    font.setBold(on);
    button->setFont(font);
    QPalette colours;
    if (on) {
        constexpr int darker = 150; // percent: styles lighten the colour of a button
        colours.setColor(QPalette::Button, colours.color(QPalette::Highlight).darker(darker));
        colours.setColor(QPalette::ButtonText, colours.color(QPalette::HighlightedText));
    }
    button->setPalette(colours);
    button->setAccessibleDescription(on ? why : "");
}

QColor tint_of(const QPalette& palette) {
    QColor colour = palette.color(QPalette::Highlight);
    colour.setAlpha(60);
    return colour;
}

void show_tint(QWidget& widget, bool on) {
    if (widget.autoFillBackground() == on)
        return;
    QPalette palette;
    if (on)
        palette.setColor(QPalette::Window, tint_of(widget.palette()));
    widget.setPalette(palette);
    widget.setBackgroundRole(QPalette::Window);
    widget.setAutoFillBackground(on);
}

void mark_field(QLineEdit* field, const std::string& sentence) {
    MarkAction* mark = mark_of(field);
    const QString tip = QString::fromStdString(sentence);
    if (mark ? mark->toolTip() == tip : tip.isEmpty())
        return;
    QPalette colours;
    if (tip.isEmpty()) {
        delete mark;
    } else {
        if (!mark)
            mark = add_mark(field);
        mark->setToolTip(tip);
        colours.setColor(QPalette::Text, mark_colour(colours));
    }
    field->setPalette(colours);
    field->setAccessibleDescription(tip);
}

} // namespace veldrune
