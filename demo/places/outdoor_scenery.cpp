#include "demo/assets/pictures/houses.h"
#include "demo/assets/pictures/indoors.h"
#include "demo/assets/plans/town.h"
#include "demo/places/outdoor_art.h"
#include "demo/places/scenery.h"

namespace veldrune::demo {
namespace {

using namespace outdoor;

consteval DrawnPicture house(std::string_view name) {
    return picture(assets::houses, name);
}

constexpr std::array plain_grass = {meadow[4]};
constexpr std::array flowers = pictures<4>(assets::outdoors, "flowers");
constexpr DrawnPicture hedge = outdoor_picture("hedge"), fence = outdoor_picture("fence");

template <const auto& tiles>
Picture one_of(Shape, int variant) {
    return tiles[static_cast<std::size_t>(variant)].draw();
}
// The tile of a sheet of sixteen that connects to the same sides as the shape.
template <const DrawnPicture& sheet>
Picture joined(Shape shape, int) {
    return tile_of(sheet.draw(), shape.mask % 4, shape.mask / 4 % 4);
}

// The part of a tree that hides people behind it, and the part below people.
consteval PropArt crown(char letter, DrawnPicture tree) {
    return {letter, tree.part(0, 48), 48, 0, 16, 16};
}
consteval PropArt foot(char letter, DrawnPicture tree) {
    return {letter, tree.part(40, 24), 0, 1, 16};
}
constexpr DrawnPicture tree = outdoor_picture("tree"), young_tree = outdoor_picture("young_tree"),
                       conifer = outdoor_picture("conifer"), blossom = tree.in_row(blue_house_row);

// clang-format off
constexpr GroundArt grounds[] = {
    //letters joins    draw                 variants layer patch feet
    {"",      "",      one_of<meadow>,      8},
    {",",     "",      one_of<flowers>,     4,       1,    3},
    {"TYBP",  "",      one_of<plain_grass>, 1,       1,    1,    true},
    {"\"",    "\"",    draw_tall_grass},
    {":g",    ":=cg",  draw_path,           3},
    {"cFM",   "cFM",   draw_paving,         2},
    {"t",     "t",     draw_field,          2},
    {"~=",    "~=",    draw_water},
    {"h",     "h",     joined<hedge>,       1,       0},
    {"f",     "f",     joined<fence>,       1,       0},
};
constexpr PropArt props[] = {
    crown('T', tree),       foot('T', tree),
    crown('Y', young_tree), foot('Y', young_tree),
    crown('B', blossom),    foot('B', blossom),
    crown('P', conifer),    foot('P', conifer),
    // letter, picture, pixels that hide
    {'H', house("timbered_house"), 56}, {'I', house("gabled_house"), 56}, {'J', house("plain_house"), 56},
    {'F', house("fountain"), 24}, {'w', house("well"), 24}, {'M', house("stall"), 24},
    {'L', house("lamp"), 16}, {'n', house("sign")}, {'p', house("flower_bed")}, {'=', house("bridge")},
    {'o', picture(assets::indoors, "barrel"), 8}, {'b', outdoor_picture("bush")},
    {'s', outdoor_picture("stump")}, {'r', outdoor_picture("stone")}, {'R', outdoor_picture("rock")},
};

Plan town_plan(int layout, int width, int height, Random& random) {
    if (layout != 0)
        return village_plan(layout, width, height, random);
    return Plan(assets::town);
}
// clang-format on

} // namespace

const PlaceArt town_art{water, town_plan, nullptr, grounds, props};
const PlaceArt forest_art{water, woodland_plan, nullptr, grounds, props};

} // namespace veldrune::demo
