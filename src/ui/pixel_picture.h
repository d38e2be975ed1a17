#pragma once

#include "ui/pixel_view.h"

#include <QWidget>

class QSinglePointEvent;

namespace veldrune {

/// A picture of packed colours in a border, which is highlighted while the widget has the focus.
/// For assistive technology it is a graphic.
class PixelPicture : public QWidget {
    Q_OBJECT
  public:
    explicit PixelPicture(ScreenPicture picture);
    /// Repaints what has changed of the picture.
    void update_if_changed();
    QSize sizeHint() const override;
    /// The size while every picture pixel has its natural side.
    QSize natural_size() const;
    /// Shows every picture pixel as large as fits into room: with a side of so many screen pixels
    /// that step divides it, at least step, and at most three times the natural one.
    void fit(QSize room, int step);
    /// Shows only the upper height rows of the picture.
    void show_height(int height);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// Draws what lies over the picture.
    virtual void draw_marks(QPainter&, const PixelView&) {}
    QSize picture_size() const { return {picture_.size().width(), height_}; }
    PixelView view() const;
    /// The picture pixel under the pointer, which may be outside the picture.
    QPoint pixel_under(const QSinglePointEvent& event) const;
    bool contains(QPoint pixel) const {
        return QRect(QPoint(0, 0), picture_size()).contains(pixel);
    }

  private:
    int natural() const { return natural_side(devicePixelRatioF()); }
    int side() const { return side_ ? side_ : natural(); }
    QSize size_at(int side) const;

    ScreenPicture picture_;
    int height_;   // rows that are shown
    int side_ = 0; // of a picture pixel in screen pixels; 0 is the natural one
};

} // namespace veldrune
