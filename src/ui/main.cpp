#include "editor/editor_state.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <QApplication>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>

namespace {

/// Nothing of the program's state can be trusted to be whole after a failed allocation.
[[noreturn]] void end_without_memory() {
    std::fputs("veldrune: out of memory\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

} // namespace

int main(int argc, char** argv) {
    using namespace veldrune;
    std::set_new_handler(end_without_memory);
    // A stroke of the mouse must reach every tile that the pointer passes.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication application(argc, argv);
    // The file dialogs would keep their last folder in a file of settings: the program keeps none.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());

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
