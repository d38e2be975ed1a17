#include "demo/people/scenes.h"

#include "demo/places/sites.h"
#include "events/command_table.h"

#include <cstdio>
#include <utility>

namespace veldrune::demo {
namespace {

/// A script of a part, in the words of ScriptBook and these: %f a number of the map, for a bit
/// that remembers what happened there; %i an item; %n a number of the object, 1 to 8; {town} and
/// {next} the names of its region's town and of the next one's.
struct Scene {
    Part part;
    const char* source;
};

using enum Part;

// clang-format off
constexpr const char* common_scripts[] = {
    "FE", // what has no scene of its own
    "::rest F4 2C F2 20 97 95 F0 0A 3C 00 01 02 03 88 00 FF FF 88 01 FF FF 96 59 04 FE",
    "::found F4 8D 30[1D DC E0 08 CE] 4B`You found something!` FE",
    "::wrong F4 15 58 03 91 39 FE",
    "::quake 38 58 0B F4 2A 50 34 94 50 E4 58 00 39 FE",
    "3D FE 38 80 FE 10[E0 FE CE] 39 FE", // the end's value as an argument
    "::light 55 E5 92 56 86 92 57 86 FE",
};
constexpr Scene scenes[] = {
    {guard, "C0 %f 86 @known 10[CE E0 04] 4B`Halt! State your name and your business in {town}.\n> VARNA. We are travellers.\n> That is our own business.` B6 @name @rude FE :name DC %f 4B`Welcome, then. Keep your blades in their sheaths.` FE :rude B2 @wrong 4B`Then take it elsewhere.` FE :known 4B`Good to see you again, VARNA.` FE"},
    {guard, "4B`All quiet on the road to {next}. Too quiet, if you ask me...` FE"},
    {guard, "10[CC E0 10 CE] 4B`Eight hours on my feet, and nobody but geese to arrest!` FE"},
    {merchant, "4B`Welcome to the market of {town}! What can I do for you?\n> Show me your wares.\n> What's new?\n> Nothing, thanks.` B6 @shop @news @bye FE :shop 9B 0%n 96 FE :news C1 %f 80 10 02 @old 4B`They say that a light burns in the cave south of the forest, night after night.` D0 %f FE :old 4B`No news but the price of flour, and you don't want to hear it.` FE :bye 4B`Come back any time!` FE"},
    {merchant, "4B`Pears! Plums! Three for 10 GP!\n> I'll take three.\n> Maybe later.` B6 @buy @no FE :buy 85 000A 80 %i F4 0E 4B`There you are. Mind the wasps!` FE :no 4B`They won't get any fresher!` FE"},
    {innkeeper, "4B`A bed for the night is 80 GP.\n> Yes, please.\n> No, thanks.` B6 @stay @no FE :stay 85 0050 4B`Sleep well!` B2 @rest 4B`Good morning! There is fresh bread on the table.` FE :no 4B`As you wish. Mind the step.` FE"},
    {innkeeper, "C0 %f 80 @known 4B`You have the look of someone who has walked from {next} in one day. Sit down, the soup is on the house.` D0 %f B2 @rest FE :known 4B`Soup again? That will be 5 GP, my dear.` 85 0005 FE"},
    {villager, "4B`{town} is a quiet place. I like it that way.` FE"},
    {villager, "4B`The road leads through the woods, all the way to {next}. Stay on it after dark.` FE"},
    {villager, "4B`Have you met FAELA? She came through with ORMOND and LISK last spring, and the children still talk about the fireworks.` FE"},
    {villager, "C0 %f 82 @again 4B`Good day! You look tired.\n> A little.\n> Not at all!` B6 @tired @fit D4 %f FE :tired 4B`Then ask for a bed. The inn is behind one of these doors.` FE :fit 4B`Ah, to be young...` FE :again 4B`Still here? Good, good.` FE"},
    {villager, "4B`My grandmother used to say: \"Who drinks from the well of {town} will come back to it.\" She never left, so who knows?` FE"},
    {villager, "BE 03 @one @two @many FE :one 4B`All alone? Be careful out there.` FE :two 4B`Two of you! Twice the trouble.` FE :many 4B`What a crowd! Is there a fair?` FE"},
    {child, "4B`Catch me if you can!` 10[C3 C5 81 82 83 80 DC CE] FE"},
    {child, "B0 03 10[DC E0 04] 91 B1 4B`Did you see how high I can jump?` FE"},
    {child, "4B`When I grow up, I'll be a knight. Or a baker. Or a knight who bakes!` FE"},
    {elder, "C0 %f 80 @told C2 %f 81 10 82 11 82 @half 4B`Long ago, before {town} had a name, a star fell into the hills. Where it lay, stones began to glow, and the beasts grew strange.\n> Go on.\n> Another time.` B6 @more @half FE :more D0 %f 4B`A king had the star locked away under his castle. My father's father carried one end of the chest, and he never spoke again... But he hummed.` FE :half 4B`Yes, yes. Run along.` D2 %f FE :told C0 20 80 @again 4B`You listened well. Look for a passage that nobody guards.` D0 20 FE :again 4B`Hm, hmm, hmmm...` FE"},
    {king, "C0 %f 83 @done C0 %f 82 @wait 4B`Travellers! Something stirs in the cave south of the forest. Will you look into it?\n> We will.\n> We have no time for this.` B6 @yes @no FE :yes D4 %f 80 %i F4 8D 4B`Then take this, and be careful. {town} counts on you.` FE :no 10[C1 CC E0 20 CE] 4B`A pity. The door is behind you.` FE :wait C1 %f 84 20 80 @found 4B`What news from the cave?` FE :found D6 %f 84 03E8 F0 1D 4B`So the star is still there! You have done well. Take these 1000 GP.` FE :done 4B`My castle is your castle.` FE"},
    {queen, "C0 %f 83 @done 4B`The king talks of monsters, but I worry about the harvest. Have you seen the fields of {town}?` FE :done 4B`You brought him a good night's sleep, and me as well.` FE"},
    {courtier, "4B`One does not run on the carpet!` FE"},
    {courtier, "4B`Between you and me: the armour in the corner moved last night. ...No, I had only two glasses!` FE"},
    {courtier, "7F 0E 0E 4B`Announcing... how do you spell that? YETTI? With two T's?` FE"},
    {knight, "10[C2 CF E0 08 CD E0 08 CE] 4B`I stand guard for the king. At night I stand guard for the kitchen.` FE"},
    {knight, "4B`A friendly bout, in all honour?\n> Draw!\n> I yield.` B6 @fight @no FE :fight 4D 12 05 96 B7 12 @won FE :won 4B`Well struck!` FE :no 4B`A wise choice.` FE"},
    {cook, "4B`Don't touch! It needs another hour. And more salt.` FE"},
    {cook, "C0 %f 81 @full 80 %i D2 %f F4 0E 4B`Here, a loaf for the road.` FE :full 4B`Another one? I'm not made of flour!` FE"},
    {scholar, "4B`These shelves hold everything that is known about the star... and two books about cheese.` FE"},
    {scholar, "4B`The word \"Veld\" means grass, and \"rune\" is a letter. So this land is a letter written in grass; or I should open a window.` FE"},
    {guest, "4B`I only came in for the soup. That was four years ago.` FE"},
    {guest, "10[CC E0 08 CE] 4B`Shh! I'm listening to the next table.` FE"},
    {traveller, "4B`I have come all the way from {next}. My shoes have come half of it.` FE"},
    {traveller, "4B`Something followed me through the trees. It had a very small hat.` FE"},
    {traveller, "C0 %f 85 @gone 4B`Will you trade? Your map for my story?\n> Tell me.\n> No deal.` B6 @tell @no FE :tell DA %f 4B`There is a way out of the cave that leads up, and up, and ends behind a throne.` FE :no FE :gone 4B`I told you all I know.` FE"},
    {hunter, "4B`The foxes here are clever. Yesterday one sold me a rabbit.` FE"},
    {hunter, "B4 1E 4B`...You scared it away. Forty minutes I lay in those nettles!` FE"},
    {miner, "10[1A E0 08 1B E0 08 1A E0 08 CE] 4B`Hear that? Hollow. There is another gallery behind it.` FE"},
    {miner, "C0 %f 81 @mined 4B`Lend me a hand with this rock?\n> Sure.\n> My back...` B6 @yes @no FE :yes D2 %f B2 @quake B2 @found 80 %i FE :no 4B`Mine too.` FE :mined 4B`Solid as a king's promise, this vein.` FE"},
    {hermit, "4B`I left {town} to be alone. You are the ninth visitor today.` FE"},
    {hermit, "D8 %f B2 @light 4B`Did you see it, too? The stones answer when one speaks kindly.` FE"},
    {pet, "F4 45 10[DC E0 06 CE] FE"},
    {pet, "F4 46 B0 02 10[CD CF] 91 B1 4B`...` FE"},
    {pet, "F4 47 10[C3 87 C6 85 C5] FE"},
    {wild, "F4 48 10[C4 84 D1] 45 FE"},
    {wild, "BD @flees 4D 0A 01 96 FE :flees 10[C4 A0 A4 D1] FE"},
    {bat, "4D 21 03 96 42 1%n FE"},
    {bat, "F4 52 10[C4 DD A2 A8 D1] 45 FE"},
    {crystal, "B2 @light 88 00 FF FF 8B 00 7F 8C 00 7F 4B`The glow makes you feel better.` FE"},
    {crystal, "C0 %f 84 @cold B2 @light D8 %f 86 38 4B`It hums in your hands, and then it knows your name.` FE :cold 4B`It is only a stone now.` FE"},
    {sign, "4B`{town}\nEast: the forest, and {next}\nNorth: the castle` FE"},
    {sign, "4B`Fresh pears at the market.\nNo horses on the grass.` FE"},
    {counter, "C0 %f 80 @known D0 %f F4 0E 4B`It smells of summer.` FE :known FE"},
    {well, "C0 %f 85 @dry 4B`Throw in a coin?\n> 1 GP\n> 100 GP\n> No` B6 @one @much @no FE :one 85 0001 F4 0C 4B`Plop.` FE :much 85 0064 DA %f F4 0C B5 02 B2 @light 80 %i 4B`Something comes up in the bucket!` FE :no FE :dry 4B`The water is dark and still.` FE"},
    {throne, "C0 %f 83 @seat 4B`His Majesty coughs. Perhaps you should not come any closer.` FE :seat F0 1D FE"},
    {bed, "4B`Lie down for a while?\n> Yes\n> No` B6 @rest @no FE :no FE"},
    {shelf, "C0 %f 84 @open 4B`One of the jars has no dust on it.\n> Turn it.\n> Leave it.` B6 @turn @no FE :turn B2 @quake 73 08 04 02 02 01 02 03 04 D8 %f 4B`Somewhere a wall has moved.` FE :no FE :open 74 08 04 02 01 01 02 75 FE"},
    {shelf, "F4 10 91 F4 10 4B`Tick... tock...` FE"},
    {hearth, "F4 3A 57 42 4B`The fire is warm.` FE"},
    {arrival, "C0 %f 83 @no D6 %f 38 5D 00 10 94 48`The air is different here.` 31[C2 82 E0 08 CF E0 10 CD E0 10 CE] 49 5D 00 F0 94 39 :no FE"},
    {arrival, "C0 %f 83 @no D6 %f F4 52 10[1F E0 10 20] 4B`What was that noise?` 3D 10 41 10 45 FE :no FE"},
    {arrival, "C3 %f 03 10 80 11 80 12 80 @no DE E1 D6 %f 3D 11 37 11 57 43 11 02 41 11 11[D5 08 08 C3 82 CE] 4B`Something small runs across your path.` 42 11 3E 11 45 :no FE"},
    {door, "F4 10 4B`The door is locked.` FE"},
    {door, "F4 11 92 F4 11 93 4B`Nobody seems to be at home.` FE"},
    {door, "C0 %f 81 @heard D2 %f 4B`\"Go away! We have all the brooms we need!\"` FE :heard 4B`...` FE"},
    {pool, "4B`The water is clear. Drink?\n> Yes\n> No` B6 @drink @no FE :drink F4 0C 88 00 FF FF 4B`Cold and sweet.` FE :no FE"},
    {glow, "B2 @light C0 %f 81 @seen D2 %f 86 36 4B`A faint music, and it is gone.` :seen FE"},
    {glow, "C8 %f 02 @no B2 @found 84 0064 D4 %f :no FE"},
};

constexpr const char* name_heads[] = {"Alder", "Brack", "Corn", "Dun", "Elm", "Fal", "Gor", "Hazel", "Ivy", "Kel", "Lin", "Mar"};
constexpr const char* name_tails[] = {"moor", "ford", "wick", "stead", "holm", "by", "mere"};
// clang-format on

std::string town_name(int region) {
    const int heads = static_cast<int>(std::size(name_heads));
    const int tails = static_cast<int>(std::size(name_tails));
    return std::string(name_heads[region % heads]) + name_tails[region % tails];
}

std::string hex(int value) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(value) & 0xFF);
    return digits;
}

