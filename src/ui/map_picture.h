#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"
#include "ui/pixel_picture.h"

namespace veldrune {

/// The map picture. Hands the mouse to the editor in pixels of the picture; with the
/// focus, the arrow and page keys scroll it.
class MapPicture : public PixelPicture {
    Q_OBJECT
  public:
    MapPicture(EditorState& state, const Bindings& bindings);
    /// Ends a stroke as if the button had been released, without a click.
    void end_stroke();

  signals:
    /// The user scrolls by that many tiles, to the right or down.
    void scrolled(Qt::Orientation direction, int tiles);
    /// The wheel was turned by that many notches with Ctrl held, up is positive.
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
    QPoint wheel_rest_;       // turn of the wheel that has not made a whole tile yet
    int wheel_zoom_rest_ = 0; // the same for a notch with Ctrl
};

} // namespace veldrune
