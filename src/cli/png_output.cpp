#include "cli/png_output.h"

#include "cli/exit.h"

#include <csetjmp>
#include <new>
#include <png.h>

namespace veldrune::cli {

// libpng leaves a call that fails by a jump, which must not pass by anything with a destructor.
struct PngWriter::Png {
    png_structp writer = nullptr;
    png_infop info = nullptr;
    std::size_t width = 0;
    std::vector<png_byte> row;
    std::vector<png_byte> out;
};

namespace {

void append(png_structp writer, png_bytep bytes, std::size_t count) {
    auto& out = *static_cast<std::vector<png_byte>*>(png_get_io_ptr(writer));
    bool done = true;
    try {
        out.insert(out.end(), bytes, bytes + count);
    } catch (const std::bad_alloc&) {
        done = false;
    }
    if (!done)
        png_error(writer, "memory");
}

void put_rgb(std::span<const Colour> pixels, png_byte* out) {
    for (const Colour pixel : pixels) {
        out[0] = static_cast<png_byte>(pixel >> 16);
        out[1] = static_cast<png_byte>(pixel >> 8);
        out[2] = static_cast<png_byte>(pixel);
        out += 3;
    }
}

// Calls libpng. False where it failed.
template <typename Call>
bool succeeds(png_structp writer, const Call& call) {
    if (setjmp(png_jmpbuf(writer)) != 0)
        return false;
    call();
    return true;
}

void check(bool success) {
    if (!success)
        throw Failure("Making a PNG failed.");
}

} // namespace

PngWriter::PngWriter(int width, int height) : png_(std::make_unique<Png>()) {
    png_->width = static_cast<std::size_t>(width);
    png_->row.resize(3 * png_->width);
    png_->writer = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    check(png_->writer != nullptr);
    png_->info = png_create_info_struct(png_->writer);
    check(png_->info != nullptr && succeeds(png_->writer, [&] {
              png_set_write_fn(png_->writer, &png_->out, append, nullptr);
              png_set_filter(png_->writer, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
              png_set_compression_level(png_->writer, 1);
              png_set_compression_buffer_size(png_->writer, 1 << 16);
              png_set_IHDR(png_->writer, png_->info, static_cast<png_uint_32>(width),
                           static_cast<png_uint_32>(height), 8, PNG_COLOR_TYPE_RGB,
                           PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                           PNG_FILTER_TYPE_DEFAULT);
              png_write_info(png_->writer, png_->info);
          }));
}

PngWriter::~PngWriter() {
    png_destroy_write_struct(&png_->writer, &png_->info);
}

void PngWriter::add_rows(std::span<const Colour> pixels) {
    for (; !pixels.empty(); pixels = pixels.subspan(png_->width)) {
        put_rgb(pixels.first(png_->width), png_->row.data());
        check(succeeds(png_->writer, [&] { png_write_row(png_->writer, png_->row.data()); }));
    }
}

std::span<const std::uint8_t> PngWriter::finish() {
    check(succeeds(png_->writer, [&] { png_write_end(png_->writer, nullptr); }));
    return png_->out;
}

} // namespace veldrune::cli
