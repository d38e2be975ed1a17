#include "editor/picture_status.h"
#include "editor/select_map.h"
#include "editor/view.h"
#include "ui/emphasis.h"
#include "ui/map_list.h"
#include "ui/override_cursor.h"
#include "ui/panels.h"
#include "ui/pixel_view.h"
#include "ui/tips.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>

namespace veldrune {

namespace {

// The box of a kind of object, which has the colour of the kind while it is ticked.
struct ObjectRow {
    ObjectKind kind;
    const char* control;
    const char* caption;
    bool map_only;
    const char* tip;
};

// clang-format off
constexpr OptionRow<Tool> tool_rows[] = {
    {"Option10", "Draw",        &Form1::tool, Tool::draw,     false, nullptr, "The left button paints the current tile into the edit layer. The right button picks.", Icon::draw},
    {"Option11", "Get Tile",    &Form1::tool, Tool::get_tile, false, nullptr, "A click takes the tile under the pointer from the edit layer.", Icon::get_tile},
    {"Option12", "NPC's Ect...", &Form1::tool, Tool::objects, false, nullptr, "A click opens the object under the pointer.", Icon::objects},
};
constexpr OptionRow<int> layer_rows[] = {
    {"Option1", layer_captions[0], &Form1::edit_layer, 0, true, nullptr, "Paint into and pick from layer 1.", Icon::none, "Edit layer 1"},
    {"Option2", layer_captions[1], &Form1::edit_layer, 1, true, nullptr, "Paint into and pick from layer 2.", Icon::none, "Edit layer 2"},
    {"Option3", layer_captions[2], &Form1::edit_layer, 2, true, nullptr, "Paint into and pick from layer 3.", Icon::none, "Edit layer 3"},
};
constexpr OptionRow<bool> grid_rows[] = {
    {"Option4", "Grid On",  &Form1::grid_on, true,  false, on_grid_change, "Show white lines between the tiles."},
    {"Option5", "Grid Off", &Form1::grid_on, false, false, on_grid_change, "Show the map without lines."},
};
constexpr BoxRow view_rows[] = {
    {"Check5", layer_captions[0], layer_controls[0].view, true, on_view_box_change, "Show layer 1, from the next redrawing on.", "View layer 1"},
    {"Check6", layer_captions[1], layer_controls[1].view, true, on_view_box_change, "Show layer 2, from the next redrawing on.", "View layer 2"},
    {"Check7", layer_captions[2], layer_controls[2].view, true, on_view_box_change, "Show layer 3, from the next redrawing on.", "View layer 3"},
};
constexpr ObjectRow object_rows[] = {
    {ObjectKind::npc,           "Check1", "NPC's",    true,  "Show and select NPCs, from the next redrawing on."},
    {ObjectKind::chest,         "Check2", "Treasure", true,  "Show and select treasure chests, from the next redrawing on."},
    {ObjectKind::event_trigger, "Check3", "Events",   false, "Show and select event triggers, from the next redrawing on."},
    {ObjectKind::entrance,      "Check4", "Entrance", false, "Show and select entrances, from the next redrawing on."},
};
constexpr ButtonRow build_rows[] = {
    {"Command3", "Build Tileset",     Command::build_tileset, true, "Decode the tiles that the fields name, and draw the map where it stands."},
    {"Command2", "Build/Refresh Map", Command::refresh_map,   true, "Draw the map from its top left corner with the tiles as they are."},
};
constexpr ButtonRow chooser_row  = {"Command1", "Choose Tile", Command::open_tile_chooser, false, "The current tile. Press to choose another one."};
constexpr ButtonRow zoom_in_row  = {"Command4", "Zoom In",     Command::zoom_in,  true, "Show the map twice as large. Ctrl and wheel over the map.", Icon::zoom_in};
constexpr ButtonRow zoom_out_row = {"Command5", "Zoom Out",    Command::zoom_out, true, "Show the map half as large. Ctrl and wheel over the map.", Icon::zoom_out};
// clang-format on

// A button that shows the picture of the current tile.
class TileButton : public QPushButton {
  public:
    explicit TileButton(const EditorState& state) : picture_(state.form1.Picture3) {}
    void update_if_changed() {
        if (picture_.is_stale())
            update();
    }
    QSize sizeHint() const override {
        const int side = pixel_view_extent(*this, preview_side) + 12;
        return {side, side};
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPushButton::paintEvent(event);
        QPainter painter(this);
        const double margin = (width() - pixel_view_extent(*this, preview_side)) / 2.0;
        picture_.draw(painter, pixel_view(*this, QPointF(margin, margin)));
    }

