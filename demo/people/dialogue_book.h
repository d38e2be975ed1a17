#pragma once

#include "demo/image/image_writer.h"
#include "rom/rom_layout.h"

#include <array>
#include <map>
#include <string>
#include <string_view>

namespace veldrune::demo {

/// The dialogues of the image, in its two banks.
class DialogueBook {
  public:
    explicit DialogueBook(ImageWriter& writer) : writer_(writer) {}
    /// The number of a text; the same text keeps its number. Lines end with "\n", an option begins
    /// with "> ". Throws std::length_error where the texts or their numbers are too many.
    int number(std::string_view text);
    /// Lets the numbers that are left repeat the texts of their bank.
    void repeat_entries();

  private:
    struct Bank {
        std::int32_t start;
        int first, end; // numbers
        int count = 0;  // of numbers given away
        int size = 0;   // bytes
    };
    ImageWriter& writer_;
    std::array<Bank, 2> banks_{
        {{rom_layout::dialogues, 0, rom_layout::first_dialogue_of_second_bank},
         {rom_layout::dialogues_2, rom_layout::first_dialogue_of_second_bank,
          rom_layout::dialogue_count}}};
    std::map<std::string, int, std::less<>> numbers_;
};

/// A text in the game's code, each time by the code that stands for most of it, with the end mark.
/// Throws std::invalid_argument at a letter that has no code.
Bytes encode_dialogue(std::string_view text);

} // namespace veldrune::demo
