#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"
#include "ui/controls.h"

#include <QMainWindow>

#include <string>

namespace veldrune {

class MapPicture;
class QtDialogs;

/// The main window, Form1. It keeps nothing of its own: every edit of the user goes into the state,
/// and the window shows the state.
class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow(EditorState& state, QtDialogs& dialogs);
    /// Opens the image at path, as Open does once a name is chosen.
    void open_file(const std::string& path);
    /// The size at which everything shows without scrolling.
    QSize sizeHint() const override;

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void act(const Action& edit);
    void build_panels();

    EditorState& state_;
    Bindings bindings_;
    Controls controls_;
    MapPicture* picture_;
    bool acting_ = false; // an edit runs, maybe behind a message box
};

} // namespace veldrune
