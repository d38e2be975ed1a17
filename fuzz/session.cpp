#include "session.h"

#include "editor/open_image.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"

namespace veldrune::test {
namespace {

constexpr int demo_size = rom_layout::image_size;

// The names that the dialogs give. Those after "b.smc" can't be had, or lead elsewhere.
const std::string file_names[] = {"a.smc",        "b.smc",    "c.smc",    "link.smc",    "lost.smc",
                                  "folder/d.smc", "held.smc", "ring.smc", "missing.smc", ""};

Bytes noise() {
    Bytes image(demo_size);
    Random(1).fill(image);
    return image;
}

// The demo image with random bytes in it.
Bytes damaged_demo(Choices& choices) {
    constexpr int damages[] = {0, 0, 20, 1000, 20000};
    Bytes image = demo_bytes();
    Random random = choices.bulk();
    for (int left = choices.of<int>(damages); left > 0; --left)
        image[static_cast<std::size_t>(random.below(demo_size))] = random.byte();
    return image;
}

// Gives most maps some objects, of any bytes.
void lay_out_objects(Bytes& image, Random random) {
    for (const KindPlace& place : kind_places) {
        std::size_t first = 0x400;
        for (std::size_t at = place.pointers; at < place.pointers + 2 * 415; at += 2) {
            put_word(image, at, first);
            first += static_cast<std::size_t>(random.below(60));
        }
    }
}

Bytes any_image(Choices& choices) {
    static const Bytes any_bytes = noise();
    switch (choices.below(10)) {
    case 0:
        return any_bytes;
    case 1:
        return Bytes(demo_size, 0x00);
    case 2:
        return Bytes(demo_size, 0xFF);
    default:
        return damaged_demo(choices);
    }
}

Bytes any_cut_image(Choices& choices) {
    Bytes image = any_image(choices);
    if (choices.one_in(3))
        lay_out_objects(image, choices.bulk());
    if (choices.one_in(5))
        image.resize(static_cast<std::size_t>(choices.below(demo_size)));
    if (choices.one_in(8))
        image.resize(rom_layout::expanded_image_size);
    return image;
}

} // namespace

std::string any_text(Choices& choices) {
    static const std::string texts[] = {"",
                                        " ",
                                        "0",
                                        "5",
                                        "16",
                                        "32",
                                        "48",
                                        "64",
                                        "128",
                                        "272",
                                        "83",
                                        "84",
                                        "85",
                                        "255",
                                        "2147483647",
                                        "-1",
                                        "99999999",
                                        "FFFFFFFF",
                                        "80000000",
                                        "7FFFFFFF",
                                        "400000",
                                        "3FFFFF",
                                        "19D3B0",
                                        "19d3b0",
                                        "310200",
                                        "3A0000",
                                        "0",
                                        "1G",
                                        "x",
                                        "1EE0:7",
                                        "1F:7",
                                        "3:5",
                                        "1EE0:8",
                                        "::::",
                                        "72",
                                        "73",
                                        "A0200",
                                        "0A0200",
                                        "FE",
                                        "D5",
                                        "F9",
                                        "E0",
                                        "3D",
                                        "48",
                                        "4B",
                                        "B6",
                                        "BE",
                                        "C1",
                                        "80",
                                        "FF",
                                        "66",
                                        "0102",
                                        "0A0200\r\nA0201",
                                        "A0200 A0201"};
    if (!choices.one_in(5))
        return choices.of<std::string>(texts);
    std::string text(static_cast<std::size_t>(choices.below(40)), ' ');
    for (char& c : text)
        c = static_cast<char>(choices.byte());
    return text;
}

void RandomDialogs::add(Event::Kind kind, const std::string& text, bool agreed) {
    events.push_back({kind, text, agreed, disk_.accesses.size()});
}

void RandomDialogs::message(MessageKind kind, const std::string& text, const std::string&) {
    add(kind == MessageKind::error    ? Event::error
        : kind == MessageKind::number ? Event::number
                                      : Event::note,
        text, true);
}

bool RandomDialogs::question(const std::string& text) {
    add(Event::question, text, !choices_.one_in(3));
    return events.back().agreed;
}

std::optional<std::string> RandomDialogs::open_file_name(const std::string&) {
    // Mostly one of the two images.
    const std::string& name =
        choices_.one_in(2) ? choices_.of<std::string>(file_names) : file_names[choices_.below(2)];
    add(Event::file_name, name, !name.empty());
    return name.empty() ? std::nullopt : std::optional(name);
}

bool RandomDialogs::said(Event::Kind kind, const std::string& words) const {
    return std::ranges::any_of(events, [&](const Event& event) {
        return event.kind == kind && event.agreed && event.text.find(words) != std::string::npos;
    });
}

Session::Session(Choices& source) : choices(source) {
    disk["a.smc"] = any_cut_image(choices);
    disk["b.smc"] = any_cut_image(choices);
    disk["held.smc"] = disk["folder/d.smc"] = Bytes(0x100);
    disk.links = {{"link.smc", "b.smc"}, {"lost.smc", "none.smc"}, {"ring.smc", "ring.smc"}};
    disk.unwritable = {"held.smc", "folder"};
    open_image_file(state, "a.smc");
}

} // namespace veldrune::test