  private:
    ScreenPicture picture_;
};

QLabel* heading(const Controls& controls, const char* control, const char* caption) {
    QLabel* label = controls.label(control, caption);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

// A heading over a column of widgets.
QVBoxLayout* section(QLabel* title) {
    auto* layout = new QVBoxLayout;
    layout->setSpacing(4);
    layout->addWidget(title);
    return layout;
}

template <typename T, std::size_t N>
QVBoxLayout* options(const Controls& controls, QLabel* title, const OptionRow<T> (&rows)[N]) {
    QVBoxLayout* layout = section(title);
    auto* group = new QButtonGroup(layout);
    for (const OptionRow<T>& row : rows) {
        QRadioButton* button = controls.option(row);
        group->addButton(button);
        layout->addWidget(button);
    }
    controls.bindings.tab_stop(group);
    return layout;
}

QVBoxLayout* view_boxes(const Controls& controls) {
    QVBoxLayout* layout = section(heading(controls, "Label34", "View Layer"));
    for (const BoxRow& row : view_rows)
        layout->addWidget(controls.box(row));
    return layout;
}

// Gives a ticked box the colour of its kind, and a text colour with enough contrast.
void colour_box(QCheckBox& box, Colour colour, bool ticked) {
    constexpr int dark = 64;
    if (box.autoFillBackground() == ticked)
        return;
    QPalette colours;
    if (ticked) {
        colours.setColor(box.backgroundRole(), QColor(colour));
        colours.setColor(box.foregroundRole(), qGray(colour) < dark ? Qt::white : Qt::black);
    }
    box.setPalette(colours);
    box.setAutoFillBackground(ticked);
}

QCheckBox* object_box(const Controls& controls, const ObjectRow& row) {
    const ObjectKindRow& kind = object_kind_row(row.kind);
    QCheckBox* box =
        controls.box({row.control, row.caption, kind.shown, row.map_only, nullptr, row.tip});
    const bool& ticked = controls.state.form1.*kind.shown;
    controls.bindings.on_show([box, &kind, &ticked] { colour_box(*box, kind.colour, ticked); });
    return box;
}

QGridLayout* object_boxes(const Controls& controls) {
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(0, 1);
    for (const ObjectRow& row : object_rows) {
        QLabel* count = controls.value_label(object_kind_row(row.kind).count);
        count->setMinimumWidth(count->fontMetrics().horizontalAdvance("0000"));
        count->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        count->setToolTip(QString("Number of records of this map: %1").arg(row.caption));
        const int line = grid->rowCount();
        grid->addWidget(object_box(controls, row), line, 0);
        grid->addWidget(count, line, 1);
    }
    return grid;
}

QVBoxLayout* map_choice(const Controls& controls) {
    auto* list = new MapList;
    list->setObjectName("Combo1");
    list->setToolTip("The map to work on. Type a number to find a map.");
    EditorState& state = controls.state;
    controls.bindings.list(list, state.form1.Combo1, [&state] {
        const OverrideCursor busy(Qt::WaitCursor);
        select_map(state);
    });
    controls.bindings.enabled(list, state.form1.Combo1_enabled);
    QLabel* label = heading(controls, "Label8", "Select Map");
    label->setBuddy(list);

    QLabel* place = controls.value_label(&Form1::Label26);
    place->setToolTip(
        number_tip("Tile under the pointer: column and row.", text_row(&Form1::Label26).form));
    auto* layout = new QVBoxLayout;
    layout->setSpacing(4);
    auto* top = new QHBoxLayout;
    top->addWidget(label, 1);
    top->addWidget(place);
    layout->addLayout(top);
    layout->addWidget(list);
    for (const ButtonRow& row : build_rows) {
        auto* button = new QPushButton(row.caption);
        controls.button(button, row);
        layout->addWidget(button);
        controls.bindings.on_show([button, &state, command = row.command] {
            emphasise(button, picture_status(state).renew == command,
                      "The picture is not up to date. This renews it.");
        });
    }
    return layout;
}

QLineEdit* magnification(const Controls& controls) {
    QLineEdit* field = controls.field(
        &Form1::Text4,
        "0.25, 0.5, 1 or 2: the smaller, the closer. 2 shows the tiles in their own size.", true);
    field->setReadOnly(true);
    field->setMaximumWidth(field->fontMetrics().horizontalAdvance("000000"));
    return field;
}

// The current tile on the left, the zoom buttons on the right.
QGridLayout* tile_and_zoom(const Controls& controls) {
    auto* grid = new QGridLayout;
    auto* tile = new TileButton(controls.state);
    tile->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    controls.button(tile, chooser_row);
    controls.bindings.on_show([tile] { tile->update_if_changed(); });
    QLabel* label = heading(controls, "Label14", chooser_row.caption);
    label->setBuddy(tile);
    grid->addWidget(label, 0, 0);
    grid->addWidget(tile, 1, 0, 2, 1);

    const auto zoom_button = [&](const ButtonRow& row, int line) {
        auto* button = new QPushButton(row.caption);
        controls.button(button, row);
        grid->addWidget(button, line, 1);
    };
    zoom_button(zoom_in_row, 1);
    zoom_button(zoom_out_row, 2);

    QLineEdit* field = magnification(controls);
    QLabel* caption = controls.label("Label1", "map magnification");
    caption->setBuddy(field);
    grid->addWidget(caption, 3, 0);
    grid->addWidget(field, 3, 1);
    return grid;
}

QFrame* separator() {
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    return line;
}

} // namespace

QWidget* make_tools_panel(const Controls& controls) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(map_choice(controls));
    column->addWidget(separator());
    column->addLayout(tile_and_zoom(controls));
    column->addWidget(separator());
    auto* choices = new QGridLayout;
    const auto add = [choices](QLayout* choice, int row, int place) {
        choices->addLayout(choice, row, place, Qt::AlignTop);
    };
    add(options(controls, heading(controls, "Label9", "Tools"), tool_rows), 0, 0);
    add(options(controls, new QLabel, grid_rows), 0, 1);
    add(options(controls, heading(controls, "Label13", " Edit Layer"), layer_rows), 1, 0);
    add(view_boxes(controls), 1, 1);
    column->addLayout(choices);
    column->addWidget(separator());
    column->addLayout(object_boxes(controls));
    column->addStretch();
    return panel;
}

} // namespace veldrune