void replace_all(std::string& text, std::string_view what, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
}

std::string bytes_from(int code, int count) {
    std::string words;
    for (int i = 0; i < count; ++i)
        words += ' ' + hex(scatter(code, i, 51, 0x20));
    return words;
}

/// A command as a source, with arguments of its kinds.
std::string sample(int code) {
    const ScriptCommand& command = script_command(static_cast<std::uint8_t>(code));
    if (command.is_queue())
        return hex(code) + "[CE E0 08 " + hex(0x80 + code % 0x2C) + "] ";
    std::string words = hex(code);
    bool counted = false;
    for (const Parameter& row : command.parameters())
        switch (row.kind) {
        case ParameterKind::word:
            words += bytes_from(code, 2);
            break;
        case ParameterKind::pointer:
            words += " @light";
            break;
        case ParameterKind::dialogue:
            words += code == 0x48 ? " 00 40" : " 00 80"; // the first text, with either mark
            break;
        case ParameterKind::low_nibble: // shares the byte of the high one
            break;
        case ParameterKind::map_data:
            words.resize(words.size() - 6); // the two sizes just sampled
            words += " 03 02" + bytes_from(code, 6);
            break;
        case ParameterKind::list_count:
            words += " 03";
            counted = true;
            break;
        case ParameterKind::offset_list:
            words =
                (counted ? words : "4B`Which one?\n> This one.\n> That one.\n> Both.` " + words) +
                " @light @quake @wrong";
            break;
        default:
            words += bytes_from(code, 1);
        }
    return words + ' ';
}

