#include "ui/memory.h"
#include "ui/pixel_view.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPoint>

#include <cmath>

namespace veldrune::test {

// A picture of side 8 drawn on a screen of each scaling, in a widget that lies somewhere.
TEST(PixelView, EveryPixelIsTheSameWholeSquareOnEveryScreen) {
    constexpr int side = 8;
    Picture<side, side> pixels;
    for (int i = 0; i < side * side; ++i)
        pixels.row(0)[i] = static_cast<Colour>(0x030507 * (i + 1));
    ScreenPicture picture(pixels);

    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 3.0})
        for (const int place : {0, 7, 9, 33}) {
            SCOPED_TRACE(testing::Message() << ratio << " at " << place);
            ASSERT_EQ(natural_side(ratio), static_cast<int>(ratio));
            const int square = static_cast<int>(ratio) * (1 + place % 3);
            const PixelView view =
                pixel_view(ratio, square, QPointF(place, place + 1), QPointF(2, 2));
            EXPECT_GE(view.origin.x(), 2.0 - 1e-3);
            EXPECT_LT(view.origin.x(), 2.0 + 1.0 / ratio);

            QImage screen(200, 200, QImage::Format_RGB32);
            screen.fill(Qt::white);
            screen.setDevicePixelRatio(ratio);
            QPainter painter(&screen);
            painter.translate(place, place + 1);
            picture.draw(painter, view);
            painter.end();

            const auto left = static_cast<int>(std::lround((place + view.origin.x()) * ratio));
            const auto top = static_cast<int>(std::lround((place + 1 + view.origin.y()) * ratio));
            for (int y = -square; y < (side + 1) * square; ++y)
                for (int x = -square; x < (side + 1) * square; ++x) {
                    const QPointF point((left + x) / ratio - place, (top + y) / ratio - place - 1);
                    const QPoint pixel = view.pixel_at(point);
                    ASSERT_EQ(pixel, QPoint(static_cast<int>(std::floor(double(x) / square)),
                                            static_cast<int>(std::floor(double(y) / square))));
                    const bool inside = QRect(0, 0, side, side).contains(pixel);
                    const auto index = static_cast<std::size_t>(pixel.y() * side + pixel.x());
                    ASSERT_EQ(screen.pixel(left + x, top + y),
                              inside ? 0xFF000000 | pixels[index] : 0xFFFFFFFF);
                }
        }
}

TEST(PixelView, APictureWithoutMemoryEndsTheProgram) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(make_image({1 << 30, 1 << 30}, QImage::Format_ARGB32), testing::ExitedWithCode(1),
                "veldrune: out of memory");
}

TEST(PixelView, ARefreshNamesTheRectangleThatHasChanged) {
    Picture<16, 12> pixels;
    ScreenPicture picture(pixels);
    EXPECT_EQ(picture.refresh(), QRect(0, 0, 16, 12)); // black is a colour, too
    pixels.row(0)[0] = 0;
    EXPECT_TRUE(picture.is_stale() && picture.refresh().isNull() && !picture.is_stale());
    pixels.row(3)[9] = pixels.row(7)[4] = 5;
    EXPECT_EQ(picture.refresh(), QRect(QPoint(4, 3), QPoint(9, 7)));
}

} // namespace veldrune::test
