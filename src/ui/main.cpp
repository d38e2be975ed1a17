#include "editor/editor_state.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <QApplication>

#include <memory>

int main(int argc, char** argv) {
    using namespace veldrune;
    // A stroke of the mouse must reach every tile that the pointer passes.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication application(argc, argv);

    const std::unique_ptr<FileLayer> disk = make_disk();
    QtDialogs dialogs;
    const auto state = std::make_unique<EditorState>(*disk, dialogs);
    Windows windows(*state, dialogs);
    windows.main_window().show();

    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 1)
        windows.main_window().open_file(arguments[1].toStdString());
    return QCoreApplication::exec();
}
