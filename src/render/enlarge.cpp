#include "render/enlarge.h"

#include <algorithm>

namespace veldrune {

void enlarge_pixels(const Colour* source, int source_pitch, int width, int height, int scale,
                    Colour* target, int target_pitch) {
    for (int y = 0; y < height * scale; ++y)
        for (int x = 0; x < width; ++x)
            std::fill_n(target + target_pitch * y + scale * x, scale,
                        source[source_pitch * (y / scale) + x]);
}

} // namespace veldrune
