// Scripts of 1000 and 10000 bytes: loading, normalising all commands, encoding; a script of the
// longest dialogues; and the wrapping of the longest text. bytes_per_second shows whether the cost
// grows faster than the script.

#include "demo/demo_image.h"
#include "dialogue/dialogue_text.h"
#include "events/script_decoder.h"
#include "events/script_encoder.h"
#include "figures.h"
#include "image_file.h"
#include "rom/rom_layout.h"

#include <algorithm>
#include <random>

namespace veldrune::bench {
namespace {

constexpr std::size_t script_at = 0x30000;

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
std::vector<std::uint8_t> script_image(Kind kind, std::size_t size) {
    std::vector<std::uint8_t> image(0x100000, 0);
    const auto script = make_script(kind, size);
    std::copy(script.begin(), script.end(), image.begin() + script_at);
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

    explicit ScriptFile(std::span<const std::uint8_t> image) : file(image) {
        rom.open(file.path);
        load();
    }
    void load() { load_script(rom, script_at, false, grid); }
    void normalise() {
        for (int row = 1; starts_command(grid, row); row = command_end(grid, row))
            normalise_command(grid, row, dialogs);
    }
    void encode() { use(encode_script(grid, dialogs)); }
};

MakeWork on_script(const std::vector<std::uint8_t>& image, void (ScriptFile::*step)()) {
    return [=]() -> Work {
        const auto file = std::make_shared<ScriptFile>(image);
        return [=] { (file.get()->*step)(); };
    };
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
        image[script_at + 3 * at] = 0x4B;
        put_word(0x30000 + 3 * at + 1, n);
        put_word(0xCE802 + 2 * at, 0x1000 + n);
    }
    image[script_at + 3 * count] = 0xFE;
    return image;
}

// The same number of dialogues, each of them the longest text of the demo again and again.
std::vector<std::uint8_t> image_of_demo_dialogues() {
    const std::vector<std::uint8_t> demo = demo::make_demo_image();
    const ImageFile file(demo);
    const std::unique_ptr<FileLayer> disk = make_disk();
    RomImage rom(*disk);
    rom.open(file.path);
    int longest = 0;
    std::size_t length = 0;
    for (int n = 0; n < rom_layout::first_dialogue_of_second_bank; ++n)
        if (const std::size_t size = read_dialogue_text(rom, false, n).text.size(); size > length) {
            longest = n;
            length = size;
        }
    std::vector<std::uint8_t> image = image_of_longest_dialogues(0x20);
    const std::int64_t at =
        rom_layout::dialogues + rom.read_word(rom_layout::dialogue_pointers + 2 * longest);
    std::vector<std::uint8_t> text(max_dialogue_bytes);
    rom.read(at, text);
    const auto end = std::ranges::find(text, std::uint8_t{0});
    for (auto next = end; next != text.end(); ++next)
        *next = *(next - (end - text.begin()));
    for (const std::size_t bank : {rom_layout::dialogues, rom_layout::dialogues_2})
        std::ranges::copy(text, image.begin() + static_cast<std::ptrdiff_t>(bank) + 0x1000);
    for (std::size_t n = 0; n < 3333; ++n)
        image[rom_layout::dialogue_pointers + 2 * n] = 0x00,
                                                  image[rom_layout::dialogue_pointers + 2 * n + 1] =
                                                      0x10;
    return image;
}

// 3333 texts of so many letters.
Work copy_as_much_text(std::size_t letters) {
    return
        [text = std::string(letters, 'A'), copies = std::make_shared<std::vector<std::string>>()] {
            copies->clear();
            for (int n = 0; n < 3333; ++n)
                copies->push_back(text);
            use(*copies);
        };
}

// 4096 bytes of six letters each, a blank after every so many of them.
Work wrap_the_longest_text(std::size_t word) {
    std::string text(max_dialogue_bytes * 6, 'A');
    for (std::size_t at = word; at < text.size(); at += word + 1)
        text[at] = ' ';
    return [=] { use(wrap_dialogue(text)); };
}

} // namespace

void add_event_figures(Figures& figures) {
    const auto add = [&](const std::string& name, double milliseconds, const MakeWork& work) {
        figures.figures.push_back({name, {Goal::milliseconds, milliseconds}, work});
    };
    struct KindRow {
        const char* name;
        Kind kind;
        double load, normalise, encode; // milliseconds at most
    };
    constexpr KindRow kinds[] = {
        {", commands of all kinds", Kind::mixed, 0.7, 0.5, 0.2},
        {", commands of one byte", Kind::bare, 0.7, 0.6, 0.2},
        {", dialogues", Kind::dialogues, 4.5, 0.4, 0.2},
        {", queues", Kind::queues, 1, 0.6, 0.2},
        {", bytes FE", Kind::cut, 0.5, 0.2, 0.3},
    };
    for (const KindRow& row : kinds) {
        const auto image = script_image(row.kind, 10000);
        add(std::string("load a script of 10000 bytes") + row.name, row.load,
            on_script(image, &ScriptFile::load));
        add(std::string("normalise it") + row.name, row.normalise,
            on_script(image, &ScriptFile::normalise));
        add(std::string("encode it") + row.name, row.encode, on_script(image, &ScriptFile::encode));
        figures.growths.push_back(
            {std::string("load a script") + row.name, {1250, 2500, 5000, 10000}, [row](int size) {
                 return on_script(script_image(row.kind, static_cast<std::size_t>(size)),
                                  &ScriptFile::load)();
             }});
    }
    struct TextRow {
        const char* name;
        std::uint8_t byte;
        std::size_t letters; // of the byte
    };
    constexpr TextRow texts[] = {
        {", any bytes", 0x00, 2}, {", line breaks", 0x01, 2}, {", names", 0x05, 6},
        {", options", 0x15, 2},   {", letters", 0x20, 1},     {", words", 0x80, 2},
    };
    for (const TextRow& row : texts)
        figures.figures.push_back(
            {std::string("load 3333 texts of 4096 bytes") + row.name,
             {Goal::milliseconds, 100},
             on_script(image_of_longest_dialogues(row.byte), &ScriptFile::load),
             "copying them",
             [row] { return copy_as_much_text(row.letters * max_dialogue_bytes); }});
    add("load 3333 texts of 4096 bytes, of the demo", 100,
        on_script(image_of_demo_dialogues(), &ScriptFile::load));
    for (const std::size_t word : {5u, 40u})
        add("wrap a text of words of " + std::to_string(word) + " letters", 0.03,
            [=] { return wrap_the_longest_text(word); });
}

} // namespace veldrune::bench
