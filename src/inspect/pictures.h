#pragma once

#include "inspect/memory_image.h"
#include "map/chosen_map.h"
#include "objects/object_tables.h"
#include "render/compose.h"
#include "rom/rom_layout.h"
#include "world_map/world_map.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace veldrune::inspect {

/// Pictures have numbers: those of the maps, and then the World of Dawn and the World of Dusk.
inline constexpr int picture_count = rom_layout::map_count + 2;
constexpr int picture_of(World world) {
    return rom_layout::map_count + static_cast<int>(world);
}
/// "map-017" or "world-dawn".
std::string picture_name(int picture);

/// What is drawn, as the boxes of the editor's window have it.
struct PictureOptions {
    std::array<bool, layer_count> layers{true, true, true};
    bool objects = false; // outlines of all kinds
    bool grid = false;
};

/// The size of a picture in pixels.
struct PictureSize {
    int width = 0;
    int height = 0;

    bool operator==(const PictureSize&) const = default;
    std::int64_t pixels() const { return std::int64_t{width} * height; }
};

/// Draws whole maps and worlds as the editor shows them at its farthest zoom after the choice of a
/// map and "Build Tileset", from views of 512 by 512 pixels. A map is as large as the largest of
/// its layers, at most 128 by 64 tiles. Each thread has a painter of its own; it is large: keep it
/// on the heap.
class MapPainter {
  public:
    /// image must outlive the painter.
    MapPainter(const MemoryImage& image, const PictureOptions& options)
        : rom_(image), options_(options) {}

    /// Loads a picture, 0 to picture_count - 1, and returns its size.
    PictureSize load(int picture);
    /// The number of bands of the loaded picture: 512 rows each, the last one perhaps fewer.
    int band_count() const { return (size_.height + view_size - 1) / view_size; }
    /// The pixels of a band, row by row; good until the next call.
    std::span<const Colour> draw_band(int band);

  private:
    void load_map_picture(int map);
    void load_world_picture(World world);
    void draw_view(int h, int v);

    MemoryRom rom_;
    PictureOptions options_;
    PictureSize size_;
    bool is_world_ = false;
    ObjectKinds kinds_; // of the loaded picture, in the order of their drawing
    MapView view_;
    std::vector<Colour> band_;
    ChosenMap map_;
    OpenWorld world_;
    ObjectLists objects_;
    DecompressBuffer buffer_;
    FormationBitmaps bitmaps_;
    PixelBuffer picture_; // the present view
};

/// The pictures that are not the same in two images, drawn with all objects outlined, by number.
std::vector<int> differing_pictures(const MemoryImage& a, const MemoryImage& b);

} // namespace veldrune::inspect
