#include "ui/main_window.h"

#include "editor/open_image.h"
#include "editor/select_map.h"
#include "editor/tile_chooser.h"
#include "ui/edit_gate.h"
#include "ui/icons.h"
#include "ui/map_picture.h"
#include "ui/menus.h"
#include "ui/panels.h"
#include "ui/screen_place.h"
#include "ui/status_line.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QStatusTipEvent>

namespace veldrune {

namespace {

// clang-format off
constexpr MenuRow menu_rows[] = {
    {0, "File",           "&File"},
    {1, "Open",           "&Open",                Command::open,                 {QKeySequence::Open, "Ctrl+O"},         "Opens another image. Nothing is written."},
    {1, "Save",           "&Save",                Command::save,                 save_keys,                              "Writes the map, or the world map, into the open image at once."},
    {1, "SaveAs",         "Save &As",             Command::save_as,              {QKeySequence::SaveAs, "Ctrl+Shift+S"}, "Copies the image, opens the copy and writes the map into it at once, without some of its properties."},
    {1, "menuspace1",     nullptr},
    {1, "Exit",           "E&xit",                {},                            {QKeySequence::Quit, "Ctrl+Q"},         "Ends the program without a question. What is not saved is lost."},
    {0, "Mode",           "&Mode 7"},
    {1, "Dawn",           world_row(World::dawn).name, Command::open_world_of_dawn,   {}, "Shows that world map. Nothing is written."},
    {1, "Dusk",           world_row(World::dusk).name, Command::open_world_of_dusk,   {}, "Shows that world map. Nothing is written."},
    {0, "Options",        "&Options"},
    {1, "Clear",          "Clear Map",            Command::clear_map,            {}, "Empties the map's three layers in memory. Nothing is written before a save."},
    {1, "Copy",           "Copy Tile Formations", Command::copy_properties,      {}, "Keeps a copy of the map's whole record, without changes that are only in the fields. Nothing is written."},
    {1, "Paste",          "Paste Tile Formation", Command::paste_properties,     {}, "Replaces the map's whole record in memory by the copy. Nothing is written before a save."},
    {0, "Mem",            "&Memory Managment"},
    {1, "Memory_Mng",     "Memory Manager",       Command::show_memory_manager},
    {1, "Expand",         "Expand Rom to 32mbit", Command::expand_rom,           {}, "Writes zeros from 300200 to 4001FF into the image at once."},
    {1, "Patches",        "Apply Patches"},
    {2, "Dialogue_Patch", "Dialogue Patch",       Command::apply_dialogue_patch, {}, "Writes the patch, and its table of dialogues from 300200 on, into the image at once."},
    {0, "About",          "&About"},
    {1, "About1",         "&About",               Command::show_about},
};
// clang-format on

// The path of the dropped local file; empty where it is not exactly one.
QString dropped_file(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 ? urls[0].toLocalFile() : QString();
}

// Takes a file as a copy only: after a move its source may delete it.
void accept_as_copy(QDropEvent& event, const EditGate& gate) {
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!gate.busy() && event.possibleActions() & Qt::CopyAction &&
                      !dropped_file(event).isEmpty());
}

} // namespace

MainWindow::MainWindow(EditorState& state, EditGate& gate)
    : state_(state), gate_(gate), bindings_(gate.gate(*this)), controls_{state, bindings_},
      picture_(new MapPicture(state, bindings_)), status_(new StatusLine(state)) {
    setObjectName("Form1");
    setWindowTitle("Veldrune Map Editor " VELDRUNE_VERSION);
    setWindowIcon(window_icon());
    setAcceptDrops(true);
    build_menus(*this, menu_rows, state, bindings_);
    build_panels();
}

void MainWindow::build_panels() {
    auto* panels = new QWidget;
    auto* layout = new QHBoxLayout(panels);
    layout->setSpacing(16);
    layout->addWidget(make_picture_panel(controls_, picture_, status_));
    layout->addWidget(make_tools_panel(controls_));
    layout->addWidget(make_properties_panel(controls_));
    layout->addStretch(1);
    setCentralWidget(new ScrolledPanel(panels));
    fit_to_screen(*this);
}

void MainWindow::end_stroke() {
    picture_->end_stroke();
}

bool MainWindow::open_file(const std::string& path) {
    bool opened = false;
    bindings_.edit_with_wait_cursor([&] { opened = open_image_file(state_, path); });
    return opened;
}

void MainWindow::build_map(int map) {
    bindings_.edit_with_wait_cursor([&] {
        state_.form1.Combo1 = map;
        select_map(state_);
        run_command(state_, Command::build_tileset);
    });
}

// The status line shows the hints of the menus' entries. New colours are shown by all windows, once
// every widget has them.
bool MainWindow::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange)
        QMetaObject::invokeMethod(
            this, [this] { bindings_.edit([] {}); }, Qt::QueuedConnection);
    if (event->type() != QEvent::StatusTip)
        return QMainWindow::event(event);
    status_->set_hint(static_cast<QStatusTipEvent*>(event)->tip());
    return true;
}

// Closes the tile chooser, too. The object window and the Event Editor stay open.
void MainWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!gate_.busy());
    bindings_.edit([this] { close_tile_chooser(state_); });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    accept_as_copy(*event, gate_);
}

void MainWindow::dragMoveEvent(QDragMoveEvent* event) {
    accept_as_copy(*event, gate_);
}

void MainWindow::dropEvent(QDropEvent* event) {
    accept_as_copy(*event, gate_);
    if (event->isAccepted())
        open_file(dropped_file(*event).toStdString());
}

} // namespace veldrune
