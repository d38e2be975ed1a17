#include "demo/people/item_names.h"

#include "demo/assets/names/items.h"

#include <string>

namespace veldrune::demo {

void write_item_names(ImageWriter& writer) {
    std::int32_t next = rom_layout::item_names;
    for (const std::string_view line : assets::items) {
        if (is_note(line))
            continue;
        std::string name(line);
        name.resize(rom_layout::item_name_size, ' ');
        for (const char letter : name)
            writer.put_byte(next++, item_letter_code(letter));
    }
}

} // namespace veldrune::demo
