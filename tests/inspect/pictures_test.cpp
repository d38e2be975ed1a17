#include "editor/view.h"
#include "editor/world_map.h"
#include "editor/world_view.h"
#include "inspect/pictures.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::inspect {
namespace {

using test::Editor;
using Pixels = std::vector<Colour>;

Pixels painted(const MemoryImage& image, int picture, const PictureOptions& options,
               PictureSize& size) {
    const auto painter = std::make_unique<MapPainter>(image, options);
    size = painter->load(picture);
    Pixels pixels;
    for (int band = 0; band < painter->band_count(); ++band) {
        const auto rows = painter->draw_band(band);
        pixels.insert(pixels.end(), rows.begin(), rows.end());
    }
    return pixels;
}

void set_boxes(Form1& form, const PictureOptions& options) {
    for (const auto box : {&Form1::Check1, &Form1::Check2, &Form1::Check3, &Form1::Check4})
        form.*box = options.objects;
    for (std::size_t layer = 0; layer < options.layers.size(); ++layer)
        form.*layer_controls[layer].view = options.layers[layer];
    form.grid_on = options.grid;
}

// Puts the view's pixels into their place in the whole picture.
void put_view(const PixelBuffer& view, int left, int top, PictureSize size, Pixels& pixels) {
    for (int y = 0; y < std::min(view_size, size.height - top); ++y)
        std::copy_n(view.row(y), std::min(view_size, size.width - left),
                    pixels.begin() + (top + y) * size.width + left);
}

// The editor's pictures, step by step; beyond the ends its bars do not go.
Pixels scrolled(Editor& editor, bool world, PictureSize size) {
    Form1& form = editor.form;
    ScrollBar& columns = world ? form.HScroll2 : form.HScroll1;
    ScrollBar& rows = world ? form.VScroll2 : form.VScroll1;
    Pixels pixels(static_cast<std::size_t>(size.pixels()));
    const auto scroll = [&](ScrollBar& bar, int value, void (*scrolled_map)(EditorState&)) {
        bar.value = std::min(value, bar.maximum);
        (world ? refresh_world_view : scrolled_map)(editor.s);
    };
    const int step = world ? 32 : 8;
    for (int v = 0; v < size.height / 16; v += step)
        for (int h = 0; h < size.width / 16; h += step) {
            scroll(rows, v, on_v_scroll);
            scroll(columns, h, on_h_scroll);
            put_view(editor.s.display.picture, 16 * columns.value, 16 * rows.value, size, pixels);
        }
    return pixels;
}

TEST(Pictures, AreThoseOfTheEditorPiecedTogetherByScrolling) {
    using namespace demo::demo_map;
    MemoryImage image{"a.smc", test::demo_bytes()};
    test::Random random(15);
    std::vector<int> pictures{town,
                              cave,
                              castle_hall,
                              night_hall,
                              misty_town,
                              picture_of(World::dawn),
                              picture_of(World::dusk)};
    for (int i = 0; i < 3; ++i)
        pictures.push_back(2 + random.below(rom_layout::map_count - 2));
    for (const int picture : pictures) {
        const int boxes = random.below(32);
        PictureOptions options{.objects = (boxes & 1) != 0, .grid = (boxes & 2) != 0};
        for (std::size_t layer = 0; layer < 3; ++layer)
            options.layers[layer] = boxes >> 2 == 0 || (boxes >> (2 + layer) & 1) != 0;
        SCOPED_TRACE(testing::Message() << picture << ' ' << boxes);
        Editor editor;
        set_boxes(editor.form, options);
        const bool world = picture >= rom_layout::map_count;
        if (world) {
            (picture == picture_of(World::dawn) ? open_world_of_dawn
                                                : open_world_of_dusk)(editor.s);
        } else {
            editor.choose(picture);
            zoom_out(editor.s);
            build_tileset(editor.s);
        }
        PictureSize size;
        const Pixels pixels = painted(image, picture, options, size);
        ASSERT_EQ(std::ssize(pixels), size.pixels());
        EXPECT_TRUE(pixels == scrolled(editor, world, size));
    }
}

TEST(Pictures, DifferWhereSomethingCanBeSeen) {
    const MemoryImage before{"a.smc", test::demo_bytes()};
    MemoryImage after = before;
    for (std::size_t i = 0; i < 256; ++i)
        after.bytes[0x12EE00 + i] ^= 1; // the colours that the World of Dawn alone has
    after.bytes[static_cast<std::size_t>(0x2D9100 + 33 * 7 + 28)] ^= 1; // a song
    EXPECT_EQ(differing_pictures(before, after), std::vector{picture_of(World::dawn)});
}

} // namespace
} // namespace veldrune::inspect
