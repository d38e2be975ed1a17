#include "render/compose.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace veldrune {

namespace {

// The formations that are stacked in one cell. Those of a layer that isn't shown are empty.
struct CellLayers {
    const Formation& layer1_high;
    const Formation& layer1_low;
    const Formation& layer2_high;
    const Formation& layer2_low;
    const Formation& layer3;
};

alignas(64) constexpr Formation empty_formation{};

CellLayers cell_layers(const FormationBitmaps& bitmaps, const LayerStack& stack,
                       const CellTiles& tiles) {
    const auto shown = [&](std::size_t layer, const FormationBitmap& bitmap) -> const Formation& {
        return stack.shown[layer] ? bitmap[tiles[layer]] : empty_formation;
    };
    const bool has_layer3 = stack.blend != Layer3Blend::none;
    return {shown(0, bitmaps.layer1_high), shown(0, bitmaps.layer1_low),
            shown(1, bitmaps.layer2_high), shown(1, bitmaps.layer2_low),
            has_layer3 ? shown(2, bitmaps.layer3_pixels) : empty_formation};
}

// p with colour c over it.
constexpr Colour over(Colour c, Colour p) {
    return c ? c : p;
}

// The mean of each channel, rounded down, with no carry from one channel to the next.
constexpr Colour mean(Colour c, Colour d) {
    return (c & d) + (((c ^ d) & 0xFEFEFE) >> 1);
}

// p with layer 3's colour c over it.
template <Layer3Blend blend>
constexpr Colour blend_layer3(Colour c, Colour p) {
    return c ? (blend == Layer3Blend::half ? mean(c, p) : c) : p;
}

// Draws a cell into out, whose rows are stride pixels apart. It takes its layers by value, so that
// they need not be loaded again after each row written.
template <int layer3_order, Layer3Blend blend>
[[gnu::always_inline]] inline void stack_layers(const CellLayers cell, Colour* out,
                                                std::ptrdiff_t stride) {
    for (std::size_t y = 0; y < 16; ++y, out += stride) {
        std::array<Colour, 16> row;
        for (std::size_t x = 0; x < 16; ++x) {
            const std::size_t i = 16 * y + x;
            Colour p = 0;
            if (layer3_order == 0)
                p = blend_layer3<blend>(cell.layer3[i], p);
            p = over(cell.layer2_low[i], p);
            if (layer3_order == 1)
                p = blend_layer3<blend>(cell.layer3[i], p);
            p = over(cell.layer1_low[i], p);
            p = over(cell.layer2_high[i], p);
            p = over(cell.layer1_high[i], p);
            if (layer3_order == 2)
                p = blend_layer3<blend>(cell.layer3[i], p);
            row[x] = p;
        }
        std::copy(row.begin(), row.end(), out);
    }
}

[[gnu::always_inline]] inline void draw_layers(const CellLayers& cell, const LayerStack& stack,
                                               Colour* out, std::ptrdiff_t stride) {
    using enum Layer3Blend;
    const bool halved = stack.blend == half;
    switch (stack.layer3_order) {
    case 0:
        return halved ? stack_layers<0, half>(cell, out, stride)
                      : stack_layers<0, opaque>(cell, out, stride);
    case 1:
        return halved ? stack_layers<1, half>(cell, out, stride)
                      : stack_layers<1, opaque>(cell, out, stride);
    default:
        return halved ? stack_layers<2, half>(cell, out, stride)
                      : stack_layers<2, opaque>(cell, out, stride);
    }
}

// The same code, compiled for each vector unit.
void draw_plainly(const CellLayers& cell, const LayerStack& stack, Colour* out,
                  std::ptrdiff_t stride) {
    draw_layers(cell, stack, out, stride);
}
#if defined(__x86_64__)
[[gnu::target("avx2")]] void draw_with_avx2(const CellLayers& cell, const LayerStack& stack,
                                            Colour* out, std::ptrdiff_t stride) {
    draw_layers(cell, stack, out, stride);
}
[[gnu::target("avx512f")]] void draw_with_avx512(const CellLayers& cell, const LayerStack& stack,
                                                 Colour* out, std::ptrdiff_t stride) {
    draw_layers(cell, stack, out, stride);
}
#endif

struct VectorRow {
    VectorUnit unit;
    bool (*supported)();
    void (*draw)(const CellLayers& cell, const LayerStack& stack, Colour* out,
                 std::ptrdiff_t stride);
};
// clang-format off
constexpr VectorRow vector_rows[] = { // the widest last                                               one cell, as measured
    {VectorUnit::none,   [] { return true; },                                    draw_plainly},     // 131 ns
#if defined(__x86_64__)
    {VectorUnit::avx2,   [] { return __builtin_cpu_supports("avx2") != 0; },    draw_with_avx2},   //  63 ns
    {VectorUnit::avx512, [] { return __builtin_cpu_supports("avx512f") != 0; }, draw_with_avx512}, //  42 ns
#endif
};
// clang-format on

const VectorRow& widest_row() {
    const VectorRow* widest = vector_rows;
    for (const VectorRow& row : vector_rows)
        if (row.supported())
            widest = &row;
    return *widest;
}
const VectorRow& widest = widest_row();

// Draws a cell into the picture from out on, each of its pixels scale by scale.
template <int scale>
void draw_enlarged(const Formation& cell, Colour* out) {
    for (std::size_t y = 0; y < 16; ++y) {
        std::array<Colour, 16 * scale> row;
        for (std::size_t x = 0; x < 16; ++x)
            std::fill_n(&row[scale * x], scale, cell[16 * y + x]);
        for (int i = 0; i < scale; ++i, out += view_size)
            std::copy(row.begin(), row.end(), out);
    }
}

// Whether the picture shows a cell from pixel (x, y) on, each of its pixels scale by scale.
bool shows_cell(const PixelBuffer& picture, int x, int y, const Formation& cell, int scale) {
    for (int row = 0; row < 16 * scale; ++row)
        for (int column = 0; column < 16 * scale; ++column)
            if (picture.row(y + row)[x + column] !=
                cell[static_cast<std::size_t>(row / scale * 16 + column / scale)])
                return false;
    return true;
}

} // namespace

