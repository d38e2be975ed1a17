#include "editor/shared_data.h"
#include "ui/panels.h"

#include <QEvent>
#include <QGridLayout>
#include <QPlainTextEdit>

#include <limits>

namespace veldrune {

namespace {

constexpr int heading_line = 0;
constexpr int gap_line = 7; // between the properties of the layers and the others
constexpr int battles_line = 13;
constexpr int notes_line = 14;
constexpr int free_line = 15; // below everything

struct HeadingRow {
    const char* control;
    const char* caption;
};
constexpr HeadingRow heading_rows[] = {
    {"Label2", "Layer1"}, {"Label3", "Layer2"}, {"Label23", "Layer 3"}};

struct FieldRow {
    std::string Form1::*text;
    const char* meaning;
    const char* part = "";  // names the fields of a line where there is no heading
    std::int64_t limit = 0; // what "%1" in the meaning stands for; "%2" is the largest of its bits
};

// A label and its fields. Each field has its own column, under a heading, or all share span
// columns. Two lines with a small span can be side by side.
struct LineRow {
    int line;
    int column;
    int span; // 0 for fields with columns of their own
    const char* label;
    const char* caption;
    FieldRow fields[4];
};
constexpr const char* location_caption = "Map Data Location";
constexpr int highest_formation_set = rom_layout::formation_set_count - 1;
constexpr int highest_tileset = rom_layout::tileset_count - 1;

// clang-format off
constexpr LineRow line_rows[] = {
    {1, 0, 0, "Label21", "Map Width", {{layer_controls[0].width, "Width of layer 1 in tiles"},
                                       {layer_controls[1].width, "Width of layer 2 in tiles"},
                                       {layer_controls[2].width, "Width of layer 3 in tiles"}}},
    {2, 0, 0, "Label22", "Map Height", {{layer_controls[0].height, "Height of layer 1 in tiles"},
                                        {layer_controls[1].height, "Height of layer 2 in tiles"},
                                        {layer_controls[2].height, "Height of layer 3 in tiles"}}},
    {3, 0, 0, "Label4", "Tile Formations", {{layer_controls[0].formation, "Set of tile formations of layer 1, 0 to %1.", "", highest_formation_set},
                                            {layer_controls[1].formation, "Set of tile formations of layer 2, 0 to %1.", "", highest_formation_set},
                                            {layer_controls[2].formation, "Graphics of layer 3, 0 to %1; number 6 is opaque, all others are half transparent.", "", rom_layout::layer3_graphics_count - 1}}},
    {4, 0, 0, "Label6", location_caption, {{layer_controls[0].location, "Where the tiles of layer 1 lie in the file, and where Save writes them."},
                                           {layer_controls[1].location, "Where the tiles of layer 2 lie in the file, and where Save writes them."},
                                           {layer_controls[2].location, "Where the tiles of layer 3 lie in the file, and where Save writes them; %1 stands for no layer 3.", "", rom_layout::layer_data}}},
    {4, 0, 0, nullptr, location_caption, {{&Form1::Text24, "Where the tiles of the world map lie in the file, and where Save writes them.", "World"}}},
    {5, 0, 0, "Label24", "Left Shift", {{&Form1::Text39, "Left shift, first column."},
                                        {&Form1::Text40, "Left shift, second column."}}},
    {6, 0, 0, "Label31", "Upward Shift", {{&Form1::Text42, "Upward shift, first column."},
                                          {&Form1::Text43, "Upward shift, second column."}}},

    {8, 0, 3, "Label5", "Tilesets", {{tileset_controls[0], "First group of tile graphics, 0 to %1.", "1", highest_tileset},
                                     {tileset_controls[1], "Second group of tile graphics, 0 to %1.", "2", highest_tileset},
                                     {tileset_controls[2], "Third group of tile graphics, 0 to %1.", "3", highest_tileset},
                                     {tileset_controls[3], "Fourth group of tile graphics, 0 to %1.", "4", highest_tileset}}},
    {9, 0, 1, "Label17", "Animated Tileset", {{&Form1::Text18, "Set of animated tiles, 0 to %2."}}},
    {9, 2, 1, "Label7", "Palette", {{&Form1::Text13, "Colours of the map, 0 to %2."}}},
    {10, 0, 1, "Label18", "Viewable Map Size", {{&Form1::Text16, "Part of the map that the game shows, first value, 0 to %2.", "first"},
                                                {&Form1::Text17, "Part of the map that the game shows, second value, 0 to %2.", "second"}}},
    {10, 2, 1, "Label25", "Layer Priorities", {{&Form1::Text37, "Entry of the game's layer priority table, 0 to %2. The picture follows when the map is chosen anew."}}},
    {11, 0, 1, "Label32", "Scoll Index", {{&Form1::Text45, "How the layers scroll against each other: number of the game's scroll entry, 0 to %2."}}},
    {11, 2, 1, "Label12", "Song", {{&Form1::Text44, "Music of the map, 0 to %2."}}},
    {12, 0, 1, "Label33", "Battle BG", {{&Form1::Text46, "Background of battles on the map, 0 to %2."}}},
    {12, 2, 1, "Label11", "Monster Set", {{&Form1::Text41, "Monsters that are met on the map, 0 to %1.", "", std::numeric_limits<std::uint8_t>::max()}}},
};

constexpr BoxRow battles_row =
    {"Check8", "Enable Battles", &Form1::Check8, true, nullptr, "Ticked: monsters are met on the map."};
// clang-format on

// Whether every number that the user types is in exactly one line.
constexpr bool each_number_has_one_field() {
    for (const TextRow<Form1>& row : form1_texts) {
        int fields = 0;
        for (const LineRow& line : line_rows)
            fields += count_rows(line.fields, row.text);
        if (fields != is_typed(row.form))
            return false;
    }
    return true;
}
static_assert(each_number_has_one_field());

void add_headings(const Controls& controls, QGridLayout& grid) {
    for (int column = 1; const HeadingRow& row : heading_rows)
        grid.addWidget(controls.label(row.control, row.caption), heading_line, column++,
                       Qt::AlignHCenter);
}

// Has the tip of a layer's "Map Data Location" name the maps that share the data. It is looked up
// when the tip is asked for, and when the field is entered: a screen reader reads the tip then.
class SharingTip : public QObject {
  public:
    SharingTip(QLineEdit* field, const EditorState& state, int layer)
        : QObject(field), field_(field), state_(state), layer_(layer), meaning_(field->toolTip()) {
        field->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ToolTip || event->type() == QEvent::FocusIn)
            field_->setToolTip(
                meaning_ + ' ' +
                QString::fromStdString(sharing_maps(state_.rom, state_.map, layer_)));
        return false;
    }

