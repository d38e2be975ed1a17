#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"
#include "ui/controls.h"

#include <QMainWindow>

#include <string>

namespace veldrune {

class MapPicture;
class StatusLine;
class EditGate;

/// The main window, Form1. It has no data of its own: every edit changes the state, and the window
/// shows the state.
class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow(EditorState& state, EditGate& gate);
    /// Updates the window from the state.
    void show_state() { bindings_.show(); }
    /// Ends a mouse stroke on the map picture, without a click.
    void end_stroke();
    /// Opens the image at path, as File > Open does with the chosen file. False if it can't be
    /// opened.
    bool open_file(const std::string& path);
    /// Chooses a map, as the map list does, and builds it.
    void build_map(int map);

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void build_panels();

    EditorState& state_;
    EditGate& gate_;
    Bindings bindings_;
    Controls controls_;
    MapPicture* picture_;
    StatusLine* status_;
};

} // namespace veldrune
