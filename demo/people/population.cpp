#include "demo/people/population.h"

namespace veldrune::demo {
namespace {

constexpr int full_area = 64 * 32; // tiles that Post::most speaks of
// The tables of entrances have no room for wide ways and many houses everywhere.
constexpr int rich_regions = 44;
constexpr std::size_t houses_of_rich = 7, houses_of_poor = 2;
constexpr int most_chests = 440;

int pick(std::string_view digits, Random& random) {
    return digits[static_cast<std::size_t>(random.below(static_cast<int>(digits.size())))] - '0';
}

void add_way(MapObjects& from, const Gate& gate, int map, Place landing) {
    const Entrance way{gate.first.x, gate.first.y, map, landing.x, landing.y};
    if (gate.length == 0)
        from.entrances.push_back(way);
    else
        from.long_entrances.push_back({way, gate.length, gate.down});
}

/// The tile of a gate that its landing lies behind.
Gate narrowed(const Gate& gate) {
    const int middle = (gate.length + 1) / 2;
    return {{gate.first.x + (gate.down ? 0 : middle), gate.first.y + (gate.down ? middle : 0)},
            0,
            gate.down,
            gate.landing};
}

class Population {
  public:
    Population(std::span<MapObjects> maps, const Sites& sites, Scenes& scenes, Random& random)
        : maps_(maps), sites_(sites), scenes_(scenes), random_(random) {}

    void join_region(int town);
    void fill(int map);

  private:
    const Site& site(int map) const { return site_of(sites_, map); }
    MapObjects& objects(int map) { return maps_[static_cast<std::size_t>(map)]; }
    bool exists(int map) const { return map < static_cast<int>(maps_.size()); }
    /// Joins two gates both ways.
    void join(int a, Gate from_a, int b, Gate from_b);
    bool fits(const Post& post, int x, int y) const;
    void man(const Post& post, int map);
    void lock_doors(int map);
    void place(const Post& post, int map, int x, int y);
    void put_chest(int map, int x, int y);
    void put_npc(const Post& post, int map, int x, int y, int script);