/// One of every command and of every queue action, a few a script.
void add_samples(ScriptBook& scripts) {
    constexpr int commands_of_one = 6, actions_of_one = 10;
    std::string source;
    for (int code = 0; code < 256; ++code) {
        if (code != return_command)
            source += sample(code);
        if (code % commands_of_one == commands_of_one - 1 || code == 255)
            scripts.script(std::exchange(source, {}) + "FE");
    }
    for (int code = 0; code < end_queue_action; ++code) {
        const bool branch = action_size(static_cast<std::uint8_t>(code)) == 4;
        source += source.empty() ? "10[" : " ";
        source += hex(code);
        source +=
            branch ? " @quake" : bytes_from(code, action_size(static_cast<std::uint8_t>(code)) - 1);
        if (code % actions_of_one == actions_of_one - 1 || code == end_queue_action - 1)
            scripts.script(std::exchange(source, {}) + " CE] FE");
    }
}

} // namespace

Scenes::Scenes(ScriptBook& scripts) : scripts_(scripts) {
    for (const char* source : common_scripts)
        scripts_.script(source);
    add_samples(scripts_);
}

int Scenes::script_of(Part part, int map, int nth) {
    std::vector<const char*> choices;
    for (const Scene& scene : scenes)
        if (scene.part == part)
            choices.push_back(scene.source);
    std::string source = choices[static_cast<std::size_t>(map / kind_count + nth) % choices.size()];
    const int region = region_of(map), last = region_of(rom_layout::map_count - 1);
    replace_all(source, "%f", hex(map));
    replace_all(source, "%i", hex(scatter(map, nth, 50, 232)));
    replace_all(source, "%n", std::to_string(1 + nth % 8));
    replace_all(source, "{town}", town_name(region));
    replace_all(source, "{next}", town_name(region == last ? 0 : region + 1));
    return scripts_.script(source);
}

} // namespace veldrune::demo
