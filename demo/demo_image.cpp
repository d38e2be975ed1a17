#include "demo/demo_image.h"

#include "demo/image/image_writer.h"
#include "demo/people/item_names.h"
#include "demo/people/population.h"
#include "demo/people/scenes.h"
#include "demo/people/sprites.h"
#include "demo/places/layer3_art.h"
#include "demo/places/scenery.h"
#include "demo/worlds/world_image.h"
#include "map/map_properties.h"
#include "rom/rom_layout.h"

#include <bit>
#include <optional>
#include <stdexcept>
#include <tuple>

namespace veldrune::demo {
namespace {

constexpr int layouts_per_kind = 24;
constexpr std::int32_t layer_area_end = rom_layout::formation_data;
constexpr std::int32_t animated_area_end = rom_layout::sprite_palettes;
constexpr int palette_count = 48;
constexpr int animated_set_count = 22; // as many as there is room for before the sets
constexpr int tiles_of_animated_set = 16;

struct Size {
    int width, height; // tiles
};

struct LayerData {
    int number = 0; // of the layer data pointer; 0 is the empty layer
    Size size{16, 16};
};

// Layers 1 and 2 of a layout in the image.
struct LayoutData {
    std::array<LayerData, 2> layers;
    Size size;
};

// The content of layer 3, and its position among the layers.
struct Overlay {
    int graphics = layer3::cloud_shadows;
    int order = 2; // 0 at the bottom, 1 between, 2 on top
    bool present = false;
    bool whole = true; // as large as the map (64 rows at most), else 32 by 16
};

// clang-format off
// Sizes of the layouts. The first one is the size of the drawn place and depends on the kind.
constexpr Size place_sizes[kind_count] = {{64,32}, {64,64}, {64,64}, {32,64}, {32,32}};
constexpr Size layout_sizes[layouts_per_kind] = {
    {0,0},   {32,32}, {64,32},  {32,64}, {16,16}, {32,32}, {128,16}, {32,16},
    {16,32}, {64,64}, {32,32},  {16,64}, {64,16}, {32,32}, {128,32}, {32,32},
    {32,32}, {64,32}, {128,64}, {32,32}, {32,64}, {16,16}, {32,32},  {64,32}};
constexpr Size tall_size{32, 128};

// Layer 3 of a kind's maps, in rotation; the first one belongs to the drawn place.
constexpr Overlay none{};
constexpr Overlay overlays[kind_count][5] = {
    {{layer3::cloud_shadows, 2, true}, none, {layer3::rain, 2, true}, {layer3::fog, 1, true}, {layer3::snow, 2, true}},
    {{layer3::light_shafts, 2, true}, {layer3::fog, 1, true}, none, {layer3::snow, 2, true}, {layer3::rain, 2, true}},
    {{layer3::fog, 2, true}, none, {layer3::fog, 1, true}, none, {layer3::fog, 2, true, false}},
    {none, {layer3::night_sky, 0, true}, {layer3::light_shafts, 2, true}, none, {layer3::fog, 2, true, false}},
    {none, none, {layer3::night_sky, 0, true}, {layer3::light_shafts, 2, true, false}, none},
};
// clang-format on

const PlaceArt* const place_arts[kind_count] = {&town_art, &forest_art, &cave_art, &castle_art,
                                                &interior_art};

// Everything that the maps of one kind share.
struct KindArt {
    const PlaceArt& art;
    BlockTable blocks;
    Scenery scenery;
    CharacterPool characters;
    std::array<FormationPool, 2> formations;

