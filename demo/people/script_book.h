#pragma once

#include "demo/people/dialogue_book.h"

namespace veldrune::demo {

/// The event scripts of the image, from sources of lines; their words are parted by blanks:
///   7F 0050      a byte; two bytes, the lowest first
///   10[CE 82]    a queue: command, number of bytes, actions, their end
///   :name @name  a place in this source, and a pointer to it
///   ::name       a place that the sources after it know too
///   | text       a line of a dialogue, which ends with the last such line: its number
class ScriptBook {
  public:
    ScriptBook(ImageWriter& writer, DialogueBook& dialogues)
        : writer_(writer), dialogues_(dialogues) {}
    /// Where the script of a source begins, from the first script on; the same source keeps its
    /// place. Throws std::length_error where there is no room, std::invalid_argument for a word
    /// that means nothing.
    int script(const std::string& source);

  private:
    struct Hole {
        std::size_t at; // of a pointer, from the source's first byte on
        std::string name;
    };
    void assemble(std::string_view source);
    void assemble_word(std::string_view word);
    void put_dialogue(std::string_view text);
    void put_value(std::string_view digits);
    void fill_holes();

    ImageWriter& writer_;
    DialogueBook& dialogues_;
    std::map<std::string, int> places_, scripts_;
    int next_ = 0; // of the bytes of all scripts
    // While a source is read:
    Bytes bytes_;
    std::map<std::string, int> here_;
    std::vector<Hole> holes_;
    std::size_t queue_ = 0; // where the open queue's number of bytes stands
};

} // namespace veldrune::demo
