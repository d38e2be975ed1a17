#include "figures.h"
#include "render/literal_render.h"

#include <cstring>
#include <memory>
#include <random>

namespace veldrune::bench {

namespace {

using test::literal_compose;
using test::literal_decode_layer3_tiles;
using test::literal_decode_layer_tiles;

// What the bitmaps of a benchmark look like.
enum Content { map_like, noise };

// Everything that a picture is made from, and the picture.
struct Scene {
    FormationCharacters characters;
    CharacterGraphics graphics;
    Layer3Graphics layer3_graphics;
    Palette256 palette;
    FormationBitmaps bitmaps;
    std::array<LayerMap, layer_count> maps;
    MapView view;
    PixelBuffer picture;
    FormationBitmaps bitmaps_copy;
};

// Noise: any character, any attribute, any cell. Map-like: whole formations share an attribute,
// one in five has priority, a third of the characters and half of layer 3's formations are empty,
// and layers are made of runs of the same few formations.
std::shared_ptr<Scene> make_scene(Content content) {
    auto scene = std::make_shared<Scene>();
    std::mt19937 random(1);
    const auto below = [&](unsigned limit) { return static_cast<std::uint8_t>(random() % limit); };
    for (Colour& colour : scene->palette)
        colour = packed_colour(static_cast<std::uint16_t>(random()));
    for (std::size_t c = 0; c < 1024; ++c) {
        const bool empty = content == map_like && below(3) == 0;
        for (std::uint8_t& byte : scene->graphics[c])
            byte = empty ? 0 : below(256);
        scene->characters.tiles[c] = below(256);
        scene->characters.attributes[c] = below(256);
        if (content == map_like)
            scene->characters.attributes[c] =
                c % 4 == 0 ? static_cast<std::uint8_t>(below(32) | (below(5) == 0 ? 0x20 : 0))
                           : scene->characters.attributes[c - 1];
    }
    for (std::size_t i = 0; i < scene->layer3_graphics.size(); ++i)
        scene->layer3_graphics[i] = content == map_like && i / 64 % 2 ? 0 : below(256);
    for (LayerMap& map : scene->maps)
        for (std::size_t i = 0; i < map.cells.size(); ++i)
            map.cells[i] = content == map_like && i > 0 && below(4) ? map.cells[i - 1] : below(256);
    FormationBitmaps& bitmaps = scene->bitmaps;
    decode_layer_tiles(scene->characters, scene->graphics, scene->palette, bitmaps.layer1_high,
                       bitmaps.layer1_low);
    decode_layer_tiles(scene->characters, scene->graphics, scene->palette, bitmaps.layer2_high,
                       bitmaps.layer2_low);
    decode_layer3_tiles(scene->layer3_graphics, scene->palette, bitmaps.layer3_pixels);
    scene->view.stack = {{true, true, true}, 2, Layer3Blend::half};
    scene->view.widths = {128, 128, 128};
    scene->view.heights = {64, 64, 64};
    for (std::size_t layer = 0; layer < layer_count; ++layer)
        scene->view.maps[layer] = &scene->maps[layer];
    return scene;
}

// The step again and again on a scene that has been prepared once.
using Step = std::function<void(Scene&)>;
MakeWork in_scene(Content content, const Step& prepare, const Step& step) {
    return [=]() -> Work {
        const auto scene = make_scene(content);
        prepare(*scene);
        return [=] {
            step(*scene);
            use(*scene);
        };
    };
}

Step set_up_view(int across, int order = 2) {
    return [=](Scene& scene) {
        scene.view.cells_across = across;
        scene.view.stack.layer3_order = order;
    };
}

void draw_rows(Scene& scene, int rows) {
    compose_cells(scene.bitmaps, scene.view, 0, 0, scene.view.cells_across, rows, scene.picture);
}
void draw_view(Scene& scene) {
    draw_rows(scene, scene.view.cells_across);
}
void draw_literal_view(Scene& scene) {
    literal_compose(scene.bitmaps, scene.view, scene.picture);
}

// Both layers and layer 3, by the library's decoders or by the literal ones.
template <auto& decode_layer, auto& decode_layer3>
void decode(Scene& scene) {
    FormationBitmaps& bitmaps = scene.bitmaps;
    decode_layer(scene.characters, scene.graphics, scene.palette, bitmaps.layer2_high,
                 bitmaps.layer2_low);
    decode_layer(scene.characters, scene.graphics, scene.palette, bitmaps.layer1_high,
                 bitmaps.layer1_low);
    decode_layer3(scene.layer3_graphics, scene.palette, bitmaps.layer3_pixels);
}

void copy_bitmaps(Scene& scene) {
    std::memcpy(&scene.bitmaps_copy, &scene.bitmaps, sizeof scene.bitmaps);
}

const char* name_of(Content content) {
    return content == noise ? ", noise" : ", map-like";
}

void add_views(Figures& figures, Content content, double most_at_zoom_2) {
    for (const int across : {32, 16, 8, 4}) {
        const double most = across == 32 ? most_at_zoom_2 : 2.4;
        const std::string name =
            "draw " + std::to_string(across) + " by " + std::to_string(across) + " cells";
        const MakeWork work = in_scene(content, set_up_view(across), draw_view);
        figures.figures.push_back({name + name_of(content),
                                   {Goal::times_reference, most},
                                   work,
                                   "copying a picture",
                                   copying_a_picture()});
        figures.figures.push_back({name + name_of(content),
                                   {Goal::times_faster, 5},
                                   work,
                                   "pixel by pixel",
                                   in_scene(content, set_up_view(across), draw_literal_view)});
    }
}

void add_decoding(Figures& figures, Content content) {
    const MakeWork work =
        in_scene(content, set_up_view(32), decode<decode_layer_tiles, decode_layer3_tiles>);
    const std::string name = std::string("decode a tileset") + name_of(content);
    figures.figures.push_back({name,
                               {Goal::times_reference, 3.7},
                               work,
                               "copying its bitmaps",
                               in_scene(content, set_up_view(32), copy_bitmaps)});
    figures.figures.push_back(
        {name,
         {Goal::times_faster, 2},
         work,
         "pixel by pixel",
         in_scene(content, set_up_view(32),
                  decode<literal_decode_layer_tiles, literal_decode_layer3_tiles>)});
}

void add_scroll_step(Figures& figures, int across, int dx, int dy) {
    const Step prepare = [=](Scene& scene) {
        scene.view.cells_across = across;
        scene.view.h = scene.view.v = 8;
    };
    figures.figures.push_back({"scroll " + std::to_string(across) + " by " +
                                   std::to_string(across) + " cells " + (dx ? "sideways" : "up"),
                               {Goal::times_reference, 1.3},
                               in_scene(noise, prepare,
                                        [=](Scene& scene) {
                                            scroll_picture(scene.bitmaps, scene.view, 8 - dx,
                                                           8 - dy, scene.picture);
                                        }),
                               "copying a picture",
                               copying_a_picture()});
}

} // namespace

void add_render_figures(Figures& figures) {
    add_views(figures, map_like, 2.9);
    add_views(figures, noise, 3.9);
    for (const int across : {32, 16, 8, 4}) {
        add_scroll_step(figures, across, 1, 0);
        add_scroll_step(figures, across, 0, -1);
    }
    add_decoding(figures, map_like);
    add_decoding(figures, noise);
    figures.growths.push_back({"draw rows of 32 cells", {4, 8, 16, 32}, [](int rows) {
                                   return in_scene(map_like, set_up_view(32),
                                                   [=](Scene& scene) { draw_rows(scene, rows); })();
                               }});
}

} // namespace veldrune::bench
