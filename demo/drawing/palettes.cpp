#include "demo/drawing/palettes.h"

#include "demo/assets/palettes/places.h"

namespace veldrune::demo {
namespace {

consteval std::array<Rgb, 120> rows_of(std::string_view kind) {
    return colours<120>(assets::places, kind);
}
constexpr std::array<Rgb, 120> kinds[] = {rows_of("town"), rows_of("forest"), rows_of("cave"),
                                          rows_of("castle"), rows_of("interior")};
static_assert(std::size(kinds) == kind_count);

consteval std::array<Rgb, 2> mood(std::string_view name) {
    return colours<2>(assets::places, name);
}
constexpr std::array<Rgb, 2> moods[] = {mood("plain"),        mood("evening"),     mood("night"),
                                        mood("cold_morning"), mood("late_summer"), mood("overcast"),
                                        mood("violet_dusk"),  mood("deep_shade"),  mood("haze")};
static_assert(std::size(moods) == mood_count);

} // namespace

PaletteColours palette(Kind kind, int mood) {
    const auto& own = kinds[static_cast<std::size_t>(kind)];
    const auto& [times, plus] = moods[static_cast<std::size_t>(mood)];
    const auto shift = [](int value, int sixteenths, int add) {
        return std::clamp((value * sixteenths + 8) / 16 + add, 0, 31);
    };
    PaletteColours colours{};
    for (std::size_t i = 0; i < own.size(); ++i)
        colours[16 * (i / 15) + 1 + i % 15] = {shift(own[i].r, times.r, plus.r),
                                               shift(own[i].g, times.g, plus.g),
                                               shift(own[i].b, times.b, plus.b)};
    return colours;
}

Pixel nearest_in_row(const PaletteColours& colours, Pixel pixel, int row) {
    const Rgb wanted = colours[pixel & 127u];
    std::pair<int, int> best{1 << 20, 0};
    for (int value = 1; value < 16; ++value) {
        const Rgb c = colours[static_cast<std::size_t>(16 * row + value)];
        const int dr = c.r - wanted.r, dg = c.g - wanted.g, db = c.b - wanted.b;
        best = std::min(best, {2 * dr * dr + 4 * dg * dg + 3 * db * db, value});
    }
    return ink(row, best.second);
}

std::uint16_t colour_word(Rgb c) {
    const int word = c.r | c.g << 5 | c.b << 10;
    return static_cast<std::uint16_t>(word != 0 ? word : 1 << 10);
}

} // namespace veldrune::demo
