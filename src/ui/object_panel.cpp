#include "ui/object_panel.h"

#include "ui/calm_wheel.h"
#include "ui/form10_controls.h"
#include "ui/pixel_picture.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>

namespace veldrune {

namespace {

constexpr int column_count = 3; // of labels and controls
constexpr int option_count = std::size(object_option_rows);
constexpr int box_line = option_count;
constexpr int line_gap = 4;
constexpr int chest_tab = 1;
constexpr int contents_length = 16; // characters of a line of a chest's contents

constexpr const char* widest_number = "0000000000";

/// What making a control needs.
struct Panel {
    EditorState& state;
    Bindings& bindings;
    QGridLayout& grid;

    Form10& form() const { return state.form10; }
};

/// The width of a short entrance.
bool is_fixed(const ObjectControlRow& row, const Form10& form) {
    return &row == captions_of("Text6") && form.TabStrip1 == fixed_width_tab;
}

/// Shows a control, its label and its tip as the chosen tab wants them.
void show_on_tab(QWidget& control, QLabel* label, const ObjectControlRow& row,
                 const ObjectTips& tips, const Form10& form) {
    const char* caption = row.captions[form.TabStrip1];
    control.setVisible(caption);
    control.setEnabled(form.fields_enabled && !is_fixed(row, form));
    if (label) {
        label->setVisible(caption);
        label->setText(caption);
    }
    control.setToolTip(tips[form.TabStrip1]);
    control.setAccessibleName(caption);
}

void name_control(const Panel& panel, QWidget* control, QLabel* label, const ObjectControlRow& row,
                  const ObjectTips& tips) {
    control->setObjectName(row.control);
    panel.bindings.rule([control, label, &row, &tips, &form = panel.form()] {
        show_on_tab(*control, label, row, tips, form);
    });
}

/// Makes room in a column that has a widget, so that the fields stay where they are from tab to
/// tab.
void keep_room(QGridLayout& grid, int column, int width) {
    grid.setColumnMinimumWidth(column, std::max(width, grid.columnMinimumWidth(column)));
}

/// A control of the grid with its label at its left.
template <typename Row>
void place(const Panel& panel, QWidget* control, const Row& row) {
    auto* label = new QLabel;
    label->setObjectName(row.control->label);
    label->setBuddy(control);
    panel.grid.addWidget(label, row.line, 2 * row.column);
    panel.grid.addWidget(control, row.line, 2 * row.column + 1);
    for (const char* text : row.control->captions)
        keep_room(panel.grid, 2 * row.column, label->fontMetrics().horizontalAdvance(text));
    keep_room(panel.grid, 2 * row.column + 1,
              label->fontMetrics().horizontalAdvance(widest_number));
    name_control(panel, control, label, *row.control, row.tips);
}

void add_field(const Panel& panel, const ObjectFieldRow& row) {
    auto* field = new QLineEdit;
    field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as its column
    panel.bindings.text(field, panel.form().*row.text, following(panel.state, row.then));
    place(panel, field, row);
}

/// Fills a list whose lines change.
void show_lines(QComboBox& list, const std::vector<std::string>& lines) {
    const auto shown = [&list, i = 0](const std::string& line) mutable {
        return list.itemText(i++).toStdString() == line;
    };
    if (list.count() == static_cast<int>(lines.size()) && std::ranges::all_of(lines, shown))
        return;
    const QSignalBlocker blocked(list);
    list.clear();
    for (const std::string& line : lines)
        list.addItem(QString::fromStdString(line));
}

void add_list(const Panel& panel, const ObjectListRow& row) {
    auto* list = new CalmWheel<QComboBox>;
    for (const char* line : row.lines)
        list->addItem(line);
    for (int number = 0; number < row.numbers; ++number)
        list->addItem(QString::number(number));
    if (list->count() == 0) {
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(contents_length);
        panel.bindings.rule(
            [list, &lines = panel.form().Combo2_lines] { show_lines(*list, lines); });
    }
    panel.bindings.list(list, panel.form().*row.row);
    place(panel, list, row);
    keep_room(panel.grid, 2 * row.column + 1, list->sizeHint().width());
}

void add_column(const Panel& panel, int column) {
    for (const ObjectFieldRow& row : object_field_rows)
        if (row.column == column)
            add_field(panel, row);
    for (const ObjectListRow& row : object_list_rows)
        if (row.column == column)
            add_list(panel, row);
}

void add_boxes(const Panel& panel) {
    auto* boxes = new QHBoxLayout;
    for (const ObjectBoxRow& row : object_box_rows) {
        auto* box = new QCheckBox;
        panel.bindings.box(box, panel.form().*row.value);
        panel.bindings.rule([box, &row, &tab = panel.form().TabStrip1] {
            box->setText(row.control->captions[tab]);
        });
        name_control(panel, box, nullptr, *row.control, row.tips);
        boxes->addWidget(box);
    }
    boxes->addStretch();
    panel.grid.addLayout(boxes, box_line, 0, 1, 2 * column_count);
}

/// The kinds of contents, below each other where other tabs have the fields of the second column.
void add_options(const Panel& panel) {
    auto* group = new QButtonGroup(&panel.grid);
    for (int option = 0; option < option_count; ++option) {
        const ObjectTipRow& row = object_option_rows[option];
        auto* button = new QRadioButton(row.control->captions[chest_tab]);
        panel.bindings.option(button, panel.form().option, option);
        name_control(panel, button, nullptr, *row.control, row.tips);
        group->addButton(button);
        panel.grid.addWidget(button, option, 2, 1, 2);
    }
}

void add_preview(const Panel& panel) {
    Form10& form = panel.form();
    auto* picture = new PixelPicture(ScreenPicture(form.Picture1));
    QSizePolicy keeps_its_place = picture->sizePolicy();
    keeps_its_place.setRetainSizeWhenHidden(true);
    picture->setSizePolicy(keeps_its_place);
    panel.bindings.rule([picture, &form] {
        picture->show_height(form.Picture1_height);
        picture->follow();
    });
    name_control(panel, picture, nullptr, *sprite_preview_row.control, sprite_preview_row.tips);
    auto* column = new QVBoxLayout;
    column->addWidget(picture);
    column->addStretch();
    panel.grid.addLayout(column, 0, 2 * column_count, box_line + 1, 1);
}

} // namespace

QWidget* make_object_panel(EditorState& state, Bindings& bindings) {
    auto* frame = new QFrame;
    frame->setFrameStyle(QFrame::StyledPanel);
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(10);
    const Panel panel{state, bindings, *grid};
    for (int column = 0; column < column_count; ++column)
        add_column(panel, column);
    add_options(panel);
    add_boxes(panel);
    add_preview(panel);
    grid->setColumnStretch(2 * column_count - 1, 1);
    // Lines keep their height from tab to tab, whatever shows in them.
    grid->setVerticalSpacing(0);
    for (int line = 0; line <= box_line; ++line)
        grid->setRowMinimumHeight(line, QComboBox().sizeHint().height() + line_gap);
    grid->setRowStretch(box_line + 1, 1);
    return frame;
}

} // namespace veldrune
