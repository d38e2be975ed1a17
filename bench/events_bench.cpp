// Scripts of 1000 and 10000 bytes: loading, normalising all commands, encoding; a script of the
// longest dialogues; and the wrapping of the longest text. bytes_per_second shows whether the cost
// grows faster than the script.

#include "dialogue/dialogue_text.h"
#include "events/script_decoder.h"
#include "events/script_encoder.h"
#include "image_file.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

namespace veldrune {
namespace {

enum class Kind { mixed, bare, dialogues, queues, cut };

// A script of this many bytes. cut: nearly every byte is an FE that is an argument.
std::vector<std::uint8_t> make_script(Kind kind, std::size_t size) {
    // clang-format off
    const std::vector<std::vector<std::uint8_t>> pieces[] = {
        {{0x3D, 7}, {0x38}, {0x4B, 1, 0}, {0x84, 1, 2}, {0x6A, 5, 0, 1, 2, 0}, {0xB2, 1, 2, 3},
         {5, 8, 0x80, 0x81, 0xD5, 1, 2, 0xE0, 3, 0xFF}, {0x73, 1, 2, 2, 3, 1, 2, 3, 4, 5, 6},
         {0xBE, 2, 1, 2, 3, 4, 5, 6}, {0xC1, 1, 0, 2, 0, 3, 0, 0}, {0x55, 0xA5}},
        {{0x38}},
        {{0x4B, 1, 0}},
        {{5, 5, 0x80, 0x81, 0x82, 0x83, 0xFF}},
        {{0x73, 0xFE, 0xFE, 15, 17}},
    };
    // clang-format on
    std::mt19937 random(1);
    const auto& choice = pieces[static_cast<std::size_t>(kind)];
    std::vector<std::uint8_t> script;
    for (;;) {
        std::vector<std::uint8_t> piece = choice[random() % choice.size()];
        if (kind == Kind::cut)
            piece.resize(5 + 255, 0xFE);
        if (kind == Kind::dialogues) { // hardly any number twice
            piece[1] = static_cast<std::uint8_t>(random());
            piece[2] = static_cast<std::uint8_t>(random() % 12);
        }
        if (script.size() + piece.size() >= size)
            break;
        script.insert(script.end(), piece.begin(), piece.end());
    }
    script.resize(size - 1, 0x38);
    script.push_back(0xFE);
    return script;
}

// An image with the script and a dialogue of 120 letters.
std::vector<std::uint8_t> script_image(const benchmark::State& bench) {
    std::vector<std::uint8_t> image(0x100000, 0);
    const auto script =
        make_script(static_cast<Kind>(bench.range(0)), static_cast<std::size_t>(bench.range(1)));
    std::copy(script.begin(), script.end(), image.begin() + 0x30000);
    std::fill_n(image.begin() + 0xD0200, 120, std::uint8_t{0x21});
    for (std::size_t i = 5; i < 120; i += 6)
        image[0xD0200 + i] = 0x7F;
    return image;
}

struct ScriptFile {
    ImageFile file;
    std::unique_ptr<FileLayer> disk = make_disk();
    RomImage rom{*disk};
    ScriptGrid grid;
    SilentDialogs dialogs;

