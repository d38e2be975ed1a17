#include "ui/main_window.h"

#include "editor/commands.h"
#include "editor/open_image.h"
#include "editor/tile_chooser.h"
#include "ui/icons.h"
#include "ui/map_picture.h"
#include "ui/menus.h"
#include "ui/panels.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>

namespace veldrune {

namespace {

/// The name of the one local file that is dropped, or an empty text.
QString dropped_file(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls[0].toLocalFile() : QString();
}

/// Presses button once for every notch of the wheel.
void press_by_wheel(MapPicture* picture, QPushButton* zoom_in, QPushButton* zoom_out) {
    QObject::connect(picture, &MapPicture::zoomed, picture, [zoom_in, zoom_out](int notches) {
        QPushButton* button = notches > 0 ? zoom_in : zoom_out;
        for (int i = 0; i < std::abs(notches); ++i)
            button->click();
    });
}

} // namespace

MainWindow::MainWindow(EditorState& state, Windows& windows)
    : state_(state), windows_(windows), bindings_(windows.gate(*this)), controls_(state, bindings_),
      picture_(new MapPicture(state, bindings_)) {
    setObjectName("Form1");
    setWindowTitle("Veldrune Map Editor 1.00");
    setWindowIcon(window_icon());
    setAcceptDrops(true);
    build_menus(*this, menu_commands(), state, bindings_);
    build_panels();
}

void MainWindow::build_panels() {
    auto* panels = new QWidget;
    auto* layout = new QHBoxLayout(panels);
    layout->setSpacing(16);
    QWidget* picture = make_picture_panel(controls_, picture_);
    layout->addWidget(picture);
    layout->addWidget(make_tools_panel(controls_));
    layout->addWidget(make_properties_panel(controls_));
    layout->addStretch(1);
    press_by_wheel(picture_, panels->findChild<QPushButton*>(zoom_in_button.control),
                   panels->findChild<QPushButton*>(zoom_out_button.control));

    auto* area = new QScrollArea; // so that everything can be reached on the smallest screen
    area->setFrameStyle(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(panels);
    setCentralWidget(area);
    const QSize frame(16, 48); // of the window and its title, about
    resize(sizeHint().boundedTo(screen()->availableSize() - frame));
}

QSize MainWindow::sizeHint() const {
    const QWidget* panels = static_cast<QScrollArea*>(centralWidget())->widget();
    return panels->sizeHint() + QSize(0, menuBar()->sizeHint().height());
}

void MainWindow::end_stroke() {
    picture_->end_stroke();
}

void MainWindow::open_file(const std::string& path) {
    bindings_.edit([&] {
        const BusyCursor busy;
        open_image_file(state_, path);
    });
}

/// The tile chooser closes, too. The object window stays until the user closes it.
void MainWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!windows_.busy());
    bindings_.edit([this] { close_tile_chooser(state_); });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!windows_.busy() && !dropped_file(*event).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    open_file(dropped_file(*event).toStdString());
}

} // namespace veldrune
