#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"
#include "ui/cell_picture.h"

namespace veldrune {

/// The map picture. Passes the strokes of mouse and keys to the editor, in pixels of the picture.
/// With the focus it scrolls by the arrow and page keys; Ctrl and an arrow move the cell cursor.
class MapPicture : public CellPicture {
    Q_OBJECT
  public:
    MapPicture(EditorState& state, const Bindings& bindings);
    /// Ends a stroke as if the button had been released, without a click.
    void end_stroke() override;

  signals:
    /// Request to scroll by that many tiles; positive is right or down.
    void scrolled(Qt::Orientation direction, int tiles);

  protected:
    int cell_side() const override;
    QString text_at(QPoint pixel) const override;
    void press_at(Qt::MouseButton button, QPoint at) override;
    void move_to(QPoint at) override;
    void release_at(Qt::MouseButton button, QPoint at) override;
    void leave_picture(QPoint cells) override;
    std::vector<Mark> marks() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void scroll_by(QPoint tiles);
    void scroll_by_wheel(const QWheelEvent& event);
    void zoom_by_wheel(const QWheelEvent& event);

    EditorState& state_;
    const Bindings& bindings_;
    Qt::MouseButtons held_;   // buttons that were pressed on the picture
    QPoint wheel_rest_;       // turn of the wheel, less than one tile, not scrolled yet
    int wheel_zoom_rest_ = 0; // the same for zooming, less than one notch
};

} // namespace veldrune