    explicit KindArt(int kind)
        : art(*place_arts[kind]), blocks(palette(static_cast<Kind>(kind), 0)),
          scenery(art, blocks) {
        characters.add_animated(art.animated);
    }
};

int size_code(int tiles) {
    return std::countr_zero(static_cast<unsigned>(tiles)) - 4;
}

// The smallest size that holds all cells of the layer that are not empty.
Size used_size(std::span<const std::uint8_t> cells, Size whole) {
    Size used{16, 16};
    for (int y = 0; y < whole.height; ++y)
        for (int x = 0; x < whole.width; ++x)
            if (cells[static_cast<std::size_t>(y * whole.width + x)] != 0) {
                while (used.width <= x)
                    used.width *= 2;
                while (used.height <= y)
                    used.height *= 2;
            }
    return used;
}

Bytes cropped(std::span<const std::uint8_t> cells, int stride, Size size) {
    Bytes result;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            result.push_back(cells[static_cast<std::size_t>(y * stride + x)]);
    return result;
}

class DemoImage {
  public:
    explicit DemoImage(std::uint32_t seed) : seed_(seed), random_(seed) {}
    Bytes make();

  private:
    void write_kind(int kind);
    LayoutData write_layout(KindArt& art, int kind, int layout);
    void write_graphics(const KindArt& art, int kind);
    void write_tables();
    void write_maps();
    void write_map_objects();
    MapProperties make_record(int map, int kind, int layout, int mood, const Overlay& overlay);
    LayerData overlay_data(const Overlay& overlay, Size map_size);

