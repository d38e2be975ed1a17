#include "demo/enclosure.h"
#include "demo/outdoor_art.h"
#include "demo/plans.h"

#include <memory>

namespace veldrune::demo {
namespace {

using namespace outdoor;

struct OutdoorArt {
    BlockTable& table;
    Ground meadow, tall_grass, path, paving, water;
    Props props;
    std::array<Stamp, 8> fences;
    Stamp bridge;
    std::map<char, std::pair<Stamp, Stamp>> trees; // crown, and trunk with shadow

    explicit OutdoorArt(BlockTable& blocks);
};

Stamp part(BlockTable& table, const Picture& whole, int top, int height) {
    Picture piece(whole.width, height);
    piece.draw(whole, 0, -top);
    return cut(table, piece);
}

OutdoorArt::OutdoorArt(BlockTable& blocks)
    : table(blocks), meadow(blocks, [](Shape, int variant) { return draw_grass(variant); }),
      tall_grass(blocks, draw_tall_grass), path(blocks, draw_path), paving(blocks, draw_paving),
      water(blocks, draw_water), bridge(cut(blocks, draw_bridge())) {
    const auto prop = [&](char letter, const Picture& picture, int high_rows = 0) {
        props[letter] = {cut(table, picture), 0, 0, high_rows};
    };
    prop('H', draw_house({red_house_row, 80, true, false, false}), 7);
    prop('I', draw_house({blue_house_row, 112, true, true, true}), 7);
    prop('J', draw_house({blue_house_row, 80, false, false, false}), 7);
    prop('b', draw_bush());
    prop('s', draw_stump());
    prop('r', draw_rock(false));
    prop('R', draw_rock(true));
    prop('l', draw_log());
    for (int i = 0; i < 8; ++i)
        fences[static_cast<std::size_t>(i)] = cut(table, draw_fence(i & 1, i & 2, i & 4));
    const auto tree = [&](char letter, const Picture& picture) {
        trees.emplace(
            letter, std::pair{part(table, picture, 0, crown_height), part(table, picture, 40, 24)});
    };
    tree('T', draw_tree(tree_row, 0));
    tree('Y', draw_tree(tree_row, 1));
    tree('B', draw_tree(blue_house_row, 0));
    tree('P', draw_conifer(red_house_row));
}

void paint_outdoors(OutdoorArt& art, MapCanvas& canvas, const Plan& plan) {
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x) {
            const int plain = scatter(x, y, 2, 8);
            const int flowers = 8 + scatter(x / 3, y / 3, 3, 4);
            canvas.ground(1, x, y, art.meadow.tile({255}, plan.is(x, y, ",") ? flowers : plain));
        }
    art.tall_grass.paint(canvas, 1, plan, "\"", "\"", 2);
    art.path.paint(canvas, 1, plan, ":", ":=c", 4);
    art.paving.paint(canvas, 1, plan, "cwLo", "cwLo", 3);
    art.water.paint(canvas, 1, plan, "~=", "~=", 1);
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x) {
            const char letter = plan.at(x, y);
            if (letter == '=')
                canvas.stamp(0, 16 * x, 16 * y, art.bridge);
            if (letter == 'f')
                canvas.stamp(0, 16 * x, 16 * y,
                             art.fences[static_cast<std::size_t>(plan.is(x - 1, y, "f") +
                                                                 2 * plan.is(x + 1, y, "f") +
                                                                 4 * plan.is(x, y + 1, "f"))]);
            if (const auto tree = art.trees.find(letter); tree != art.trees.end()) {
                const auto& [crown, trunk] = tree->second;
                canvas.stamp(1, 16 * x - 16, 16 * y - 8, trunk);
                canvas.stamp(0, 16 * x - 16, 16 * y - 48, crown, crown.height);
            }
        }
    paint_props(art.props, canvas, plan);
    canvas.sink_opaque_tops();
}

// clang-format off
Plan town_square() {
    return drawn_plan({
        "T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.",
        "..,..........................,..................................",
        "T.............T.................T.T...........T.............T...",
        "...........,..........................,.......................,.",
        "................T.............................................T.",
        ".,..............................................................",
        "T...........b.................,.b........................b......",
        "...........,,.................,..................,,.............",
        "...H....fff.T...I......,........J........fffff....H.............",
        ".b....,.f,,.............b.........b..,...f,,,f..........b.......",
        ".....:...,......b..:b..............:..........f.....:...........",
        ".....:.............:...............:................:...........",
        "...:::::::::::::::::::::::::ccccccccccc:::::::::::::::::::::::::",
        "..::::::::::::::::::::::::::ccccccccccc:::::::::::::::::::::::::",
        ".::.......,.................ccccccccccc...:..........,..........",
        ".:..b...T....~~~~...........ccccccccccc...:....T................",
        ".:...,.....~~~~~~~..T..,....ccccccccccc...:.........,,..........",
        ".:..,,....~~~~~~~~~.........ccccccccccc...::....................",
        "T:........~~~~~~~~~~....b.......::.........:.......T.......T....",
        ".:...R.....~~~~~~~~~.............:.........::...................",
        ".::........r.~~~~~~..............:..........:...................",
        "..:..............~~...b..........:..........:......H............",
        "..::.......,,....~~..............:...H......::........,.........",
        "...:::::.........~~~.....,.......:......b....:.......:..........",
        ".......::.........~~.............:.....:.....:.......:..........",
        "T...,...:::::::::::==::::::::::::::::::::::::::::::::::::.......",
        "..................~~............................................",
        "..b........,,.....~~~....,.....................,................",
        "T...T...T...T..T...~~...T...T...T...T...T...T...T...T...T...T...",
        "...................~~...........................................",
        "..T...T...T...T....~~~....T...T...T...T...T...T...T...T...T...T.",
        "....................~~..........................................",
    });
}
// clang-format on

} // namespace

Scenery town_scenery(BlockTable& table) {
    const auto art = std::make_shared<OutdoorArt>(table);
    return {{water_frames()},
            [](int layout, int width, int height, Random& random) {
                return layout == 0 ? town_square() : village_plan(layout, width, height, random);
            },
            [art](MapCanvas& canvas, const Plan& plan) { paint_outdoors(*art, canvas, plan); }};
}

Scenery forest_scenery(BlockTable& table) {
    const auto art = std::make_shared<OutdoorArt>(table);
    return {{water_frames()}, woodland_plan, [art](MapCanvas& canvas, const Plan& plan) {
                paint_outdoors(*art, canvas, plan);
            }};
}

} // namespace veldrune::demo
