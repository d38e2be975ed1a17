#include "demo/enclosure.h"
#include "demo/indoor_art.h"
#include "demo/outdoor_art.h"
#include "demo/plans.h"

#include <memory>

namespace veldrune::demo {
namespace {

using namespace outdoor;

struct OutdoorArt {
    BlockTable& table;
    Ground meadow, tall_grass, path, paving, water, field, hedge, fence;
    Props props;
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
      water(blocks, draw_water), field(blocks, draw_field), hedge(blocks, draw_hedge),
      fence(blocks, draw_fence), bridge(cut(blocks, draw_bridge())) {
    const auto prop = [&](char letter, const Picture& picture, int high_rows = 0) {
        props[letter] = {cut(table, picture), 0, 0, high_rows};
    };
    prop('H', draw_house({red_house_row, 80, true, false, false}), 7);
    prop('I', draw_house({blue_house_row, 112, true, true, true}), 7);
    prop('J', draw_house({blue_house_row, 80, false, false, false}), 7);
    prop('F', draw_fountain(), 3);
    prop('w', draw_well(), 3);
    prop('M', draw_stall(), 3);
    prop('L', draw_lamp(), 2);
    prop('n', draw_sign());
    prop('p', draw_flower_bed());
    prop('o', indoor::draw_barrel(), 1);
    prop('b', draw_bush());
    prop('s', draw_stump());
    prop('r', draw_rock(false));
    prop('R', draw_rock(true));
    prop('l', draw_log());
    const auto tree = [&](char letter, const Picture& picture) {
        trees.emplace(
            letter, std::pair{part(table, picture, 0, crown_height), part(table, picture, 40, 24)});
    };
    tree('T', draw_tree(tree_row, 0));
    tree('Y', draw_tree(tree_row, 1));
    tree('B', draw_tree(blue_house_row, 0));
    tree('P', draw_conifer(red_house_row));
}

/// Grass without marks where the foot of a tree may lie.
bool by_tree(const OutdoorArt& art, const Plan& plan, int x, int y) {
    for (int j = y; j <= y + 1; ++j)
        for (int i = x - 1; i <= x + 1; ++i)
            if (art.trees.contains(plan.at(i, j)))
                return true;
    return false;
}

void paint_outdoors(OutdoorArt& art, MapCanvas& canvas, const Plan& plan) {
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x) {
            const bool flowers = plan.is(x, y, ",");
            const int kind = flowers ? 8 + scatter(x / 3, y / 3, 3, 4) : scatter(x, y, 2, 8);
            canvas.ground(1, x, y,
                          art.meadow.tile({255}, by_tree(art, plan, x, y) ? plain_grass : kind));
        }
    art.tall_grass.paint(canvas, 1, plan, "\"", "\"", 1);
    art.path.paint(canvas, 1, plan, ":g", ":=cg", 4);
    art.paving.paint(canvas, 1, plan, "cFM", "cFM", 2);
    art.field.paint(canvas, 1, plan, "t", "t", 2);
    art.water.paint(canvas, 1, plan, "~=", "~=", 1);
    art.hedge.paint(canvas, 0, plan, "h", "h", 1);
    art.fence.paint(canvas, 0, plan, "f", "f", 1);
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x) {
            const char letter = plan.at(x, y);
            if (letter == '=')
                canvas.stamp(0, 16 * x, 16 * y, art.bridge);
            if (const auto tree = art.trees.find(letter); tree != art.trees.end()) {
                const auto& [crown, trunk] = tree->second;
                canvas.stamp(1, 16 * x - 16, 16 * y - 8, trunk);
                canvas.stamp(0, 16 * x - 16, 16 * y - 48, crown, crown.height);
            }
        }
    paint_props(art.props, canvas, plan);
    canvas.sink_deep_tops();
}

// clang-format off
Plan town_square() {
    return drawn_plan({
        "T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.T.",
        "..............................,.................................",
        "T.........T.............T.......T...............T...........T.T.",
        "............................................,,..................",
        "T.........T.........T.....................T.T.................T.",
        ".,.....................,,.......................................",
        "T.........T.........T............................T............T.",
        ".........,,........................,............................",
        "...H____..,I______..bT...,_______.....bJ____..T....I______...b..",
        ".bp..:.pb.bp..:.pb.........p.:..pb.....p.:..p.....pp..:.pp.b....",
        ".....:.n......:..........b...:..........n:............:.........",
        "..L..:........:....L.........:....L......:....L.......:......L..",
        "::::::::::::::::::::::::ccccccccccccc:::::::::::::::::::::::::::",
        "::::::::::::::::::::::::ccccccccccccc:::::::::::::::::::::::::::",
        "..L......:.........L.:..cccccccccccccc.L..........:.L......,....",
        ".........:...ffffffffff.cMcccFccccMcc.............:.............",
        "..~~~~...:...ftttgtttf.....cccccc......hhhhhhhhh..:.....~~~~....",
        ".~~~~~~..:...ftttgtttf.....cccccc......hp,,,,,ph..:...~~~~~~~...",
        ".~~~~~~~.:...ftttgtttf......:......b...h,,,w,,,h..:..~~~~~~~~~..",
        "~~~~~~~~.:b..ftttgtttf......:..........h,,,.,,,h..:..~~~~~~~~~..",
        ".~~~~~~..::..fffffgfff.b....:.,..T.....hhhh.hhhh..::..~~~~~~~...",
        "..~~~~....:......r:.........:..............:.......:....~~~~....",
        "R..~~..,..:.......:...H____.:....I______...:..J____.:...........",
        "...~~~....:...o...:..bp..:.pb....p..:..p...:..p.:..p:..b......,.",
        "....~~....:.......:......:..:.......:......:....:...:...........",
        "...:==::::::::::::::::::::::::::::::::::::::::::::::::::::::::::",
        "....~~......,.......,,............,,............,...............",
        "....~~~....,.,.......................,..............,,..........",
        "T....~~.T...T...T...T...T...T...T...T...T...T...T...T...T...T...",
        ".....~~.........................................................",
        "..T..~~~..T...T...T...T...T...T...T...T...T...T...T...T...T...T.",
        "......~~........................................................",
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
