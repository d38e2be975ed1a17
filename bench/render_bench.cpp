#include "render/literal_render.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <random>

namespace veldrune {

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
    PixelBuffer copy;
    FormationBitmaps bitmaps_copy;
};

// Noise: any character, any attribute, any cell. Map-like: whole formations share an attribute,
// one in five has priority, a third of the characters and half of layer 3's formations are empty,
// and layers are made of runs of the same few formations.
std::unique_ptr<Scene> make_scene(Content content) {
    auto scene = std::make_unique<Scene>();
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

// The lower bounds: copying the same bytes.
void picture_memcpy(benchmark::State& state) {
    const auto scene = make_scene(noise);
    for (auto _ : state) {
        std::memcpy(scene->copy.row(0), scene->picture.pixels().data(),
                    sizeof scene->picture.pixels());
        benchmark::DoNotOptimize(scene->copy);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(picture_memcpy);

void bitmaps_memcpy(benchmark::State& state) {
    const auto scene = make_scene(noise);
    for (auto _ : state) {
        std::memcpy(&scene->bitmaps_copy, &scene->bitmaps, sizeof scene->bitmaps);
        benchmark::DoNotOptimize(scene->bitmaps_copy);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(bitmaps_memcpy);

void set_up_view(const benchmark::State& state, MapView& view) {
    view.cells_across = static_cast<int>(state.range(1));
    view.stack.layer3_order = static_cast<int>(state.range(2));
}

void full_view(benchmark::State& state) {
    const auto scene = make_scene(static_cast<Content>(state.range(0)));
    set_up_view(state, scene->view);
    const int across = scene->view.cells_across;
    for (auto _ : state) {
        compose_cells(scene->bitmaps, scene->view, 0, 0, across, across, scene->picture);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(full_view)
    ->ArgNames({"noise", "across", "order"})
    ->ArgsProduct({{map_like, noise}, {32}, {0, 1, 2}})
    ->ArgsProduct({{map_like, noise}, {16, 8, 4}, {2}});

void full_view_literal(benchmark::State& state) {
    const auto scene = make_scene(static_cast<Content>(state.range(0)));
    set_up_view(state, scene->view);
    for (auto _ : state) {
        literal_compose(scene->bitmaps, scene->view, scene->picture);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(full_view_literal)
    ->ArgNames({"noise", "across", "order"})
    ->ArgsProduct({{map_like, noise}, {32}, {0, 1, 2}})
    ->ArgsProduct({{map_like, noise}, {16, 8, 4}, {2}});

// One step to the right, left, down or up.
void scroll_step(benchmark::State& state) {
    const auto scene = make_scene(noise);
    scene->view.cells_across = static_cast<int>(state.range(0));
    scene->view.h = scene->view.v = 8;
    const int last_h = 8 - static_cast<int>(state.range(1));
    const int last_v = 8 - static_cast<int>(state.range(2));
    for (auto _ : state) {
        scroll_picture(scene->bitmaps, scene->view, last_h, last_v, scene->picture);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(scroll_step)->ArgNames({"across", "dx", "dy"})->Apply([](auto* benchmark) {
    for (const int across : {32, 16, 8, 4})
        for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
            benchmark->Args({across, dx, dy});
});

void one_cell(benchmark::State& state) {
    const auto scene = make_scene(map_like);
    scene->view.cells_across = static_cast<int>(state.range(0));
    for (auto _ : state) {
        compose_one_cell(scene->bitmaps, scene->view, 1, 1, {1, 2, 3}, scene->picture);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(one_cell)->ArgName("across")->Arg(32)->Arg(16)->Arg(8)->Arg(4);

// Each vector unit that the processor has, to compare with none.
void one_cell_with(benchmark::State& state) {
    const auto scene = make_scene(noise);
    const auto unit = static_cast<VectorUnit>(state.range(0));
    Formation cell;
    for (auto _ : state) {
        compose_cell_with(unit, scene->bitmaps, scene->view.stack, {1, 2, 3}, cell);
        benchmark::DoNotOptimize(cell);
    }
}
BENCHMARK(one_cell_with)->ArgName("unit")->Apply([](auto* benchmark) {
    for (const VectorUnit unit : vector_units())
        benchmark->Arg(static_cast<int>(unit));
});

// Both layers and layer 3, by the library's decoders or by the literal ones.
template <auto& decode_layer, auto& decode_layer3>
void decode(benchmark::State& state) {
    const auto scene = make_scene(static_cast<Content>(state.range(0)));
    FormationBitmaps& bitmaps = scene->bitmaps;
    for (auto _ : state) {
        decode_layer(scene->characters, scene->graphics, scene->palette, bitmaps.layer2_high,
                     bitmaps.layer2_low);
        decode_layer(scene->characters, scene->graphics, scene->palette, bitmaps.layer1_high,
                     bitmaps.layer1_low);
        decode_layer3(scene->layer3_graphics, scene->palette, bitmaps.layer3_pixels);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(decode<decode_layer_tiles, decode_layer3_tiles>)
    ->Name("decode_formations")
    ->ArgName("noise")
    ->Arg(map_like)
    ->Arg(noise);
BENCHMARK(decode<literal_decode_layer_tiles, literal_decode_layer3_tiles>)
    ->Name("decode_formations_literal")
    ->ArgName("noise")
    ->Arg(map_like)
    ->Arg(noise);

} // namespace

} // namespace veldrune
