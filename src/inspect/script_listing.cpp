#include "inspect/script_listing.h"

#include "events/script_decoder.h"
#include "inspect/dump.h"
#include "inspect/field_names.h"
#include "rom/number_text.h"

#include <algorithm>
#include <sstream>

namespace veldrune::inspect {
namespace {

// The number in a cell of the grid, or the numbers of a list, which has lines.
Cell value_cell(const std::string& cell) {
    std::vector<std::int64_t> values;
    std::istringstream words(cell);
    for (std::string word; words >> word;)
        values.push_back(static_cast<std::int64_t>(plain_hex(word).value_or(0)));
    if (values.empty())
        return {};
    return cell.find('\r') == std::string::npos ? Cell(HexNumber{values[0]})
                                                : Cell(std::move(values), cell.substr(1));
}

// Whether a command begins at an offset, and surely. Those of a script lie one after the other.
bool is_sure(std::span<const WalkedCommand> commands, std::int64_t offset) {
    const auto at = std::ranges::lower_bound(commands, offset, {}, &WalkedCommand::offset);
    return at != commands.end() && at->offset == offset && at->sure;
}

std::vector<Column> script_columns(bool with_bytes) {
    using enum CellForm;
    std::vector<Column> columns{{"at", "At", hexadecimal}};
    if (with_bytes)
        columns.push_back({"bytes", "Bytes", words});
    columns.insert(columns.end(), {{"command", "Command", words},
                                   {"value", "Value", words},
                                   {"argument", "Argument", words},
                                   {"explanation", "Explanation", words},
                                   certainty_column});
    return columns;
}

} // namespace

Listing list_scripts(const ImageReading& reading) {
    using enum CellForm;
    Listing listing{{{"script", "Script", hexadecimal},
                     {"length", "Bytes", decimal},
                     {"commands", "Commands", decimal},
                     {"objects", "From objects", decimal},
                     {"jumps", "From commands", decimal},
                     {"goes_on_at", "Goes on at", hexadecimal},
                     certainty_column},
                    {}};
    for (const WalkedScript& script : reading.scripts.scripts) {
        const auto pointers = reading.scripts.pointers_to(script.offset);
        const auto from = [&](ScriptPointer::From holder) {
            return std::ranges::count(pointers, holder, &ScriptPointer::from);
        };
        listing.rows.push_back(
            {script.offset, script.length ? Cell(*script.length) : Cell(), script.count,
             from(ScriptPointer::object), from(ScriptPointer::command),
             script.goes_on_at ? Cell(*script.goes_on_at) : Cell(), certainty(script.sure)});
    }
    return listing;
}

Listing list_script(const ImageReading& reading, std::int64_t offset, bool with_bytes) {
    const MemoryRom rom(reading.image);
    const WalkedScript* walked = reading.scripts.script_at(offset);
    ScriptGrid grid;
    const std::vector<RowBytes> rows =
        load_script(rom.rom(), offset, reading.dialogue_patched, grid).rows;
    Listing listing{script_columns(with_bytes), {}};
    bool sure = false; // of the present command
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const RowBytes& place = rows[i];
        const ScriptRow& row = grid[i + 1];
        const std::int64_t at = offset + place.at;
        if (starts_command(grid, static_cast<int>(i + 1))) {
            if (walked != nullptr && walked->goes_on_at == at) {
                std::vector<Cell> last(listing.columns.size());
                last[0] = at;
                last[last.size() - 2] = "goes on at " + format_hex(at);
                listing.rows.push_back(std::move(last));
                break;
            }
            sure = walked != nullptr && is_sure(reading.scripts.commands_of(*walked), at);
        }
        std::vector<Cell> cells{at};
        if (with_bytes)
            cells.push_back(hex_text(reading.image.at(at, place.size)));
        for (const ScriptColumn column : {primary, secondary, tertiary})
            cells.push_back(value_cell(row.cells[column]));
        cells.push_back(row.cells[explanation]);
        cells.push_back(certainty(sure));
        listing.rows.push_back(std::move(cells));
    }
    return listing;
}

} // namespace veldrune::inspect
