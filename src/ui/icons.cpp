#include "ui/icons.h"

#include "ui/memory.h"

#include <QPalette>
#include <QPixmap>

#include <array>
#include <string_view>

namespace veldrune {

namespace {

constexpr int side = 12;
using Drawing = std::array<std::string_view, side>;

// "x" is a pixel in the text colour, "o" one in the selection colour.
// clang-format off
// In the order of Icon, after none.
constexpr Drawing drawings[] = {
    { // zoom in
        "...xxxx.....",
        "..x....x....",
        ".x..oo..x...",
        "x...oo...x..",
        "x.oooooo.x..",
        "x.oooooo.x..",
        "x...oo...x..",
        ".x..oo..x...",
        "..x....xx...",
        "...xxxx.xxx.",
        ".........xxx",
        "..........xx"},
    { // zoom out
        "...xxxx.....",
        "..x....x....",
        ".x......x...",
        "x........x..",
        "x.oooooo.x..",
        "x.oooooo.x..",
        "x........x..",
        ".x......x...",
        "..x....xx...",
        "...xxxx.xxx.",
        ".........xxx",
        "..........xx"},
    { // draw
        "........xx..",
        ".......xoox.",
        "......xooox.",
        ".....xoooxx.",
        "....xooox...",
        "...xooox....",
        "..xooox.....",
        ".xooox......",
        ".x.ox.......",
        "x..x........",
        "xxx.........",
        "............"},
    { // get tile
        "........xxx.",
        ".......xxxxx",
        ".......xxxxx",
        ".....xxxxxx.",
        "......xxxx..",
        ".....x.xxx..",
        "....x.oxx...",
        "...x.oox....",
        "..x.oox.....",
        ".x.oox......",
        ".xxxx.......",
        "x..........."},
    { // objects
        "....xxxx....",
        "...xxxxxx...",
        "...x....x...",
        "...x.xx.x...",
        "...x....x...",
        "....xxxx....",
        "..xoooooox..",
        ".x.xoooox.x.",
        ".x.xoooox.x.",
        "...xoooox...",
        "...xx..xx...",
        "...xx..xx..."},
};
// clang-format on

} // namespace

QIcon tool_icon(Icon icon, const QPalette& colours) {
    if (icon == Icon::none)
        return {};
    const Drawing& drawing = drawings[static_cast<std::size_t>(icon) - 1];
    QImage image = make_image({side, side}, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const char pixel = drawing[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
            if (pixel != '.')
                image.setPixelColor(x, y,
                                    colours.color(QPalette::Active, pixel == 'x'
                                                                        ? QPalette::ButtonText
                                                                        : QPalette::Highlight));
        }
    QIcon drawn;
    for (const int factor : {1, 2, 4})
        drawn.addPixmap(QPixmap::fromImage(image.scaled(side * factor, side * factor)));
    return drawn;
}

QIcon window_icon() {
    QIcon icon;
    for (const int width : {16, 32, 48, 256})
        icon.addFile(QString(":/veldrune-%1.png").arg(width));
    return icon;
}

} // namespace veldrune
