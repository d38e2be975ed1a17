#include "ui/icons.h"

#include <QImage>
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
constexpr Drawing window_drawing = {
    "gggggggggggg",
    "ggrrrrgggggg",
    "grrrrrrggtgg",
    "rrrrrrrrtttg",
    "gwwwwwwgtttg",
    "gwbwwbwggnbg",
    "gwwwwwwggngg",
    "gwwnnwwggggg",
    "gggppgggbbbb",
    "ggppggggbwbb",
    "gpppppppbbbb",
    "gpppppppbbwb"};
// clang-format on

struct Paint {
    char letter;
    QColor colour;
};

QIcon drawn(const Drawing& drawing, std::initializer_list<Paint> paints) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            for (const Paint& paint : paints)
                if (drawing[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] ==
                    paint.letter)
                    image.setPixelColor(x, y, paint.colour);
    QIcon icon;
    for (const int factor : {1, 2, 4})
        icon.addPixmap(QPixmap::fromImage(image.scaled(side * factor, side * factor)));
    return icon;
}

} // namespace

QIcon tool_icon(Icon icon, const QPalette& colours) {
    if (icon == Icon::none)
        return {};
    return drawn(drawings[static_cast<std::size_t>(icon) - 1],
                 {{'x', colours.color(QPalette::Active, QPalette::ButtonText)},
                  {'o', colours.color(QPalette::Active, QPalette::Highlight)}});
}

QIcon window_icon() {
    return drawn(window_drawing, {{'g', QColor(0x58A848)},
                                  {'r', QColor(0xB84030)},
                                  {'t', QColor(0x286830)},
                                  {'w', QColor(0xF0E8D0)},
                                  {'n', QColor(0x704828)},
                                  {'p', QColor(0xD8B878)},
                                  {'b', QColor(0x4878C8)}});
}

} // namespace veldrune
