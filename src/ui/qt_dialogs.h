#pragma once

#include "forms/dialogs.h"
#include "ui/bindings.h"

#include <QObject>

#include <memory>

class QWidget;

namespace veldrune {

/// Message boxes and file dialogs, modal to the window whose edit opens them.
class QtDialogs : public Dialogs {
  public:
    /// From now on all message boxes, Qt's own included, show plain text. Needs the application.
    QtDialogs();
    /// before_box is called before a box or dialog opens, to update the windows.
    void attach(Action before_box) { before_box_ = std::move(before_box); }
    /// Message boxes are modal to window from now on.
    void set_parent_window(QWidget* window) { window_ = window; }
    /// A new operation begins: its warnings about numbers are counted from here on.
    void begin_operation();

    void message(MessageKind kind, const std::string& text, const std::string& title) override;
    bool question(const std::string& text) override;
    std::optional<std::string> open_file_name(const std::string& image) override;
    std::optional<std::string> save_file_name(const std::string& image) override;

  private:
    void show_number_warning(const std::string& text, const QString& title);

    int number_warnings_ = 0; // of the running edit
    bool keeps_back_numbers_ = false;
    QWidget* window_ = nullptr;
    Action before_box_ = [] {};
    std::unique_ptr<QObject> plain_boxes_;
};

} // namespace veldrune