    explicit ScriptFile(const benchmark::State& bench) : file(script_image(bench)) {
        rom.open(file.path);
        load();
    }
    void load() { load_script(rom, 0x30000, false, grid); }
    void normalise() {
        for (int row = 1; starts_command(grid, row); row = command_end(grid, row))
            normalise_command(grid, row, dialogs);
    }
};

void count_bytes(benchmark::State& bench) {
    bench.SetBytesProcessed(bench.iterations() * bench.range(1));
}

void load_a_script(benchmark::State& bench) {
    ScriptFile file(bench);
    for (auto _ : bench)
        file.load();
    count_bytes(bench);
}

void normalise_a_script(benchmark::State& bench) {
    ScriptFile file(bench);
    for (auto _ : bench)
        file.normalise();
    count_bytes(bench);
}

void encode_a_script(benchmark::State& bench) {
    ScriptFile file(bench);
    for (auto _ : bench)
        benchmark::DoNotOptimize(encode_script(file.grid, file.dialogs));
    count_bytes(bench);
}

// 3333 dialogues of 4096 bytes, none of which is another one: all of one byte, or any bytes but the
// end. The reference is a plain copy of as much text.
std::vector<std::uint8_t> image_of_longest_dialogues(std::uint8_t byte) {
    constexpr int count = 3333;
    std::vector<std::uint8_t> image(0x110000, byte);
    std::mt19937 random(1);
    if (byte == 0)
        std::ranges::generate(image, [&] { return static_cast<std::uint8_t>(random() % 255 + 1); });
    for (int n = 0; n < count; ++n) {
        const auto put_word = [&](std::size_t at, int word) {
            image[at] = static_cast<std::uint8_t>(word);
            image[at + 1] = static_cast<std::uint8_t>(word >> 8);
        };
        const auto at = static_cast<std::size_t>(n);
        image[0x30000 + 3 * at] = 0x4B;
        put_word(0x30000 + 3 * at + 1, n);
        put_word(0xCE802 + 2 * at, 0x1000 + n);
    }
    image[0x30000 + 3 * count] = 0xFE;
    return image;
}

void load_the_longest_dialogues(benchmark::State& bench) {
    const ImageFile file(image_of_longest_dialogues(static_cast<std::uint8_t>(bench.range(0))));
    const std::unique_ptr<FileLayer> disk = make_disk();
    RomImage rom(*disk);
    rom.open(file.path);
    ScriptGrid grid;
    for (auto _ : bench)
        load_script(rom, 0x30000, false, grid);
    std::size_t text = 0;
    for (const ScriptRow& row : grid)
        text += row.cells[explanation].size();
    bench.counters["text"] = static_cast<double>(text);
}

void copy_as_much_text(benchmark::State& bench) {
    const std::string text(max_dialogue_bytes * static_cast<std::size_t>(bench.range(0)), 'A');
    std::vector<std::string> copies;
    for (auto _ : bench) {
        copies.clear();
        for (int n = 0; n < 3333; ++n)
            copies.push_back(text);
        benchmark::DoNotOptimize(copies.data());
    }
}

// 4096 bytes of six letters each: one word, words of five letters, words that fit no line.
void wrap_the_longest_text(benchmark::State& bench) {
    std::string text(max_dialogue_bytes * 6, 'A');
    if (bench.range(0) != 0)
        for (auto at = static_cast<std::size_t>(bench.range(0)); at < text.size();
             at += static_cast<std::size_t>(bench.range(0)) + 1)
            text[at] = ' ';
    for (auto _ : bench)
        benchmark::DoNotOptimize(wrap_dialogue(text));
}

BENCHMARK(load_a_script)
    ->ArgsProduct({{0, 1, 2, 3, 4}, {1000, 10000}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(normalise_a_script)
    ->ArgsProduct({{0, 1, 2, 3, 4}, {1000, 10000}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(encode_a_script)
    ->ArgsProduct({{0, 1, 2, 3, 4}, {1000, 10000}})
    ->Unit(benchmark::kMicrosecond);
// Any bytes, a line break, "MOROSE", "> ", "A", "e ".
BENCHMARK(load_the_longest_dialogues)
    ->Arg(0)
    ->Arg(0x01)
    ->Arg(0x05)
    ->Arg(0x15)
    ->Arg(0x20)
    ->Arg(0x80)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(copy_as_much_text)->Arg(1)->Arg(2)->Arg(6)->Unit(benchmark::kMillisecond);
BENCHMARK(wrap_the_longest_text)->Arg(0)->Arg(5)->Arg(40)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veldrune
