#pragma once

#include <QLabel>
#include <QPainter>

namespace veldrune {

/// A label for plain text that is shortened to fit: it never makes its window wider.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(Qt::TextElideMode mode) : mode_(mode) {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        setMinimumHeight(fontMetrics().height());
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                         fontMetrics().elidedText(text(), mode_, width()));
    }

  private:
    Qt::TextElideMode mode_;
};

} // namespace veldrune
