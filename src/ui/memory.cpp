#include "ui/memory.h"

#include <cstdio>
#include <cstdlib>

namespace veldrune {

void end_without_memory() {
    std::fputs("veldrune: out of memory\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

QImage make_image(QSize size, QImage::Format format) {
    QImage image(size, format);
    if (image.isNull())
        end_without_memory();
    return image;
}

} // namespace veldrune
