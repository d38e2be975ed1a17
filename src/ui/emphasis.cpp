#include "ui/emphasis.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <utility>
#include <vector>

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

using OwnColours = std::vector<std::pair<QPalette::ColorRole, QColor>>;

// Has a widget differ from the application's palette in these colours and no others.
void give_colours(QWidget& widget, const OwnColours& colours) {
    const QPalette& shown = widget.palette();
    const bool has_all = std::ranges::all_of(
        colours, [&](const auto& own) { return shown.color(own.first) == own.second; });
    if (has_all && widget.testAttribute(Qt::WA_SetPalette) == !colours.empty())
        return;
    QPalette palette;
    for (const auto& [role, colour] : colours)
        palette.setColor(role, colour);
    widget.setPalette(palette);
}

OwnColours emphasis(const QPalette& palette) {
    constexpr int darker = 150; // percent: styles lighten the colour of a button
    return {{QPalette::Button, palette.color(QPalette::Highlight).darker(darker)},
            {QPalette::ButtonText, palette.color(QPalette::HighlightedText)}};
}

} // namespace

void emphasise(QPushButton* button, bool on, const char* why) {
    give_colours(*button, on ? emphasis(QPalette()) : OwnColours());
    if (button->font().bold() == on)
        return;
    QFont font = button->font();
    font.setBold(on);
    button->setFont(font);
    button->setAccessibleDescription(on ? why : "");
}

QColor tint_of(const QPalette& palette) {
    QColor colour = palette.color(QPalette::Highlight);
    colour.setAlpha(60);
    return colour;
}

void show_tint(QWidget& widget, bool on) {
    give_colours(widget, on ? OwnColours{{QPalette::Window, tint_of(QPalette())}} : OwnColours());
    if (widget.autoFillBackground() == on)
        return;
    widget.setBackgroundRole(QPalette::Window);
    widget.setAutoFillBackground(on);
}

void mark_field(QLineEdit* field, const std::string& sentence) {
    MarkAction* mark = mark_of(field);
    const QString tip = QString::fromStdString(sentence);
    give_colours(*field, sentence.empty() ? OwnColours()
                                          : OwnColours{{QPalette::Text, mark_colour(QPalette())}});
    if (mark ? mark->toolTip() == tip : tip.isEmpty())
        return;
    if (tip.isEmpty()) {
        delete mark;
    } else {
        if (!mark)
            mark = add_mark(field);
        mark->setToolTip(tip);
    }
    field->setAccessibleDescription(tip);
}

} // namespace veldrune
