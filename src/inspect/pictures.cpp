#include "inspect/pictures.h"

#include "inspect/share_out.h"
#include "map/tile_sources.h"
#include "objects/markers.h"
#include "render/build_tiles.h"

#include <algorithm>
#include <memory>
#include <mutex>

namespace veldrune::inspect {
namespace {

constexpr int tile_side = 16; // in pixels, at the farthest zoom
constexpr int view_tiles = view_size / tile_side;

bool is_same_picture(MapPainter& a, MapPainter& b, int picture) {
    if (a.load(picture) != b.load(picture))
        return false;
    for (int band = 0; band < a.band_count(); ++band)
        if (!std::ranges::equal(a.draw_band(band), b.draw_band(band)))
            return false;
    return true;
}

} // namespace

std::string picture_name(int picture) {
    if (picture >= rom_layout::map_count)
        return picture == picture_of(World::dawn) ? "world-dawn" : "world-dusk";
    const std::string number = std::to_string(picture);
    return "map-" + std::string(3 - number.size(), '0') + number;
}

PictureSize MapPainter::load(int picture) {
    is_world_ = picture >= rom_layout::map_count;
    if (is_world_)
        load_world_picture(static_cast<World>(picture - rom_layout::map_count));
    else
        load_map_picture(picture);
    return size_;
}

void MapPainter::load_map_picture(int map) {
    const RomImage& rom = rom_.rom();
    load_map(rom, map, buffer_, map_);
    const TileNumbers numbers = tile_numbers(map_.map_properties);
    refresh_first_frames(rom, numbers.animated_tileset, map_.anim_tiles);
    build_tiles(rom, numbers, map_.anim_tiles, buffer_, bitmaps_);
    kinds_ = marker_order;
    load_object_lists(rom, kinds_, map, objects_);
    view_ = record_view(map_, view_tiles);
    view_.stack.shown = options_.layers;
    size_ = {tile_side * std::min(std::ranges::max(view_.widths), max_layer_width),
             tile_side * std::min(std::ranges::max(view_.heights), max_layer_height)};
}

void MapPainter::load_world_picture(World world) {
    load_world(rom_.rom(), world, buffer_, world_);
    kinds_ = world_object_kinds;
    load_object_lists(rom_.rom(), kinds_, world_row(world).map, objects_);
    size_ = {tile_side * world_side, tile_side * world_side};
}

void MapPainter::draw_view(int h, int v) {
    view_.h = h;
    view_.v = v;
    if (is_world_)
        draw_world_tiles(world_.world_map, world_.world_sheet, h, v, picture_);
    else
        compose_cells(bitmaps_, view_, 0, 0, std::min(view_tiles, size_.width / tile_side - h),
                      std::min(view_tiles, size_.height / tile_side - v), picture_);
    if (options_.grid)
        draw_grid(picture_, tile_side);
    if (options_.objects)
        for (const ObjectKind kind : kinds_)
            draw_markers(kind, objects_[kind], {h, v, tile_side}, picture_);
}

std::span<const Colour> MapPainter::draw_band(int band) {
    const int height = std::min(view_size, size_.height - band * view_size);
    band_.resize(static_cast<std::size_t>(size_.width * height));
    for (int left = 0; left < size_.width; left += view_size) {
        draw_view(left / tile_side, band * view_tiles);
        const int width = std::min(view_size, size_.width - left);
        for (int y = 0; y < height; ++y)
            std::copy_n(std::as_const(picture_).row(y), width,
                        band_.begin() + y * size_.width + left);
    }
    return band_;
}

std::vector<int> differing_pictures(const MemoryImage& a, const MemoryImage& b) {
    const PictureOptions options{.objects = true};
    std::vector<int> differing;
    std::mutex adding;
    share_out(picture_count, [&] {
        const auto of_a = std::make_shared<MapPainter>(a, options);
        const auto of_b = std::make_shared<MapPainter>(b, options);
        return [&differing, &adding, of_a, of_b](int picture) {
            if (is_same_picture(*of_a, *of_b, picture))
                return;
            const std::lock_guard lock(adding);
            differing.push_back(picture);
        };
    });
    std::ranges::sort(differing);
    return differing;
}

} // namespace veldrune::inspect
