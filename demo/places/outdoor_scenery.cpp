#include "demo/assets/plans/town.h"
#include "demo/places/indoor_art.h"
#include "demo/places/outdoor_art.h"
#include "demo/places/scenery.h"

namespace veldrune::demo {
namespace {

using namespace outdoor;

Picture meadow(Shape, int variant) {
    return draw_grass(variant);
}
Picture foot_grass(Shape, int) {
    return draw_grass(plain_grass);
}
Picture flowers(Shape, int variant) {
    return draw_grass(first_flowers + variant);
}

template <int row, int variant>
Picture crown() {
    return part(draw_tree(row, variant), 0, 48);
}
template <int row, int variant>
Picture foot() {
    return part(draw_tree(row, variant), 40, 24);
}

// clang-format off
constexpr GroundArt grounds[] = {
    // letters  joins    draw            variants layer patch feet
    {"",        "",      meadow,         8},
    {",",       "",      flowers,        4,       1,    3},
    {"TYBP",    "",      foot_grass,     1,       1,    1,    true},
    {"\"",      "\"",    draw_tall_grass},
    {":g",      ":=cg",  draw_path,      3},
    {"cFM",     "cFM",   draw_paving,    2},
    {"t",       "t",     draw_field,     2},
    {"~=",      "~=",    draw_water},
    {"h",       "h",     draw_hedge,     1,       0},
    {"f",       "f",     draw_fence,     1,       0},
};
constexpr PropArt props[] = {
    // letter, picture, high, layer, left, up
    {'T', crown<tree_row, 0>, 48, 0, 16, 16},       {'T', foot<tree_row, 0>, 0, 1, 16},
    {'Y', crown<tree_row, 1>, 48, 0, 16, 16},       {'Y', foot<tree_row, 1>, 0, 1, 16},
    {'B', crown<blue_house_row, 0>, 48, 0, 16, 16}, {'B', foot<blue_house_row, 0>, 0, 1, 16},
    {'P', [] { return part(draw_conifer(red_house_row), 0, 48); }, 48, 0, 16, 16},
    {'P', [] { return part(draw_conifer(red_house_row), 40, 24); }, 0, 1, 16},
    {'H', [] { return draw_house({red_house_row, 80, true, false}); }, 56},
    {'I', [] { return draw_house({blue_house_row, 112, true, true}); }, 56},
    {'J', [] { return draw_house({blue_house_row, 80, false, false}); }, 56},
    {'F', draw_fountain, 24}, {'w', draw_well, 24}, {'M', draw_stall, 24}, {'L', draw_lamp, 16},
    {'n', draw_sign}, {'p', draw_flower_bed}, {'o', indoor::draw_barrel, 8}, {'=', draw_bridge},
    {'b', draw_bush}, {'s', draw_stump},
    {'r', [] { return draw_rock(false); }}, {'R', [] { return draw_rock(true); }},
};

Plan town_plan(int layout, int width, int height, Random& random) {
    if (layout != 0)
        return village_plan(layout, width, height, random);
    return Plan(assets::town);
}
// clang-format on

} // namespace

const PlaceArt town_art{water_frames, town_plan, nullptr, grounds, props};
const PlaceArt forest_art{water_frames, woodland_plan, nullptr, grounds, props};

} // namespace veldrune::demo
