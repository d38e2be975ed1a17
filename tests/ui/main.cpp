#include <gtest/gtest.h>

#include <QApplication>

#include <cstdio>

namespace {

/// Qt's messages, without what it says on every window of a platform that has no screen.
void print_message(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support"))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(print_message);
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
