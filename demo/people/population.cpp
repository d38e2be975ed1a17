#include "demo/people/population.h"

namespace veldrune::demo {
namespace {

constexpr int full_area = 64 * 32; // tiles that PlacementRule::max_count refers to
// Only these have wide gates and many houses: the entrance tables have no room for more.
constexpr int detailed_regions = 44;
constexpr std::size_t houses_in_detailed = 7, houses_elsewhere = 2;
constexpr int max_chests = 440;

int pick(std::string_view digits, Random& random) {
    return digits[static_cast<std::size_t>(random.below(static_cast<int>(digits.size())))] - '0';
}

void add_entrance(MapObjects& from, const Gate& gate, int map, Place landing) {
    const Entrance way{gate.first.x, gate.first.y, map, landing.x, landing.y};
    if (gate.length == 0)
        from.entrances.push_back(way);
    else
        from.long_entrances.push_back({way, gate.length, gate.down});
}

// The gate reduced to the one tile in front of its landing.
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

    void connect_region(int town);
    void fill(int map);

  private:
    const Site& site(int map) const { return site_of(sites_, map); }
    MapObjects& objects(int map) { return maps_[static_cast<std::size_t>(map)]; }
    bool exists(int map) const { return map < static_cast<int>(maps_.size()); }
    // Makes entrances from each gate to the other.
    void connect(int a, Gate from_a, int b, Gate from_b);
    bool fits(const PlacementRule& rule, int x, int y) const;
    void place_all(const PlacementRule& rule, int map);
    void lock_doors(int map);
    void place(const PlacementRule& rule, int map, int x, int y);
    void put_chest(int map, int x, int y);
    void put_npc(const PlacementRule& rule, int map, int x, int y, int script);