std::vector<VectorUnit> vector_units() {
    std::vector<VectorUnit> units;
    for (const VectorRow& row : vector_rows)
        if (row.supported())
            units.push_back(row.unit);
    return units;
}

void compose_cell(const FormationBitmaps& bitmaps, const LayerStack& stack, const CellTiles& tiles,
                  Formation& cell) {
    widest.draw(cell_layers(bitmaps, stack, tiles), stack, cell.data(), 16);
}

void compose_cell_with(VectorUnit unit, const FormationBitmaps& bitmaps, const LayerStack& stack,
                       const CellTiles& tiles, Formation& cell) {
    vector_rows[static_cast<int>(unit)].draw(cell_layers(bitmaps, stack, tiles), stack, cell.data(),
                                             16);
}

CellTiles tiles_at(const MapView& view, int x, int y) {
    const std::int64_t column = std::int64_t{view.h} + x;
    const std::int64_t row = std::int64_t{view.v} + y;
    CellTiles tiles{};
    for (std::size_t layer = 0; layer < tiles.size(); ++layer) {
        const int width = std::min(view.widths[layer], max_layer_width);
        const int height = std::min(view.heights[layer], max_layer_height);
        const bool missing = layer == 2 && view.stack.blend == Layer3Blend::none;
        if (!missing && column >= 0 && column < width && row >= 0 && row < height)
            tiles[layer] = view.maps[layer]->at(column, row);
    }
    return tiles;
}

void compose_cells(const FormationBitmaps& bitmaps, const MapView& view, int x0, int y0, int x1,
                   int y1, PixelBuffer& buffer) {
    for (int y = y0; y < y1; ++y)
        for (int x = x0; x < x1; ++x)
            compose_one_cell(bitmaps, view, x, y, tiles_at(view, x, y), buffer);
}

void compose_one_cell(const FormationBitmaps& bitmaps, const MapView& view, int x, int y,
                      const CellTiles& tiles, PixelBuffer& buffer) {
    if (x < 0 || x >= view.cells_across || y < 0 || y >= view.cells_across)
        return;
    Colour* out = buffer.row(y * view.tile_size()) + x * view.tile_size();
    if (view.cells_across == 32)
        return widest.draw(cell_layers(bitmaps, view.stack, tiles), view.stack, out, view_size);
    Formation cell;
    compose_cell(bitmaps, view.stack, tiles, cell);
    switch (view.cells_across) {
    case 16:
        return draw_enlarged<2>(cell, out);
    case 8:
        return draw_enlarged<4>(cell, out);
    case 4:
        return draw_enlarged<8>(cell, out);
    }
}

void repaint_cell(const FormationBitmaps& bitmaps, const MapView& view, int x, int y,
                  const CellTiles& tiles, PixelBuffer& buffer) {
    if (x < 0 || x >= view.cells_across || y < 0 || y >= view.cells_across)
        return;
    Formation cell;
    compose_cell(bitmaps, view.stack, tiles, cell);
    const int side = view.tile_size();
    if (!shows_cell(buffer, x * side, y * side, cell, side / 16))
        compose_one_cell(bitmaps, view, x, y, tiles, buffer);
}

bool scroll_picture(const FormationBitmaps& bitmaps, const MapView& view, int last_h, int last_v,
                    PixelBuffer& buffer) {
    const int across = view.cells_across;
    const std::int64_t dx = std::int64_t{view.h} - last_h;
    const std::int64_t dy = std::int64_t{view.v} - last_v;
    if ((dx != 0) == (dy != 0) || std::abs(dx + dy) >= across) {
        compose_cells(bitmaps, view, 0, 0, across, across, buffer);
        return true;
    }
    const int columns = static_cast<int>(dx);
    const int rows = static_cast<int>(dy);
    shift_picture(buffer, -columns * view.tile_size(), -rows * view.tile_size());
    compose_cells(bitmaps, view, columns > 0 ? across - columns : 0, rows > 0 ? across - rows : 0,
                  columns < 0 ? -columns : across, rows < 0 ? -rows : across, buffer);
    return false;
}

} // namespace veldrune
