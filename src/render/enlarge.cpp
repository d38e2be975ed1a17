#include "render/enlarge.h"

namespace veldrune {

void enlarge_pixels(const Colour* source, int source_pitch, int width, int height, int scale,
                    Colour* target, int target_pitch) {
    for (int y = 0; y < height * scale; ++y)
        for (int x = 0; x < width * scale; ++x)
            target[target_pitch * y + x] = source[source_pitch * (y / scale) + x / scale];
}

} // namespace veldrune
