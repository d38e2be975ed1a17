#include "ui/layer_palette.h"

#include "editor/tile_chooser.h"
#include "ui/controls.h"
#include "ui/screen_place.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QVBoxLayout>

namespace veldrune {

namespace {

constexpr int title_width = 180; // leaves room for the title in the window's frame
constexpr auto window_kind = Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                             Qt::WindowCloseButtonHint; // and no other button
constexpr const char* controls[layer_count] = {"Option1", "Option2", "Option3"};

} // namespace

LayerPalette::LayerPalette(EditorState& state, EditGate& gate, QWidget& parent)
    : SideWindow(state, gate, state.form2.visible, close_tile_chooser, &parent, window_kind) {
    setObjectName("Form2");
    setWindowTitle("Layer");
    setAttribute(Qt::WA_ShowWithoutActivating); // the keys choose a tile first
    auto* panel = new QWidget;
    panel->setMinimumWidth(title_width);
    auto* column = new QVBoxLayout(panel);
    auto* group = new QButtonGroup(panel);
    for (int layer = 0; layer < layer_count; ++layer) {
        auto* button = new QRadioButton(layer_captions[layer]);
        button->setObjectName(controls[layer]);
        button->setAccessibleName(QString("Tiles of layer %1").arg(layer + 1));
        button->setToolTip("Show the tiles of this layer, and paint into it.");
        bindings_.option(button, state.form2.layer, layer, bind_state(state, on_palette_layer));
        group->addButton(button);
        column->addWidget(button);
    }
    bindings_.tab_stop(group);
    setCentralWidget(panel);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

// The pressed button is its only tab stop: the next one is the chooser's.
bool LayerPalette::focusNextPrevChild(bool) {
    parentWidget()->activateWindow();
    return true;
}

// Appears at the chooser's upper left corner. It is placed before it shows: later on the system
// would take the place for one without the frame.
void LayerPalette::setVisible(bool visible) {
    if (visible && !isVisible())
        place_on_screen(*this, parentWidget()->frameGeometry().translated(-1, 1),
                        Qt::AlignLeft | Qt::AlignTop);
    SideWindow::setVisible(visible);
}

} // namespace veldrune
