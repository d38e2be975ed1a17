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
    /// The number of a text, which is added at its first use. Lines end with "\n", an option begins
    /// with "> ". Throws std::length_error where there is no room or no number left.
    int number(std::string_view text);
    /// Fills the unused numbers by repeating the texts of their bank.
    void repeat_entries();

  private:
    struct Bank {
        std::int32_t start;
        int first, end; // numbers
        int count = 0;  // of numbers in use
        int size = 0;   // bytes
    };
    ImageWriter& writer_;
    std::array<Bank, 2> banks_{
        {{rom_layout::dialogues, 0, rom_layout::first_dialogue_of_second_bank},
         {rom_layout::dialogues_2, rom_layout::first_dialogue_of_second_bank,
          rom_layout::dialogue_count}}};
    std::map<std::string, int, std::less<>> numbers_;
};

/// Encodes a text in the game's code, always with the code of the longest piece, and adds the end
/// mark. Throws std::invalid_argument for a letter that has no code.
Bytes encode_dialogue(std::string_view text);

} // namespace veldrune::demo
