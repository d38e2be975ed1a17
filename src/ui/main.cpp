#include "editor/editor_state.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <QApplication>
#include <QFileInfo>
#include <QSettings>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

namespace {

// After a failed allocation the program's state may be inconsistent.
[[noreturn]] void end_without_memory() {
    std::fputs("veldrune: out of memory\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

int main(int argc, char** argv) {
    using namespace veldrune;
    std::set_new_handler(end_without_memory);
    // Painting needs every position of the mouse: events must not be merged.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication application(argc, argv);
    // Qt file dialogs save their last folder in the user settings. The program leaves no settings:
    // nothing can be written among the resources.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, ":/settings");

    const std::unique_ptr<FileLayer> disk = make_disk();
    QtDialogs dialogs;
    const auto state = std::make_unique<EditorState>(*disk, dialogs);
    Windows windows(*state, dialogs);
    windows.main_window().show();

    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 1)
        windows.main_window().open_file(QFileInfo(arguments[1]).absoluteFilePath().toStdString());
    return QCoreApplication::exec();
}
