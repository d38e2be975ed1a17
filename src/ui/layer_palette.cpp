#include "ui/layer_palette.h"

#include "editor/tile_chooser.h"
#include "ui/controls.h"

#include <QRadioButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace veldrune {

namespace {

constexpr int title_width = 140; // leaves room for the title in the window's frame
constexpr const char* controls[layer_count] = {"Option1", "Option2", "Option3"};

} // namespace

LayerPalette::LayerPalette(EditorState& state, EditGate& gate, QWidget& parent)
    : SideWindow(state, gate, state.form2.visible, close_tile_chooser, &parent, Qt::Tool) {
    setObjectName("Form2");
    setWindowTitle("Layer");
    auto* panel = new QWidget;
    panel->setMinimumWidth(title_width);
    auto* column = new QVBoxLayout(panel);
    for (int layer = 0; layer < layer_count; ++layer) {
        auto* button = new QRadioButton(layer_captions[layer]);
        button->setObjectName(controls[layer]);
        button->setAccessibleName(QString("Tiles of layer %1").arg(layer + 1));
        button->setToolTip("Show the tiles of this layer, and paint into it.");
        bindings_.option(button, state.form2.layer, layer, bind_state(state, on_palette_layer));
        column->addWidget(button);
    }
    setCentralWidget(panel);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

// Appears at the chooser's upper left corner.
void LayerPalette::showEvent(QShowEvent* event) {
    const QRect chooser = parentWidget()->frameGeometry();
    if (!event->spontaneous()) // no move when the user restores the minimised window
        move(chooser.left() - 1, chooser.top() + 1);
    SideWindow::showEvent(event);
}

} // namespace veldrune