    std::uint32_t seed_;
    Random random_;
    ImageWriter writer_;
    DataArea layers_{writer_, rom_layout::layer_data, layer_area_end,
                     rom_layout::layer_data_pointers, rom_layout::layer_data_pointer_count};
    DataArea formations_{writer_, rom_layout::formation_data, rom_layout::formation_pointers,
                         rom_layout::formation_pointers, rom_layout::formation_set_count};
    DataArea tilesets_{writer_, rom_layout::tileset_graphics, rom_layout::animated_graphics,
                       rom_layout::tileset_pointers, rom_layout::tileset_count};
    DataArea layer3_{writer_, rom_layout::layer3_graphics, rom_layout::layer3_graphics_pointers,
                     rom_layout::layer3_graphics_pointers, rom_layout::layer3_graphics_count};
    std::int32_t next_animated_ = rom_layout::animated_graphics;
    std::array<std::vector<LayoutData>, kind_count> layouts_;
    Sites sites_;
    std::array<Layer3Set, layer3::drawn_count> layer3_sets_;
    std::map<std::tuple<int, int, int>, int> overlay_numbers_; // by graphics and size
    int meadow_ = 0;                                           // data number of a plain meadow
};

Bytes DemoImage::make() {
    layers_.add_packed(Bytes(256)); // for maps without layer 3
    for (int number = 0; number < layer3::drawn_count; ++number) {
        layer3_sets_[static_cast<std::size_t>(number)] = draw_layer3(number);
        layer3_.add_packed(layer3_sets_[static_cast<std::size_t>(number)].graphics);
    }
    for (int kind = 0; kind < kind_count; ++kind)
        write_kind(kind);
    write_tables();
    write_maps();
    write_map_objects();
    write_item_names(writer_);
    write_sprites(writer_);
    formations_.repeat_entries();
    tilesets_.repeat_entries();
    layer3_.repeat_entries();
    layers_.repeat_entries();
    return writer_.take();
}

void DemoImage::write_kind(int kind) {
    KindArt art(kind);
    for (int layout = 0; layout < layouts_per_kind; ++layout)
        layouts_[static_cast<std::size_t>(kind)].push_back(write_layout(art, kind, layout));
    write_graphics(art, kind);
}

LayoutData DemoImage::write_layout(KindArt& art, int kind, int layout) {
    const bool tall = kind == static_cast<int>(Kind::cave) && layout == 1;
    const Size by_rule = layout == 0 ? place_sizes[kind] : tall ? tall_size : layout_sizes[layout];
    const Plan plan = art.art.plan(layout, by_rule.width, by_rule.height, random_);
    const Size size{plan.width, plan.height}; // a drawn plan has its own size
    MapCanvas canvas(art.blocks, size.width, size.height);
    art.scenery.paint(canvas, plan);
    sites_[static_cast<std::size_t>(kind)].emplace_back(plan, art.scenery.walkable(plan),
                                                        art.art.walls == nullptr);
    LayoutData data{{}, size};
    for (std::size_t layer = 0; layer < 2; ++layer) {
        const Bytes cells =
            canvas.formations(static_cast<int>(layer), art.characters, art.formations[layer]);
        const Size used = layer == 0 ? used_size(cells, size) : size;
        data.layers[layer] = {layers_.add_packed(cropped(cells, size.width, used)), used};
        if (kind == 0 && layout == 0 && layer == 1)
            meadow_ = layers_.add_packed(Bytes(256, cells[static_cast<std::size_t>(size.width)]));
    }
    return data;
}

void DemoImage::write_graphics(const KindArt& art, int kind) {
    Bytes graphics = art.characters.graphics();
    graphics.resize(32 * CharacterPool::still_count);
    static constexpr std::array<std::size_t, 2> groups[] = {
        {0, 256}, {256, 128}, {384, 128}, {512, 128}};
    for (const auto& [first, count] : groups)
        tilesets_.add(std::span(graphics).subspan(32 * first, 32 * count));
    for (const FormationPool& pool : art.formations)
        formations_.add_packed(pool.bytes());

    const Bytes& animated = art.characters.animated_graphics();
    const std::int32_t set = rom_layout::animated_sets + kind * tiles_of_animated_set * 10;
    for (int tile = 0; tile < tiles_of_animated_set; ++tile)
        for (int frame = 0; frame < 4; ++frame) {
            const int place =
                tile * 4 + frame < static_cast<int>(animated.size()) / 128 ? tile * 4 + frame : 0;
            writer_.put_word(set + 10 * tile + 2 * frame,
                             next_animated_ - rom_layout::animated_graphics + 128 * place);
        }
    if (next_animated_ + static_cast<std::int32_t>(animated.size()) > animated_area_end)
        throw std::length_error("the animated graphics of the demo image are full");
    writer_.put(next_animated_, animated);
    next_animated_ += static_cast<std::int32_t>(animated.size());
}

void DemoImage::write_tables() {
    for (int set = 0; set < animated_set_count; ++set)
        writer_.put_word(rom_layout::animated_set_offsets + 2 * set,
                         set % kind_count * tiles_of_animated_set * 10);
    for (int number = 0; number < palette_count; ++number) {
        const PaletteColours colours =
            palette(static_cast<Kind>(number / mood_count % kind_count), number % mood_count);
        for (int i = 0; i < 128; ++i)
            writer_.put_word(rom_layout::map_palettes + 256 * number + 2 * i,
                             colour_word(colours[static_cast<std::size_t>(i)]));
    }
    // Every third byte is the position of layer 3: on top, between or at the bottom, each in two
    // codes.
    static constexpr int places[] = {0x00, 0x04, 0x01, 0x03, 0x06, 0x02};
    for (int number = 0; 3 * number < 256; ++number) {
        writer_.put_byte(rom_layout::layer_priorities + 3 * number, places[number % 6]);
        writer_.put_word(rom_layout::layer_priorities + 3 * number + 1, 0x0417);
    }
}

LayerData DemoImage::overlay_data(const Overlay& overlay, Size map_size) {
    if (!overlay.present)
        return {};
    const Size size =
        overlay.whole ? Size{map_size.width, std::min(map_size.height, 64)} : Size{32, 16};
    const auto [place, fresh] =
        overlay_numbers_.try_emplace({overlay.graphics, size.width, size.height}, 0);
    if (fresh)
        place->second =
            layers_.add_packed(layer3_sets_[static_cast<std::size_t>(overlay.graphics)].cells(
                size.width, size.height));
    return {place->second, size};
}

MapProperties DemoImage::make_record(int map, int kind, int layout, int mood,
                                     const Overlay& overlay) {
    const LayoutData& data =
        layouts_[static_cast<std::size_t>(kind)][static_cast<std::size_t>(layout)];
    const LayerData layer3 = overlay_data(overlay, data.size);
    const bool wild =
        kind == static_cast<int>(Kind::forest) || kind == static_cast<int>(Kind::cave);
    const std::pair<RecordField, int> values[] = {
        {RecordField::battle_background, kind},
        {RecordField::battles_enabled, wild},
        {RecordField::tileset1, 4 * kind},
        {RecordField::tileset2, 4 * kind + 1},
        {RecordField::tileset3, 4 * kind + 2},
        {RecordField::tileset4, 4 * kind + 3},
        {RecordField::layer3_graphics, overlay.graphics},
        {RecordField::layer1_formation, 2 * kind},
        {RecordField::layer2_formation, 2 * kind + 1},
        {RecordField::layer1_data, data.layers[0].number},
        {RecordField::layer2_data, data.layers[1].number},
        {RecordField::layer3_data, layer3.number},
        {RecordField::layer1_width, size_code(data.layers[0].size.width)},
        {RecordField::layer1_height, size_code(data.layers[0].size.height)},
        {RecordField::layer2_width, size_code(data.layers[1].size.width)},
        {RecordField::layer2_height, size_code(data.layers[1].size.height)},
        {RecordField::layer3_width, size_code(layer3.size.width)},
        {RecordField::layer3_height, size_code(layer3.size.height)},
        {RecordField::palette, mood_count * kind + mood},
        {RecordField::animated_tileset, kind},
        {RecordField::byte27_high, wild ? 1 + map % 7 : 0},
        {RecordField::song, 1 + kind * 4 + mood % 4},
        {RecordField::viewable_first, data.size.width},
        {RecordField::viewable_second, data.size.height},
        {RecordField::layer_priorities, 2 - overlay.order + map % 2 * 3 + map % 9 * 6},
    };
    MapProperties record{};
    for (const auto& [field, value] : values)
        set_record_value(record, field, static_cast<std::uint32_t>(value));
    return record;
}

void DemoImage::write_maps() {
    for (int map = 0; map < rom_layout::map_count; ++map) {
        const int kind = kind_of(map), turn = region_of(map);
        const int mood = turn == 0 ? 0 : scatter(map, turn, 31, mood_count);
        const Overlay& overlay = map < demo_map::town ? none : overlays[kind][turn % 5];
        MapProperties record = make_record(map, kind, turn % layouts_per_kind, mood, overlay);
        if (map < demo_map::town) {
            const std::pair<RecordField, int> plain[] = {
                {RecordField::layer1_data, 0},  {RecordField::layer2_data, meadow_},
                {RecordField::layer1_width, 0}, {RecordField::layer1_height, 0},
                {RecordField::layer2_width, 0}, {RecordField::layer2_height, 0}};
            for (const auto& [field, value] : plain)
                set_record_value(record, field, static_cast<std::uint32_t>(value));
        }
        writer_.put(static_cast<std::int32_t>(record_offset(map)), record);
        writer_.put_byte(static_cast<std::int32_t>(monster_set_offset(map)), map % 64);
    }
}

void DemoImage::write_map_objects() {
    // The lists of maps 0 and 1 are those of the world maps.
    std::vector<MapObjects> maps(rom_layout::map_count);
    DialogueBook dialogues(writer_);
    ScriptBook scripts(writer_, dialogues);
    Scenes scenes(scripts);
    populate(maps, sites_, scenes, random_);
    write_worlds(writer_, seed_, maps, sites_, scenes);
    write_objects(writer_, maps);
    dialogues.repeat_entries();
}

} // namespace

std::vector<std::uint8_t> make_demo_image(std::uint32_t seed) {
    return DemoImage(seed).make();
}

} // namespace veldrune::demo
