#pragma once

#include "map/layer_map.h"
#include "render/formations.h"
#include "render/pixel_buffer.h"

#include <array>
#include <vector>

namespace veldrune {

/// What layer 3 does to the pixels below it.
enum class Layer3Blend {
    none,   // the map has no layer 3
    half,   // each channel is averaged with the pixel below
    opaque, // it covers the pixel below
};

/// The blend of the layer 3 graphics with this number, one of which is opaque.
constexpr Layer3Blend layer3_blend(bool has_layer3, int graphics) {
    constexpr int opaque_graphics = 6;
    if (!has_layer3)
        return Layer3Blend::none;
    return graphics == opaque_graphics ? Layer3Blend::opaque : Layer3Blend::half;
}

/// What the stacking of a cell depends on besides the formation numbers.
struct LayerStack {
    std::array<bool, layer_count> shown{}; // layers 1 to 3
    int layer3_order = 0; // 0 at the bottom, 1 above layer 2's low pixels, 2 on top
    Layer3Blend blend = Layer3Blend::none;
    bool operator==(const LayerStack&) const = default;
};

/// The formation numbers of one cell in layers 1 to 3.
using CellTiles = std::array<std::uint8_t, layer_count>;

/// The layers of a map and the part of them that is in view.
struct MapView {
    LayerStack stack;
    std::array<const LayerMap*, layer_count> maps{};
    std::array<int, layer_count> widths{}; // tiles; any value, nothing lies beyond 128 by 64
    std::array<int, layer_count> heights{};
    int h = 0; // map column and row of the view's top left cell, at least 0
    int v = 0;
    int cells_across = 16; // 4, 8, 16 or 32
    int tile_size() const { return view_size / cells_across; }
};

/// The chosen map's formations as pixels, and the pictures that are drawn from them.
struct MapDisplay {
    FormationBitmaps bitmaps;
    PixelBuffer picture;
    int last_h = 0; // h and v of the latest composition or scroll
    int last_v = 0;
    PixelBuffer tile_sheet; // Picture1 of the tile chooser
};

/// Stacks one cell from the formations: layer 3 where layer3_order puts it, layer 2 low, layer 1
/// low, layer 2 high, layer 1 high. A pixel that nothing covers is 0.
void compose_cell(const FormationBitmaps& bitmaps, const LayerStack& stack, const CellTiles& tiles,
                  Formation& cell);

/// Vector units that a processor may have. Cells are composed with the widest that this one has.
enum class VectorUnit { none, avx2, avx512 };
/// The units that the processor has, the widest last.
std::vector<VectorUnit> vector_units();
/// The same as compose_cell, with a given unit that the processor has.
void compose_cell_with(VectorUnit unit, const FormationBitmaps& bitmaps, const LayerStack& stack,
                       const CellTiles& tiles, Formation& cell);

/// The formation numbers of view cell (x, y): 0 outside a layer, and for a missing layer 3.
CellTiles tiles_at(const MapView& view, int x, int y);

/// Draws the cells of columns x0 to x1 - 1 and rows y0 to y1 - 1 of the view. A cell outside the
/// view is left out, here and in compose_one_cell.
void compose_cells(const FormationBitmaps& bitmaps, const MapView& view, int x0, int y0, int x1,
                   int y1, PixelBuffer& buffer);

/// Draws view cell (x, y) from the formations given, whatever the layers hold there.
void compose_one_cell(const FormationBitmaps& bitmaps, const MapView& view, int x, int y,
                      const CellTiles& tiles, PixelBuffer& buffer);

/// The same, but a picture that shows the cell already is not touched.
void repaint_cell(const FormationBitmaps& bitmaps, const MapView& view, int x, int y,
                  const CellTiles& tiles, PixelBuffer& buffer);

/// Moves the picture by the step from (last_h, last_v) to the view's place and composes what that
/// uncovers. If both coordinates changed, or neither, or one by a whole view or more, all cells are
/// composed. Returns whether all were.
bool scroll_picture(const FormationBitmaps& bitmaps, const MapView& view, int last_h, int last_v,
                    PixelBuffer& buffer);

} // namespace veldrune