    std::span<MapObjects> maps_;
    const Sites& sites_;
    Scenes& scenes_;
    Random& random_;
    const Site* current_site_ = nullptr;
    Plan occupied_{1, 1, '.'};                  // the tiles of current_site_ in use, '#'
    std::array<int, role_count> role_counts_{}; // objects of each role on this map so far
    int npcs_ = 0, chests_ = 0;
};

void Population::connect(int a, Gate from_a, int b, Gate from_b) {
    if (std::min(region_of(a), region_of(b)) >= detailed_regions) {
        from_a = narrowed(from_a);
        from_b = narrowed(from_b);
    }
    add_entrance(objects(a), from_a, b, from_b.landing);
    add_entrance(objects(b), from_b, a, from_a.landing);
}

// From a town a road leads through its forest to the next town. The castle is north of the town,
// the cave south of the forest. Every house door leads to a different room.
void Population::connect_region(int town) {
    const int forest = town + 1, cave = town + 2, castle = town + 3, interior = town + 4;
    const int next = exists(town + kind_count) ? town + kind_count : demo_map::town;
    if (exists(forest)) {
        connect(town, site(town).edge(Facing::right), forest, site(forest).edge(Facing::left));
        connect(forest, site(forest).edge(Facing::right), next, site(next).edge(Facing::left));
    }
    if (exists(cave))
        connect(forest, site(forest).edge(Facing::down), cave, site(cave).doors.front());
    if (exists(castle)) {
        connect(town, site(town).edge(Facing::up), castle, site(castle).edge(Facing::down));
        if (site(cave).doors.size() > 1 && site(castle).doors.size() > 1) // a secret passage
            connect(cave, site(cave).doors.back(), castle, site(castle).doors.back());
    }
    const std::size_t houses =
        region_of(town) < detailed_regions ? houses_in_detailed : houses_elsewhere;
    if (exists(interior))
        for (std::size_t i = 0;
             i < std::min({houses, site(town).doors.size(), site(interior).doors.size()}); ++i)
            connect(town, site(town).doors[i], interior, site(interior).doors[i]);
}

bool Population::fits(const PlacementRule& rule, int x, int y) const {
    const int at_x = x + rule.dx, at_y = y + rule.dy;
    if (at_x < 0 || at_y < 0 || at_x >= current_site_->floor.width ||
        at_y >= current_site_->floor.height || (!rule.shared && occupied_.is(at_x, at_y, "#")) ||
        current_site_->open(at_x, at_y) == rule.in_wall)
        return false;
    if (rule.letter == '*')
        return true;
    if (rule.letter == '^')
        return !current_site_->open(x, y - 1) &&
               (!current_site_->open(x - 1, y) || !current_site_->open(x + 1, y));
    return current_site_->plan.is(x, y, std::string_view(&rule.letter, 1));
}

void Population::place(const PlacementRule& rule, int map, int x, int y) {
    if (rule.role == Role::chest && chests_ == max_chests)
        return;
    occupied_.at(x, y) = '#';
    if (rule.role == Role::chest)
        return put_chest(map, x, y);
    int& count_so_far = role_counts_[static_cast<std::size_t>(rule.role)];
    const int script = scenes_.script_of(rule.role, map, count_so_far++);
    if (static_cast<int>(rule.role) < npc_role_count)
        put_npc(rule, map, x, y, script);
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

void Population::put_npc(const PlacementRule& rule, int map, int x, int y, int script) {
    const Look& style = look(rule.role);
    const int dress = pick(style.dresses, random_);
    const int hair = pick(style.hairs, random_);
    const int palette = pick(style.palettes, random_);
    Npc npc{x,
            y,
            style.first + 8 * dress + hair,
            palette,
            script,
            rule.facing,
            style.movement,
            style.speed,
            npcs_++ % 1024};
    npc.walk_over = rule.role == Role::crystal;
    npc.walk_under = rule.role == Role::bat;
    npc.vehicle = rule.role == Role::traveller; // on a Runbird
    npc.turns_to_talk = style.movement != 4 && rule.role != Role::crystal;
    objects(map).npcs.push_back(npc);
}

void Population::place_all(const PlacementRule& rule, int map) {
    const int area = current_site_->floor.width * std::min(current_site_->floor.height, 64);
    int wanted = std::clamp(rule.max_count * area / full_area, 1, rule.max_count * 2);
    std::vector<Place> places;
    for (int y = 0; y < current_site_->floor.height; ++y)
        for (int x = 0; x < current_site_->floor.width; ++x)
            if (fits(rule, x, y))
                places.push_back({x + rule.dx, y + rule.dy});
    for (; wanted > 0 && !places.empty(); --wanted) {
        const auto at = places.begin() + random_.below(static_cast<int>(places.size()));
        place(rule, map, at->x, at->y);
        places.erase(at);
    }
}

// A house door that leads nowhere gets a trigger with a scene about that.
void Population::lock_doors(int map) {
    for (const Gate& door : current_site_->doors)
        if (current_site_->plan.is(door.first.x, door.first.y, "_") &&
            !occupied_.is(door.first.x, door.first.y, "#"))
            place({Kind::town, Role::door, '_', 0, 0, 1}, map, door.first.x, door.first.y);
}

void Population::fill(int map) {
    current_site_ = &site(map);
    role_counts_ = {};
    occupied_ = Plan(current_site_->floor.width, current_site_->floor.height, '.');
    for (const Entrance& way : objects(map).entrances)
        occupied_.rect(way.x, way.y - 1, 1, 3, '#');
    for (const LongEntrance& way : objects(map).long_entrances)
        occupied_.rect(way.first.x, way.first.y, way.down ? 1 : way.length + 1,
                       way.down ? way.length + 1 : 1, '#');
    if (current_site_->outdoors)
        lock_doors(map);
    for (const PlacementRule& rule : placement_rules())
        if (static_cast<int>(rule.kind) == kind_of(map))
            place_all(rule, map);
}

} // namespace

void populate(std::span<MapObjects> maps, const Sites& sites, Scenes& scenes, Random& random) {
    Population population(maps, sites, scenes, random);
    const int count = static_cast<int>(maps.size());
    for (int town = demo_map::town; town < count; town += kind_count)
        population.connect_region(town);
    for (int map = demo_map::town; map < count; ++map)
        population.fill(map);
}

} // namespace veldrune::demo
