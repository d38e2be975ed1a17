#pragma once

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <cstdio>
#include <stdexcept>

namespace veldrune::test {

/// Has Qt draw without a display, and leaves out what it says there about every window. To be
/// called before the application is made.
inline void work_without_display() {
    if (!qEnvironmentVariable("QT_QPA_PLATFORM").startsWith("offscreen"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        if (!text.startsWith("This plugin does not support"))
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
}

/// The window of a form, or null while it is hidden.
inline QWidget* visible_window(const QString& form) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == form && window->isVisible())
            return window;
    return nullptr;
}

/// Works a window as a user does, by mouse and keyboard. Controls are found by their name.
class WindowDriver {
  public:
    explicit WindowDriver(QWidget& window) : window_(window) {}

    template <typename T = QWidget>
    T& find(const QString& control) const {
        for (T* found : window_.findChildren<T*>(control)) {
            const auto* widget = qobject_cast<QWidget*>(found);
            if (!widget || widget->window() == &window_) // and not in a window before it
                return *found;
        }
        throw std::runtime_error("no control " + control.toStdString());
    }

    /// What a field, a label, a list, a bar or a row of tabs shows.
    std::string text(const QString& control) const {
        const QWidget& widget = find(control);
        for (const char* property : {"text", "currentText", "plainText", "value", "currentIndex"})
            if (const QVariant shown = widget.property(property); shown.isValid())
                return shown.toString().toStdString();
        throw std::runtime_error("no text in " + control.toStdString());
    }
    bool is_checked(const QString& control) const {
        return find(control).property("checked").toBool();
    }
    /// The controls that the Tab key goes through, from one until it comes back to it.
    std::string tab_order(const QString& first) const {
        QStringList order;
        find(first).setFocus();
        do {
            order << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (!find(first).hasFocus() && order.size() < 100);
        return order.join(' ').toStdString();
    }

    void show() const {
        window_.show();
        activate();
    }

    /// A platform without a screen leaves the window inactive when a menu, list or box has closed.
    void activate() const {
        window_.activateWindow();
        wait_until(
            [this] {
                return QApplication::activeWindow() == &window_ &&
                       QGuiApplication::focusWindow() == window_.windowHandle();
            },
            "the window does not become active");
    }

    /// A click on a button; on an option or a box at its indicator.
    void click(const QString& control) const {
        auto& button = find(control);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(10, button.height() / 2));
    }

    void type(const QString& control, const QString& text) const {
        auto& field = find(control);
        QTest::keySequence(&field, QKeySequence::SelectAll);
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }

    /// Chooses an entry of the menus, by the mouse.
    void choose(const QString& command) const {
        press_entry(find<QAction>(command));
        if (window_.isVisible())
            activate();
    }

    /// Types the map's number into the list and chooses it.
    void choose_map(int map) const {
        auto& list = find<QComboBox>("Combo1");
        QTest::keyClicks(&list, QString::number(map));
        QTest::keyClick(list.view(), Qt::Key_Return);
        activate();
    }

    /// A point of the map picture in its widget.
    static QPoint on_picture(QPoint pixel) { return pixel + QPoint(2, 2); }

    void click_picture(int x, int y, Qt::MouseButton button = Qt::LeftButton) const {
        QTest::mouseClick(&find("Picture1"), button, {}, on_picture({x, y}));
    }

    /// A stroke with the left button held, from the first point to the last.
    void drag(std::initializer_list<QPoint> points) const {
        auto& picture = find("Picture1");
        QTest::mousePress(&picture, Qt::LeftButton, {}, on_picture(*points.begin()));
        for (const QPoint point : points)
            move(picture, on_picture(point), Qt::LeftButton);
        QTest::mouseRelease(&picture, Qt::LeftButton, {}, on_picture(*std::prev(points.end())));
    }

    /// One event of the wheel over a widget; up and left are positive, 120 to a notch.
    void wheel(const QString& control, QPoint turn, Qt::KeyboardModifiers modifiers = {}) const {
        auto& widget = find(control);
        const QPointF middle = widget.rect().center();
        QWheelEvent event(middle, widget.mapToGlobal(middle), {}, turn, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }

    static void move(QWidget& widget, QPoint to, Qt::MouseButtons held) {
        QMouseEvent event(QEvent::MouseMove, to, widget.mapToGlobal(QPointF(to)), Qt::NoButton,
                          held, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    /// Takes the pointer and the focus away from a widget.
    static void leave(QWidget& widget) {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(&widget, &event);
        widget.clearFocus();
    }

  private:
    static void wait_until(const auto& holds, const char* otherwise) {
        if (!QTest::qWaitFor(holds, 5000))
            throw std::runtime_error(otherwise);
    }

    /// The menu that holds an entry, or null for a menu of the bar. The bar keeps a menu of
    /// its own, without a name, for what it once had no room for.
    QMenu* menu_of(QAction& entry) const {
        for (QMenu* menu : window_.findChildren<QMenu*>())
            if (!menu->objectName().isEmpty() && menu->actions().contains(&entry))
                return menu;
        return nullptr;
    }

    /// Presses an entry, after those of the menus that lead to it.
    void press_entry(QAction& entry) const {
        QMenu* menu = menu_of(entry);
        if (!menu)
            return press_in(find<QMenuBar>(""), entry);
        press_entry(*menu->menuAction());
        press_in(*menu, entry);
    }
    static void press_in(auto& menu, QAction& entry) {
        wait_until([&] { return menu.isVisible(); }, "a menu does not open");
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&entry).center());
    }

    QWidget& window_;
};

} // namespace veldrune::test
