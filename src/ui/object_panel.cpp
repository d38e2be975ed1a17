#include "ui/object_panel.h"

#include "editor/field_mark.h"
#include "editor/object_status.h"
#include "editor/object_window.h"
#include "forms/object_names.h"
#include "ui/emphasis.h"
#include "ui/focused_wheel.h"
#include "ui/pixel_picture.h"
#include "ui/tips.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>
#include <span>

namespace veldrune {

namespace {

constexpr int column_count = 3; // of labels and controls
constexpr int line_gap = 4;
constexpr int npc_tab = 0;
constexpr int contents_length = 16; // characters of a line of a chest's contents

constexpr const char* widest_number = "0000000000";
constexpr int movement_count = 16; // Combo4 lists the numbers, decimal

// A control on one tab: its caption, null where the control is hidden, and its meaning for the tool
// tip. The caption is shown on the label or, without a label, on the control; that of the picture
// is for screen readers only.
struct TabEntry {
    const char* caption = nullptr;
    const char* meaning = nullptr;
    std::int64_t limit = 0; // what "%1" in the meaning stands for; "%2" is the largest of its bits
};

using Tabs = TabEntry[object_tab_count];
using NumberForms = std::span<const NumberForm, object_tab_count>; // of a control, by tab
constexpr NumberForm no_number[] = {NumberForm::words, NumberForm::words, NumberForm::words,
                                    NumberForm::words, NumberForm::words};
constexpr NumberForm decimal_npc[] = {NumberForm::decimal, NumberForm::words, NumberForm::words,
                                      NumberForm::words, NumberForm::words};

// The position of a control, with its label on its left, in the grid of fields.
struct Place {
    const char* label;
    int line;
    int column;
};

struct FieldRow {
    std::string Form10::*text;
    Place place;
    void (*on_change)(EditorState&); // called after a change by the user; may be null
    Tabs tabs;
};

struct ListRow {
    const char* control;
    int Form10::*row;
    Place place;
    std::span<const char* const> lines; // empty where the lines are numbers or variable
    int numbers; // count of lines with the numbers from 0 on; 0 for other lists
    Tabs tabs;
};

struct ButtonRow {
    const char* control;
    bool Form10::*value; // null for a radio button: its index is a value of Form10::option
    Tabs tabs;
};

// clang-format off
constexpr FieldRow field_rows[] = {
    {&Form10::Text1, {"Label1", 0, 0}, nullptr,         {{"Event",         "Where the NPC's script lies in the file, %1 or above, five digits.", rom_layout::event_scripts},
                                                         {"X Pos",         "Column of the chest on the map, 0 to %2."},
                                                         {"Map X",         "Column of the trigger on the map, 0 to %2."},
                                                         {"Map X",         "Column of the entrance on the map, 0 to %2."},
                                                         {"Map X",         "Column of the entrance's first tile on the map, 0 to %2."}}},
    {&Form10::Text2, {"Label2", 1, 0}, on_palette_text, {{"Palette",       "Colours of the sprite, 0 to %2."},
                                                         {"Y Pos",         "Row of the chest on the map, 0 to %2."},
                                                         {"Map Y",         "Row of the trigger on the map, 0 to %2."},
                                                         {"Map Y",         "Row of the entrance on the map, 0 to %2."},
                                                         {"Map Y",         "Row of the entrance's first tile on the map, 0 to %2."}}},
    {&Form10::Text4, {"Label4", 2, 0}, nullptr,         {{"Byte:Bit",      "The NPC's flag, xxxx:y: byte 1EE0 to 1F5F and bit 0 to 7."},
                                                         {"Byte:Bit",      "The chest's flag, xx:y: byte 0 to 1F and bit 0 to 7."},
                                                         {"Event Pointer", "Where the trigger's script lies in the file, %1 or above.", rom_layout::event_scripts},
                                                         {"Map Index",     "The map that the entrance leads to, 0 to %2."},
                                                         {"Map Index",     "The map that the entrance leads to, 0 to %2."}}},
    {&Form10::Text5, {"Label5", 0, 1}, nullptr,         {{"X Pos",         "Column of the NPC on the map, 0 to %2."}, {}, {},
                                                         {"Destination Y", "Row on the map that the entrance leads to, 0 to %2."},
                                                         {"Destination Y", "Row on the map that the entrance leads to, 0 to %2."}}},
    {&Form10::Text6, {"Label6", 1, 1}, nullptr,         {{"Y Pos",         "Row of the NPC on the map, 0 to %2."}, {}, {},
                                                         {"Entrance Width", "An entrance of this kind is a single tile."},
                                                         {"Entrance Width", "Tiles behind the first: 0 to 7F to the right; 80 and above downwards."}}},
    {&Form10::Text7, {"Label7", 2, 1}, on_sprite_text,  {{"Sprite",        "Number of the sprite, 0 to %2; those below %1 are previewed.", first_hidden_sprite}, {}, {},
                                                         {"Destination X", "Column on the map that the entrance leads to, 0 to %2."},
                                                         {"Destination X", "Column on the map that the entrance leads to, 0 to %2."}}},
};

constexpr ListRow list_rows[] = {
    {"Combo2", &Form10::Combo2, {"Label3", 3, 0}, {}, 0, {{"Facing", "Where the NPC looks."},
                                                          {"Contents", "What is in the chest: number, hexadecimal, and name of the item."}}},
    {"Combo1", &Form10::Combo1, {"Label8", 0, 2}, vehicle_names, 0, {{"Vehicle", "What the NPC rides."}}},
    {"Combo3", &Form10::Combo3, {"Label11", 1, 2}, speed_names, 0, {{"Speed", "How fast the NPC walks."}}},
    {"Combo4", &Form10::Combo4, {"Label12", 2, 2}, {}, movement_count, {{"Movement", "How the NPC moves about: 0 to %1.", movement_count - 1}}},
};

constexpr ButtonRow box_rows[] = {
    {"Check1", &Form10::Check1, {{"Walk Over", "Bit 4 of the NPC's byte 7."}}},
    {"Check2", &Form10::Check2, {{"Walk Under", "Bit 5 of the NPC's byte 7."}, {"Byte Flag", "Bit 0 of the chest's byte 3."}}},
    {"Check3", &Form10::Check3, {{"Turn to Talk", "Ticked: the NPC turns to whoever talks to it."}}},
};

constexpr ButtonRow option_rows[] = {
    {"Option1", nullptr, {{}, {contents_kind_names[0], "There is nothing in the chest."}}},
    {"Option2", nullptr, {{}, {contents_kind_names[1], "Bit 4 of the chest's byte 3."}}},
    {"Option3", nullptr, {{}, {contents_kind_names[2], "Whoever opens the chest has to fight."}}},
    {"Option4", nullptr, {{}, {contents_kind_names[3], "The contents are an item."}}},
    {"Option5", nullptr, {{}, {contents_kind_names[4], "The contents are money."}}},
};
constexpr Tabs preview_tabs = {{"Sprite picture", "The sprite, six times its size."}};
// clang-format on

// Whether every text that the user types has exactly one field, with a caption on just the tabs
// where its row gives it a number form.
constexpr bool each_number_has_one_field() {
    for (const TabTextRow& text : form10_texts) {
        const bool typed = std::ranges::any_of(text.forms, is_typed);
        if (count_rows(field_rows, text.text) != typed)
            return false;
        for (int tab = 0; typed && tab < object_tab_count; ++tab)
            if ((row_of(field_rows, text.text).tabs[tab].caption == nullptr) !=
                (text.forms[tab] == NumberForm::words))
                return false;
    }
    return true;
}
static_assert(each_number_has_one_field());

constexpr int option_count = std::size(option_rows);
constexpr int box_line = option_count;

constexpr const char* mark_sign = " *"; // after the caption of a control that is marked
constexpr const char* mark_tip = " * Not as in the list of records.";

// The context for making controls.
struct Panel {
    EditorState& state;
    Bindings& bindings;
    QGridLayout& grid;
    const ObjectStatus& status; // renewed before the controls show

