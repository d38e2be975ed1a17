#pragma once

#include "ui/pixel_picture.h"

#include <QImage>

#include <optional>
#include <vector>

namespace veldrune {

/// What is drawn over a cell.
enum class MarkKind { ghost, current, pointer, cursor };

struct Mark {
    MarkKind kind;
    QRect cell; // in picture pixels
    QImage ghost = {};
    bool operator==(const Mark&) const = default;
};

/// A picture of square cells. The cell under the pointer is outlined; while the widget has the
/// focus, so is the cell cursor, which keys move. Mouse and keys make the same strokes: Enter and
/// Space are the left button on the middle of the cursor's cell, Insert is the right one.
class CellPicture : public PixelPicture {
    Q_OBJECT
  public:
    using PixelPicture::PixelPicture;
    /// Shows what has changed in the state.
    void show_state();
    /// Ends a stroke of the keys as the release would, without a click.
    virtual void end_stroke() { key_ = 0; }

  signals:
    /// What there is to say about the cell where the user is, by pointer or cursor; empty where
    /// that is nowhere. It is the accessible description, too.
    void place_told(const QString& text);

  protected:
    virtual int cell_side() const = 0; // in picture pixels
    virtual QString text_at(QPoint pixel) const = 0;
    virtual void press_at(Qt::MouseButton button, QPoint at) = 0;
    virtual void move_to(QPoint) {}
    virtual void release_at(Qt::MouseButton button, QPoint at) = 0;
    /// The cursor is at an edge of the picture and was to move on by that many cells.
    virtual void leave_picture(QPoint) {}
    virtual std::vector<Mark> marks() const;

    /// The pixel where the user is, by whichever of pointer and cursor was moved last.
    std::optional<QPoint> place() const;
    QRect cell_at(QPoint pixel) const;
    /// Puts the cursor on the cell of a pixel of the picture.
    void set_cursor_cell(QPoint pixel);
    /// After a change of what place() says or of what marks() holds.
    void show_place();

    void draw_marks(QPainter& painter, const PixelView& view) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    QPoint cursor() const { return cell_at(cursor_).center(); }
    void move_cursor(QPoint cells);
    void update_marks();

    QPoint cursor_;                 // a pixel in the cursor's cell
    std::optional<QPoint> pointer_; // the pixel under the pointer, which may be outside
    bool by_keys_ = false;          // the cursor was moved after the pointer
    int key_ = 0;                   // the key that holds a stroke
    std::vector<Mark> shown_marks_;
};

} // namespace veldrune
