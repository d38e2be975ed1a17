#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"
#include "ui/pixel_picture.h"

namespace veldrune {

/// The map picture. Passes mouse events to the editor, in pixels of the picture. With the focus it
/// scrolls by the arrow and page keys.
class MapPicture : public PixelPicture {
    Q_OBJECT
  public:
    MapPicture(EditorState& state, const Bindings& bindings);
    /// Ends a stroke as if the button had been released, without a click.
    void end_stroke();

  signals:
    /// Request to scroll by that many tiles; positive is right or down.
    void scrolled(Qt::Orientation direction, int tiles);
    /// The wheel was turned by that many notches while Ctrl was held; up is positive.
    void zoomed(int notches);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void scroll_by_wheel(const QWheelEvent& event);

    EditorState& state_;
    const Bindings& bindings_;
    Qt::MouseButtons held_;   // buttons that were pressed on the picture
    QPoint wheel_rest_;       // turn of the wheel, less than one tile, not scrolled yet
    int wheel_zoom_rest_ = 0; // the same for zooming, less than one notch
};

} // namespace veldrune
