#pragma once

#include "editor/object_window.h"
#include "support/editor_fixture.h"
#include "support/window_driver.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QMessageBox>

#include <deque>
#include <functional>
#include <optional>

namespace veldrune::test {

/// Answers the boxes that come up while a test waits for them, and keeps what they said.
class BoxAnswers {
  public:
    Messages boxes;
    std::deque<bool> answers;                // OK or Cancel; OK beyond them
    std::optional<QString> file_name;        // cancels file dialogs without it
    std::function<void()> meanwhile = [] {}; // runs while the box is up, and may answer it

    BoxAnswers() {
        timer_.callOnTimeout([this] { answer(); });
        timer_.start(1);
    }

  private:
    void answer() {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == answered_)
            return;
        answered_ = modal;
        meanwhile();
        if (!modal->isVisible())
            boxes.push_back({"answered", modal->windowTitle().toStdString()});
        else if (auto* files = qobject_cast<QFileDialog*>(modal))
            answer_files(*files);
        else if (auto* box = qobject_cast<QMessageBox*>(modal))
            answer_box(*box);
        answered_ = nullptr;
    }
    void answer_files(QFileDialog& dialog) {
        boxes.push_back(
            {dialog.nameFilters().join(";;").toStdString(), dialog.windowTitle().toStdString()});
        if (!file_name)
            return dialog.reject();
        dialog.selectFile(*file_name);
        QMetaObject::invokeMethod(&dialog, "accept");
    }
    void answer_box(QMessageBox& box) {
        boxes.push_back({box.text().toStdString(), box.windowTitle().toStdString()});
        const bool accepted = take(answers).value_or(true);
        QTest::mouseClick(box.button(accepted ? QMessageBox::Ok : QMessageBox::Cancel),
                          Qt::LeftButton);
    }

    QTimer timer_;
    QWidget* answered_ = nullptr;
};

inline constexpr int town = demo::demo_map::town;

/// The windows over a disk in memory that holds the demo image twice, "a.smc" and "b.smc".
class WindowTest : public testing::Test {
  protected:
    MemoryDisk disk;
    QtDialogs dialogs;
    std::unique_ptr<EditorState> state = std::make_unique<EditorState>(disk, dialogs);
    Form1& form = state->form1;
    Windows windows{*state, dialogs};
    MainWindow& window = windows.main_window();
    WindowDriver user{window};
    BoxAnswers answers;

    void SetUp() override {
        disk["a.smc"] = disk["b.smc"] = demo_bytes();
        user.show();
    }
    void open_map(int map) {
        window.open_file("a.smc");
        user.choose_map(map);
        user.click("Command3");
    }
    /// Shows an object of the map.
    void show_object(ObjectKind kind, int index = 0) {
        open_object(*state, kind, index);
        user.click("Option4"); // any edit shows the state
    }
    std::uint8_t tile(int layer, int column, int row) {
        return state->map.layers[static_cast<std::size_t>(layer)].map.at(column, row);
    }
    /// Whether the Picture1 of a window shows the upper rows of that picture, pixel by pixel.
    template <int width, int height>
    static bool shows(const WindowDriver& works, const Picture<width, height>& picture,
                      int rows = height) {
        const QRect place(WindowDriver::on_picture({}), QSize(width, rows));
        QWidget& widget = works.find("Picture1");
        WindowDriver::leave(widget); // so that nothing lies over it
        const QImage shown = widget.grab(place).toImage();
        const auto* pixels = reinterpret_cast<const uchar*>(picture.pixels().data());
        return shown.convertToFormat(QImage::Format_RGB32) ==
               QImage(pixels, width, rows, QImage::Format_RGB32);
    }
    bool shows_picture() { return shows(user, state->display.picture); }
    /// What works the window of that form, which becomes the active one.
    static WindowDriver driver(const QString& form) {
        QWidget* found = visible_window(form);
        if (!found)
            throw std::runtime_error("no window " + form.toStdString());
        const WindowDriver works(*found);
        works.activate();
        return works;
    }
};

} // namespace veldrune::test