  private:
    QLineEdit* field_;
    const EditorState& state_;
    int layer_;
    QString meaning_;
};

// Text14 and Text24 share one position: it shows the location of a map or of a world map.
QLineEdit* make_field(const Controls& controls, const FieldRow& row) {
    const bool of_world = row.text == &Form1::Text24;
    const bool shares_place = of_world || row.text == layer_controls[0].location;
    QLineEdit* field = controls.field(row.text, row.meaning, !shares_place, row.limit);
    field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as its column
    for (int layer = 0; layer < layer_count; ++layer)
        if (row.text == layer_controls[layer].location)
            new SharingTip(field, controls.state, layer);
    if (shares_place)
        controls.bindings.on_show([field, of_world, &world = controls.state.form1.Text24_visible] {
            field->setVisible(of_world == world);
        });
    return field;
}

QString caption_of(const LineRow& line, int field) {
    const bool has_heading = line.span == 0 && line.label;
    const char* part = has_heading ? heading_rows[field].caption : line.fields[field].part;
    return QString("%1 %2").arg(line.caption, part).trimmed();
}

// Adds the layout for fields that share columns.
QHBoxLayout* add_shared_cell(QGridLayout& grid, const LineRow& row) {
    auto* layout = new QHBoxLayout;
    layout->setSpacing(4);
    grid.addLayout(layout, row.line, row.column + 1, 1, row.span);
    return layout;
}

void add_line(const Controls& controls, QGridLayout& grid, const LineRow& row) {
    QLabel* label = row.label ? controls.label(row.label, row.caption) : nullptr;
    if (label)
        grid.addWidget(label, row.line, row.column);
    QHBoxLayout* shared = row.span > 0 ? add_shared_cell(grid, row) : nullptr;
    for (int i = 0; i < 4 && row.fields[i].text; ++i) {
        QLineEdit* field = make_field(controls, row.fields[i]);
        field->setAccessibleName(caption_of(row, i));
        if (label && i == 0)
            label->setBuddy(field);
        if (shared)
            shared->addWidget(field);
        else
            grid.addWidget(field, row.line, row.column + 1 + i);
    }
}

void add_notes(const Controls& controls, QGridLayout& grid) {
    auto* notes = new QPlainTextEdit;
    notes->setObjectName(text_row(&Form1::Text20).control);
    notes->setToolTip("Free text, for yourself. It is not kept.");
    notes->setTabChangesFocus(true);
    notes->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    const int line = notes->fontMetrics().lineSpacing();
    notes->setMinimumHeight(2 * line + 12);
    notes->setMaximumHeight(12 * line);
    controls.bindings.lines(notes, controls.state.form1.Text20);
    QLabel* label = controls.label("Label19", "Notes");
    label->setBuddy(notes);
    grid.addWidget(label, notes_line, 0, Qt::AlignTop);
    grid.addWidget(notes, notes_line, 1, 1, 3);
}

} // namespace

QString property_caption(const RecordControl& control) {
    if (const auto* text = std::get_if<std::string Form1::*>(&control))
        for (const LineRow& line : line_rows)
            for (int i = 0; i < 4; ++i)
                if (line.fields[i].text == *text)
                    return caption_of(line, i);
    return battles_row.caption;
}

QWidget* make_properties_panel(const Controls& controls) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    grid->setRowMinimumHeight(gap_line, 12);
    for (int column = 1; column <= static_cast<int>(std::size(heading_rows)); ++column)
        grid->setColumnMinimumWidth(column, panel->fontMetrics().horizontalAdvance("0000000000"));
    add_headings(controls, *grid);
    for (const LineRow& row : line_rows)
        add_line(controls, *grid, row);
    grid->addWidget(controls.box(battles_row), battles_line, 1, 1, 3);
    add_notes(controls, *grid);
    grid->setRowStretch(free_line, 1);
    return panel;
}

} // namespace veldrune
