#include "demo/drawing/drawn_picture.h"

namespace veldrune::demo {

Picture DrawnPicture::draw() const {
    Picture result(static_cast<int>(lines.front().size()), static_cast<int>(lines.size()));
    result.fill(0, 0, result.width, result.height, [&](int x, int y) -> Pixel {
        const int number =
            pixel_number(lines[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
        return number == 0
                   ? Pixel{0}
                   : ink(rows[static_cast<std::size_t>((number - 1) / 15)], (number - 1) % 15 + 1);
    });
    return result;
}

} // namespace veldrune::demo