    std::span<MapObjects> maps_;
    const Sites& sites_;
    Scenes& scenes_;
    Random& random_;
    const Site* here_ = nullptr;
    Plan taken_{1, 1, '.'};                 // tiles of here that are given away, '#'
    std::array<int, part_count> so_many_{}; // objects of each part so far on this map
    int npcs_ = 0, chests_ = 0;
};

void Population::join(int a, Gate from_a, int b, Gate from_b) {
    if (std::min(region_of(a), region_of(b)) >= rich_regions) {
        from_a = narrowed(from_a);
        from_b = narrowed(from_b);
    }
    add_way(objects(a), from_a, b, from_b.landing);
    add_way(objects(b), from_b, a, from_a.landing);
}

/// Roads lead from a town through its forest to the next town; the castle lies north of the town
/// and the cave south of the forest, and every house door leads to a room of its own.
void Population::join_region(int town) {
    const int forest = town + 1, cave = town + 2, castle = town + 3, interior = town + 4;
    const int next = exists(town + kind_count) ? town + kind_count : demo_map::town;
    if (exists(forest)) {
        join(town, site(town).edge(Facing::right), forest, site(forest).edge(Facing::left));
        join(forest, site(forest).edge(Facing::right), next, site(next).edge(Facing::left));
    }
    if (exists(cave))
        join(forest, site(forest).edge(Facing::down), cave, site(cave).doors.front());
    if (exists(castle)) {
        join(town, site(town).edge(Facing::up), castle, site(castle).edge(Facing::down));
        if (site(cave).doors.size() > 1 && site(castle).doors.size() > 1) // a secret passage
            join(cave, site(cave).doors.back(), castle, site(castle).doors.back());
    }
    const std::size_t houses = region_of(town) < rich_regions ? houses_of_rich : houses_of_poor;
    if (exists(interior))
        for (std::size_t i = 0;
             i < std::min({houses, site(town).doors.size(), site(interior).doors.size()}); ++i)
            join(town, site(town).doors[i], interior, site(interior).doors[i]);
}

bool Population::fits(const Post& post, int x, int y) const {
    const int at_x = x + post.dx, at_y = y + post.dy;
    if (at_x < 0 || at_y < 0 || at_x >= here_->floor.width || at_y >= here_->floor.height ||
        (!post.shared && taken_.is(at_x, at_y, "#")) || here_->open(at_x, at_y) == post.in_wall)
        return false;
    if (post.letter == '*')
        return true;
    if (post.letter == '^')
        return !here_->open(x, y - 1) && (!here_->open(x - 1, y) || !here_->open(x + 1, y));
    return here_->plan.is(x, y, std::string_view(&post.letter, 1));
}

void Population::place(const Post& post, int map, int x, int y) {
    if (post.part == Part::chest && chests_ == most_chests)
        return;
    taken_.at(x, y) = '#';
    if (post.part == Part::chest)
        return put_chest(map, x, y);
    int& so_many = so_many_[static_cast<std::size_t>(post.part)];
    const int script = scenes_.script_of(post.part, map, so_many++);
    if (static_cast<int>(post.part) < npc_parts)
        put_npc(post, map, x, y, script);
    else
        objects(map).triggers.push_back({x, y, script});
}

void Population::put_chest(int map, int x, int y) {
    using enum Contents;
    static constexpr Contents contents[] = {item,    item,  money, item,
                                            monster, empty, money, unknown};
    const int value = random_.between(1, 99);
    objects(map).chests.push_back({x, y, chests_, contents[chests_ % 8], value});
    ++chests_;
}

void Population::put_npc(const Post& post, int map, int x, int y, int script) {
    const Look& style = look(post.part);
    const int dress = pick(style.dresses, random_);
    const int hair = pick(style.hairs, random_);
    const int palette = pick(style.palettes, random_);
    Npc npc{x,
            y,
            style.first + 8 * dress + hair,
            palette,
            script,
            post.facing,
            style.movement,
            style.speed,
            npcs_++ % 1024};
    npc.walk_over = post.part == Part::crystal;
    npc.walk_under = post.part == Part::bat;
    npc.vehicle = post.part == Part::traveller; // on a Runbird
    npc.turns_to_talk = style.movement != 4 && post.part != Part::crystal;
    objects(map).npcs.push_back(npc);
}

void Population::man(const Post& post, int map) {
    const int area = here_->floor.width * std::min(here_->floor.height, 64);
    int wanted = std::clamp(post.most * area / full_area, 1, post.most * 2);
    std::vector<Place> places;
    for (int y = 0; y < here_->floor.height; ++y)
        for (int x = 0; x < here_->floor.width; ++x)
            if (fits(post, x, y))
                places.push_back({x + post.dx, y + post.dy});
    for (; wanted > 0 && !places.empty(); --wanted) {
        const auto at = places.begin() + random_.below(static_cast<int>(places.size()));
        place(post, map, at->x, at->y);
        places.erase(at);
    }
}

/// Doors of houses that lead nowhere tell so.
void Population::lock_doors(int map) {
    for (const Gate& door : here_->doors)
        if (here_->plan.is(door.first.x, door.first.y, "_") &&
            !taken_.is(door.first.x, door.first.y, "#"))
            place({Kind::town, Part::door, '_', 0, 0, 1}, map, door.first.x, door.first.y);
}

void Population::fill(int map) {
    here_ = &site(map);
    so_many_ = {};
    taken_ = Plan(here_->floor.width, here_->floor.height, '.');
    for (const Entrance& way : objects(map).entrances)
        taken_.rect(way.x, way.y - 1, 1, 3, '#');
    for (const LongEntrance& way : objects(map).long_entrances)
        taken_.rect(way.first.x, way.first.y, way.down ? 1 : way.length + 1,
                    way.down ? way.length + 1 : 1, '#');
    if (here_->outdoors)
        lock_doors(map);
    for (const Post& post : posts())
        if (static_cast<int>(post.kind) == kind_of(map))
            man(post, map);
}

} // namespace

void populate(std::span<MapObjects> maps, const Sites& sites, Scenes& scenes, Random& random) {
    Population population(maps, sites, scenes, random);
    const int count = static_cast<int>(maps.size());
    for (int town = demo_map::town; town < count; town += kind_count)
        population.join_region(town);
    for (int map = demo_map::town; map < count; ++map)
        population.fill(map);
}

} // namespace veldrune::demo
