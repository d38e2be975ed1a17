#include "editor/select_map.h"
#include "ui/icons.h"
#include "ui/map_list.h"
#include "ui/map_picture.h"
#include "ui/override_cursor.h"
#include "ui/panels.h"
#include "ui/pixel_view.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>

namespace veldrune {

namespace {

/// A button that shows the picture of the current tile.
class TileButton : public QPushButton {
  public:
    explicit TileButton(const EditorState& state) : picture_(state.form1.Picture3) {}
    void follow() {
        if (picture_.is_stale())
            update();
    }
    QSize sizeHint() const override {
        const int side = pixel_view_room(*this, preview_side) + 12;
        return {side, side};
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPushButton::paintEvent(event);
        QPainter painter(this);
        const double margin = (width() - pixel_view_room(*this, preview_side)) / 2.0;
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

/// A heading over a column of widgets.
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
        button->setIcon(control_icon(row.control, button->palette()));
        group->addButton(button);
        layout->addWidget(button);
    }
    layout->addStretch();
    return layout;
}

QVBoxLayout* view_boxes(const Controls& controls) {
    QVBoxLayout* layout = section(heading(controls, "Label34", "View Layer"));
    for (const BoxRow& row : view_rows)
        layout->addWidget(controls.box(row));
    return layout;
}

/// Gives a ticked box the colour of its kind.
void colour_box(QCheckBox& box, const ObjectRow& row, bool ticked) {
    if (box.autoFillBackground() == ticked)
        return;
    QPalette colours;
    if (ticked) {
        colours.setColor(box.backgroundRole(), QColor(row.colour));
        colours.setColor(box.foregroundRole(), row.white_text ? Qt::white : Qt::black);
    }
    box.setPalette(colours);
    box.setAutoFillBackground(ticked);
}

QGridLayout* object_boxes(const Controls& controls) {
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(0, 1);
    for (const ObjectRow& row : object_rows) {
        QCheckBox* box = controls.box(row.box);
        const bool& ticked = controls.state.form1.*row.box.value;
        controls.bindings.rule([box, &row, &ticked] { colour_box(*box, row, ticked); });
        QLabel* count = controls.value_label(row.count_control, row.count);
        count->setMinimumWidth(count->fontMetrics().horizontalAdvance("0000"));
        count->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        count->setToolTip(QString("Number of records of this map: %1").arg(row.box.caption));
        const int line = grid->rowCount();
        grid->addWidget(box, line, 0);
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

    QLabel* place = controls.value_label("Label26", &Form1::Label26);
    place->setToolTip("Tile under the pointer: column and row. Hexadecimal.");
    auto* layout = new QVBoxLayout;
    layout->setSpacing(4);
    auto* top = new QHBoxLayout;
    top->addWidget(label, 1);
    top->addWidget(place);
    layout->addLayout(top);
    layout->addWidget(list);
    for (const ButtonRow& row : {tileset_button, refresh_button}) {
        auto* button = new QPushButton(row.caption);
        controls.button(button, row);
        layout->addWidget(button);
    }
    return layout;
}

QLineEdit* magnification(const Controls& controls) {
    auto* field = new QLineEdit;
    field->setObjectName("Text4");
    field->setReadOnly(true);
    field->setMaximumWidth(field->fontMetrics().horizontalAdvance("000000"));
    field->setToolTip(
        "0.25, 0.5, 1 or 2: the smaller, the closer. 2 shows the tiles in their own size.");
    controls.bindings.text(field, controls.state.form1.Text4);
    controls.bindings.enabled(field, controls.state.form1.map_fields_enabled);
    return field;
}

/// Presses button once for every notch of the wheel.
void press_by_wheel(MapPicture* picture, QPushButton* zoom_in, QPushButton* zoom_out) {
    QObject::connect(picture, &MapPicture::zoomed, picture, [zoom_in, zoom_out](int notches) {
        QPushButton* button = notches > 0 ? zoom_in : zoom_out;
        for (int i = 0; i < std::abs(notches); ++i)
            button->click();
    });
}

/// The current tile at the left, the zoom at its right.
QGridLayout* tile_and_zoom(const Controls& controls, MapPicture* picture) {
    auto* grid = new QGridLayout;
    auto* tile = new TileButton(controls.state);
    tile->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    controls.button(tile, chooser_button);
    controls.bindings.rule([tile] { tile->follow(); });
    QLabel* label = heading(controls, "Label14", chooser_button.caption);
    label->setBuddy(tile);
    grid->addWidget(label, 0, 0);
    grid->addWidget(tile, 1, 0, 2, 1);

    const auto zoom_button = [&](const ButtonRow& row, int line) {
        auto* button = new QPushButton(row.caption);
        button->setIcon(control_icon(row.command->control, button->palette()));
        controls.button(button, row);
        grid->addWidget(button, line, 1);
        return button;
    };
    QPushButton* zoom_in = zoom_button(zoom_in_button, 1);
    press_by_wheel(picture, zoom_in, zoom_button(zoom_out_button, 2));

    QLineEdit* field = magnification(controls);
    QLabel* caption = controls.label("Label1", "map magnification");
    caption->setBuddy(field);
    grid->addWidget(caption, 3, 0);
    grid->addWidget(field, 3, 1);
    return grid;
}

QFrame* line() {
    auto* made = new QFrame;
    made->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    return made;
}

} // namespace

QWidget* make_tools_panel(const Controls& controls, MapPicture* picture) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(map_choice(controls));
    column->addWidget(line());
    column->addLayout(tile_and_zoom(controls, picture));
    column->addWidget(line());
    auto* choices = new QGridLayout;
    choices->addLayout(options(controls, heading(controls, "Label9", "Tools"), tool_rows), 0, 0);
    choices->addLayout(options(controls, new QLabel, grid_rows), 0, 1);
    choices->addLayout(options(controls, heading(controls, "Label13", " Edit Layer"), layer_rows),
                       1, 0);
    choices->addLayout(view_boxes(controls), 1, 1);
    column->addLayout(choices);
    column->addWidget(line());
    column->addLayout(object_boxes(controls));
    column->addStretch();
    return panel;
}

} // namespace veldrune
