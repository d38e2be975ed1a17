#include "editor/editor_state.h"
#include "ui/command_line.h"
#include "ui/main_window.h"
#include "ui/memory.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <QApplication>
#include <QSettings>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

namespace {

constexpr int wrong_arguments = 2; // the exit code

// Opens and builds what the user has named.
void open_named(const veldrune::CommandLine& named, veldrune::MainWindow& window) {
    if (named.image.isEmpty())
        return;
    if (!window.open_file(named.image.toStdString()))
        std::fprintf(stderr, "veldrune: %s can't be opened for reading and writing\n",
                     qPrintable(named.image));
    else if (named.map)
        window.build_map(*named.map);
}

} // namespace

int main(int argc, char** argv) {
    using namespace veldrune;
    std::set_new_handler(end_without_memory);
    if (answer_command_line(argc, argv))
        return EXIT_SUCCESS;
    // Painting needs every position of the mouse: events must not be merged.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(VELDRUNE_APP_ID);
    const std::optional<CommandLine> named = read_command_line(QCoreApplication::arguments());
    if (!named)
        return wrong_arguments;
    // Qt file dialogs save their last folder in the user settings. The program leaves no settings:
    // nothing can be written among the resources.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, ":/settings");

    const std::unique_ptr<FileLayer> disk = make_disk();
    QtDialogs dialogs;
    const auto state = std::make_unique<EditorState>(*disk, dialogs);
    Windows windows(*state, dialogs);
    windows.main_window().show();

    open_named(*named, windows.main_window());
    return QCoreApplication::exec();
}
