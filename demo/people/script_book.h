#pragma once

#include "demo/people/dialogue_book.h"

namespace veldrune::demo {

/// The event scripts of the image, assembled from sources. Their words are separated by blanks:
///   7F 0050      a byte; two bytes, the lowest first
///   10[CE 82]    a queue; its number of bytes and the end of its actions are added
///   :name @name  a label of this source, and a pointer to it
///   ::name       a label that later sources can use, too
///   | text       a line of a dialogue; consecutive ones form one text, whose number is put here
class ScriptBook {
  public:
    ScriptBook(ImageWriter& writer, DialogueBook& dialogues)
        : writer_(writer), dialogues_(dialogues) {}
    /// The offset, from the first script on, of the script of a source, added at its first use.
    /// Throws std::length_error where there is no room, std::invalid_argument for an unknown word.
    int script(const std::string& source);

  private:
    struct Fixup {
        std::size_t at; // offset of the pointer in the script
        std::string name;
    };
    void assemble(std::string_view source);
    void assemble_word(std::string_view word);
    void put_dialogue(std::string_view text);
    void put_value(std::string_view digits);
    void resolve_fixups();

    ImageWriter& writer_;
    DialogueBook& dialogues_;
    std::map<std::string, int> shared_labels_, scripts_;
    int next_ = 0; // offset of the next script
    // While a source is assembled:
    Bytes bytes_;
    std::map<std::string, int> local_labels_;
    std::vector<Fixup> fixups_;
    std::size_t queue_ = 0; // offset of the byte count of the current queue
};

} // namespace veldrune::demo
