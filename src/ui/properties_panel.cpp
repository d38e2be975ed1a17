#include "ui/panels.h"

#include <QGridLayout>
#include <QPlainTextEdit>

#include <map>
#include <string_view>

namespace veldrune {

namespace {

constexpr int heading_line = 0;
constexpr int gap_line = 7; // between what every layer has and the rest
constexpr int battles_line = 13;
constexpr int notes_line = 14;

/// A cell of the grid that holds one field or several side by side.
QHBoxLayout* add_cell(QGridLayout& grid, int line, int cell, int span) {
    auto* layout = new QHBoxLayout;
    layout->setSpacing(4);
    grid.addLayout(layout, line, cell, 1, span);
    return layout;
}

void add_headings(const Controls& controls, QGridLayout& grid) {
    for (const HeadingRow& row : heading_rows)
        grid.addWidget(controls.label(row.control, row.caption), heading_line, row.cell,
                       Qt::AlignHCenter);
}

/// Text14 gives its place to Text24 while a world map is shown.
void share_location_place(const Controls& controls, QLineEdit* field, std::string Form1::*text) {
    const bool of_world = text == &Form1::Text24;
    if (of_world || text == &Form1::Text14)
        controls.bindings.rule([field, of_world, &world = controls.state.form1.Text24_visible] {
            field->setVisible(of_world == world);
        });
}

void add_fields(const Controls& controls, QGridLayout& grid) {
    std::map<std::pair<int, int>, QHBoxLayout*> cells;
    std::string_view labelled;
    for (const FieldRow& row : field_rows) {
        QLineEdit* field = controls.field(row);
        if (labelled != row.label) {
            labelled = row.label;
            QLabel* label = controls.label(row.label, row.caption);
            label->setBuddy(field);
            grid.addWidget(label, row.line, row.cell - 1);
        }
        QHBoxLayout*& cell = cells[{row.line, row.cell}];
        if (!cell)
            cell = add_cell(grid, row.line, row.cell, row.span);
        cell->addWidget(field);
        share_location_place(controls, field, row.text);
    }
}

void add_notes(const Controls& controls, QGridLayout& grid) {
    auto* notes = new QPlainTextEdit;
    notes->setObjectName("Text20");
    notes->setToolTip("Free text, for yourself. It is not kept.");
    notes->setTabChangesFocus(true);
    notes->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    notes->setMinimumHeight(2 * notes->fontMetrics().lineSpacing() + 12);
    controls.bindings.lines(notes, controls.state.form1.Text20);
    QLabel* label = controls.label("Label19", "Notes");
    label->setBuddy(notes);
    grid.addWidget(label, notes_line, 0, Qt::AlignTop);
    grid.addWidget(notes, notes_line, 1, 1, 3);
}

} // namespace

QWidget* make_properties_panel(const Controls& controls) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    grid->setRowMinimumHeight(gap_line, 12);
    for (const HeadingRow& row : heading_rows)
        grid->setColumnMinimumWidth(row.cell, panel->fontMetrics().horizontalAdvance("0000000000"));
    add_headings(controls, *grid);
    add_fields(controls, *grid);
    grid->addWidget(controls.box(battles_box), battles_line, 1, 1, 3);
    add_notes(controls, *grid);
    grid->setRowStretch(notes_line, 1);
    return panel;
}

} // namespace veldrune
