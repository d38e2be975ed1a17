#include "ui/qt_dialogs.h"

#include "ui/override_cursor.h"
#include "ui/screen_place.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace veldrune {

namespace {

// Texts of boxes hold the names of files, which may look like markup. Qt's file dialogs show boxes
// too.
class PlainBoxes : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Polish) // before the first layout
            if (auto* box = qobject_cast<QMessageBox*>(watched))
                box->setTextFormat(Qt::PlainText);
        return false;
    }
};

// tick_box, if any, is shown below the text and belongs to the box from then on.
int ask(QWidget* window, QMessageBox::Icon icon, const std::string& text, const QString& title,
        QMessageBox::StandardButtons buttons, QCheckBox* tick_box = nullptr) {
    const OverrideCursor cursor(Qt::ArrowCursor);
    QMessageBox box(icon, title, QString::fromStdString(text), buttons, window);
    if (tick_box)
        box.setCheckBox(tick_box);
    if (buttons & QMessageBox::Cancel)
        box.setDefaultButton(QMessageBox::Cancel); // OK may destroy work
    return box.exec();
}

constexpr const char* image_file_filter = "Super Nintendo Roms (*.smc);;All Files (*)";

// A name beside the image that no file has: for x.smc it is x-2.smc, or the next number.
QString free_name(const QFileInfo& image) {
    const QString suffix = image.suffix().isEmpty() ? "" : "." + image.suffix();
    for (int number = 2;; ++number) {
        const QString name = image.completeBaseName() + "-" + QString::number(number) + suffix;
        if (!image.dir().exists(name))
            return image.dir().filePath(name);
    }
}

std::optional<std::string> file_name(QFileDialog& dialog) {
    const OverrideCursor cursor(Qt::ArrowCursor);
    dialog.setNameFilter(image_file_filter);
    fit_to_screen(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedFiles().value(0).toStdString();
}

} // namespace

QtDialogs::QtDialogs() : plain_boxes_(std::make_unique<PlainBoxes>()) {
    QCoreApplication::instance()->installEventFilter(plain_boxes_.get());
}

void QtDialogs::begin_operation() {
    number_warnings_ = 0;
    keeps_back_numbers_ = false;
}

// From the third one on the user can keep back the rest of the operation's.
void QtDialogs::show_number_warning(const std::string& text, const QString& title) {
    constexpr int first_with_tick_box = 3;
    ++number_warnings_;
    QCheckBox* tick_box = nullptr;
    if (number_warnings_ >= first_with_tick_box) {
        tick_box = new QCheckBox("Show no more of these warnings this time");
        QObject::connect(tick_box, &QCheckBox::toggled, tick_box,
                         [this](bool ticked) { keeps_back_numbers_ = ticked; });
    }
    ask(window_, QMessageBox::Warning, text, title, QMessageBox::Ok, tick_box);
}

void QtDialogs::message(MessageKind kind, const std::string& text, const std::string& title) {
    if (kind == MessageKind::number && keeps_back_numbers_)
        return;
    before_box_();
    if (kind == MessageKind::number)
        return show_number_warning(text, QString::fromStdString(title));
    const auto icon = kind == MessageKind::note ? QMessageBox::Information : QMessageBox::Warning;
    ask(window_, icon, text, QString::fromStdString(title), QMessageBox::Ok);
}

bool QtDialogs::question(const std::string& text) {
    before_box_();
    return ask(window_, QMessageBox::Question, text, default_title,
               QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

std::optional<std::string> QtDialogs::open_file_name(const std::string& image) {
    before_box_();
    QFileDialog dialog(window_, "Open");
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (!image.empty())
        dialog.setDirectory(QFileInfo(QString::fromStdString(image)).absolutePath());
    return file_name(dialog);
}

std::optional<std::string> QtDialogs::save_file_name(const std::string& image) {
    before_box_();
    QFileDialog dialog(window_, "Save As");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    const auto suffix_of = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(filter.contains("*.smc") ? "smc" : QString());
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, suffix_of);
    suffix_of("*.smc");
    const QFileInfo name(free_name(QFileInfo(QString::fromStdString(image))));
    dialog.setDirectory(name.absolutePath());
    dialog.selectFile(name.fileName());
    return file_name(dialog);
}

} // namespace veldrune
