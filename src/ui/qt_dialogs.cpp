#include "ui/qt_dialogs.h"

#include "ui/override_cursor.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QStringList>

namespace veldrune {

namespace {

int ask(QWidget* window, QMessageBox::Icon icon, const std::string& text, const QString& title,
        QMessageBox::StandardButtons buttons) {
    const OverrideCursor cursor(Qt::ArrowCursor);
    QMessageBox box(icon, title, QString::fromStdString(text), buttons, window);
    box.setTextFormat(Qt::PlainText);
    if (buttons & QMessageBox::Cancel)
        box.setDefaultButton(QMessageBox::Cancel); // OK may destroy work
    return box.exec();
}

// Converts image_file_filter to Qt's syntax.
QString qt_file_filter(const char* filter) {
    const QStringList parts = QString::fromLatin1(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == "*.*" ? QString("*") : parts[i + 1];
        filters << parts[i].section('(', 0, 0) + " (" + pattern + ")";
    }
    return filters.join(";;");
}

std::optional<std::string> file_name(QFileDialog& dialog) {
    const OverrideCursor cursor(Qt::ArrowCursor);
    dialog.setNameFilter(qt_file_filter(image_file_filter));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().value(0).toStdString();
}

} // namespace

void QtDialogs::message(MessageKind kind, const std::string& text, const std::string& title) {
    before_box_();
    const auto icon = kind == MessageKind::note ? QMessageBox::Information : QMessageBox::Warning;
    ask(window_, icon, text, QString::fromStdString(title), QMessageBox::Ok);
}

bool QtDialogs::question(const std::string& text) {
    before_box_();
    return ask(window_, QMessageBox::Question, text, default_title,
               QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

std::optional<std::string> QtDialogs::open_file_name() {
    before_box_();
    QFileDialog dialog(window_, "Open");
    dialog.setFileMode(QFileDialog::ExistingFile);
    return file_name(dialog);
}

std::optional<std::string> QtDialogs::save_file_name() {
    before_box_();
    QFileDialog dialog(window_, "Save As");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const auto suffix_of = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(filter.contains("*.smc") ? "smc" : QString());
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, suffix_of);
    suffix_of("*.smc");
    return file_name(dialog);
}

} // namespace veldrune