    Form10& form() const { return state.form10; }
};

// A control with what changes with the tab. value is what it shows of a record, if anything.
struct Shown {
    QWidget* control;
    QLabel* label; // may be null
    const Tabs& tabs;
    NumberForms numbers = no_number;
    std::optional<ObjectControl> value = {};
};

// Whether a control is to be marked; of radio buttons the pressed one.
bool is_marked(const Shown& shown, const ObjectStatus& status) {
    const auto* option = qobject_cast<const QRadioButton*>(shown.control);
    return shown.value && (!option || option->isChecked()) &&
           std::ranges::count(status.differing, *shown.value) > 0;
}

void show_caption(const Shown& shown, const QString& caption) {
    if (shown.label)
        shown.label->setText(caption);
    else if (auto* button = qobject_cast<QAbstractButton*>(shown.control))
        button->setText(caption);
}

// Shows or hides a control and its label, sets their texts and marks them, as the chosen tab and
// the record require.
void show_on_tab(const Shown& shown, const Form10& form, const ObjectStatus& status) {
    const TabEntry& tab = shown.tabs[form.TabStrip1];
    const NumberForm number = shown.numbers[static_cast<std::size_t>(form.TabStrip1)];
    const bool marked = is_marked(shown, status);
    shown.control->setVisible(tab.caption);
    shown.control->setEnabled(form.fields_enabled && !is_only_shown(number));
    if (shown.label)
        shown.label->setVisible(tab.caption);
    show_caption(shown, QString(tab.caption) + (marked ? mark_sign : ""));
    show_tint(shown.label ? *shown.label : *shown.control, marked);
    const std::int64_t largest =
        shown.value ? largest_number(static_cast<ObjectKind>(form.TabStrip1), *shown.value) : 0;
    const QString tip =
        tab.meaning ? number_tip(tab.meaning, number, tab.limit, largest) : QString();
    shown.control->setToolTip(marked ? tip + mark_tip : tip);
    shown.control->setAccessibleName(tab.caption);
}

void name_control(const Panel& panel, const char* name, const Shown& shown) {
    shown.control->setObjectName(name);
    panel.bindings.on_show([shown, &form = panel.form(), &status = panel.status] {
        show_on_tab(shown, form, status);
    });
}

// Reserves width in a column, so that the fields stay in place when the tab changes.
void reserve_width(QGridLayout& grid, int column, int width) {
    grid.setColumnMinimumWidth(column, std::max(width, grid.columnMinimumWidth(column)));
}

// Adds a control to the grid with its label, which it gets here, on its left.
void place_control(const Panel& panel, const Place& place, const char* name, Shown shown) {
    QWidget* control = shown.control;
    auto* label = shown.label = new QLabel;
    label->setObjectName(place.label);
    label->setBuddy(control);
    panel.grid.addWidget(label, place.line, 2 * place.column);
    panel.grid.addWidget(control, place.line, 2 * place.column + 1);
    for (const TabEntry& tab : shown.tabs)
        reserve_width(panel.grid, 2 * place.column,
                      label->fontMetrics().horizontalAdvance(QString(tab.caption) + mark_sign));
    reserve_width(panel.grid, 2 * place.column + 1,
                  label->fontMetrics().horizontalAdvance(widest_number));
    name_control(panel, name, shown);
}

void add_field(const Panel& panel, const FieldRow& row) {
    const TabTextRow& text = text_row(row.text);
    auto* field = new QLineEdit;
    field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as its column
    panel.bindings.text(field, panel.form().*row.text, bind_state(panel.state, row.on_change));
    place_control(panel, row.place, text.control, {field, nullptr, row.tabs, text.forms, row.text});
    panel.bindings.on_show([field, typed = row.text, &state = panel.state] {
        mark_field(field, field_mark(state, typed));
    });
}

// The lines of Combo2: the directions for an NPC, the items for a chest; none without a record.
const std::vector<std::string>& facing_or_contents(const Form10& form) {
    static const std::vector<std::string> facings(std::begin(facing_names), std::end(facing_names));
    return form.TabStrip1 == npc_tab && form.fields_enabled ? facings : form.Combo2_lines;
}

// Updates a list with variable lines.
void show_lines(QComboBox& list, const std::vector<std::string>& lines) {
    const auto shown = [&list, i = 0](const std::string& line) mutable {
        return list.itemText(i++).toStdString() == line;
    };
    if (list.count() == static_cast<int>(lines.size()) && std::ranges::all_of(lines, shown))
        return;
    list.clear();
    for (const std::string& line : lines)
        list.addItem(QString::fromStdString(line));
}

void add_list(const Panel& panel, const ListRow& row) {
    auto* list = new FocusedWheel<QComboBox>;
    for (const char* line : row.lines)
        list->addItem(line);
    for (int number = 0; number < row.numbers; ++number)
        list->addItem(QString::number(number));
    if (list->count() == 0) {
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(contents_length);
        panel.bindings.on_show(
            [list, &form = panel.form()] { show_lines(*list, facing_or_contents(form)); });
    }
    panel.bindings.list(list, panel.form().*row.row);
    place_control(panel, row.place, row.control,
                  {list, nullptr, row.tabs, row.numbers > 0 ? decimal_npc : no_number, row.row});
    reserve_width(panel.grid, 2 * row.place.column + 1, list->sizeHint().width());
}

void add_column(const Panel& panel, int column) {
    for (const FieldRow& row : field_rows)
        if (row.place.column == column)
            add_field(panel, row);
    for (const ListRow& row : list_rows)
        if (row.place.column == column)
            add_list(panel, row);
}

void add_boxes(const Panel& panel) {
    auto* boxes = new QHBoxLayout;
    for (const ButtonRow& row : box_rows) {
        auto* box = new QCheckBox;
        panel.bindings.box(box, panel.form().*row.value);
        name_control(panel, row.control, {box, nullptr, row.tabs, no_number, row.value});
        boxes->addWidget(box);
    }
    boxes->addStretch();
    panel.grid.addLayout(boxes, box_line, 0, 1, 2 * column_count);
}

// The kinds of contents, in a column where other tabs have the fields of the second column.
void add_options(const Panel& panel) {
    auto* group = new QButtonGroup(&panel.grid);
    for (int option = 0; option < option_count; ++option) {
        const ButtonRow& row = option_rows[option];
        auto* button = new QRadioButton;
        panel.bindings.option(button, panel.form().option, option);
        name_control(panel, row.control, {button, nullptr, row.tabs, no_number, &Form10::option});
        group->addButton(button);
        panel.grid.addWidget(button, option, 2, 1, 2);
    }
    panel.bindings.tab_stop(group);
}

// Keeps the room of a control while it is hidden.
void keep_place(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}

// Says below the preview that it is not of the sprite that is typed.
void add_preview_line(const Panel& panel) {
    auto* line = new QLabel("Shows the last sprite that has a picture.");
    line->setObjectName("PreviewLine");
    keep_place(*line);
    show_tint(*line, true);
    panel.bindings.on_show(
        [line, &status = panel.status] { line->setVisible(status.preview_outdated); });
    panel.grid.addWidget(line, box_line + 1, 0, 1, 2 * column_count + 1, Qt::AlignRight);
}

void add_preview(const Panel& panel) {
    Form10& form = panel.form();
    auto* picture = new PixelPicture(ScreenPicture(form.Picture1));
    keep_place(*picture);
    panel.bindings.on_show([picture, &form] {
        picture->show_height(form.Picture1_height);
        picture->update_if_changed();
    });
    name_control(panel, "Picture1", {picture, nullptr, preview_tabs});
    auto* column = new QVBoxLayout;
    column->addWidget(picture);
    column->addStretch();
    panel.grid.addLayout(column, 0, 2 * column_count, box_line + 1, 1);
}

} // namespace

QWidget* make_object_panel(EditorState& state, Bindings& bindings, const ObjectStatus& status) {
    auto* frame = new QFrame;
    frame->setFrameStyle(QFrame::StyledPanel);
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(10);
    const Panel panel{state, bindings, *grid, status};
    for (int column = 0; column < column_count; ++column)
        add_column(panel, column);
    add_options(panel);
    add_boxes(panel);
    add_preview(panel);
    add_preview_line(panel);
    grid->setColumnStretch(2 * column_count - 1, 1);
    // All tabs have the same line heights.
    grid->setVerticalSpacing(0);
    for (int line = 0; line <= box_line; ++line)
        grid->setRowMinimumHeight(line, QComboBox().sizeHint().height() + line_gap);
    grid->setRowStretch(box_line + 2, 1);
    return frame;
}

} // namespace veldrune
