#include "inspect/listing.h"

#include "rom/number_text.h"

namespace veldrune::inspect {

std::string cell_text(const Cell& cell, CellForm form) {
    const auto number = [&](std::int64_t value) {
        return form == CellForm::hexadecimal ? format_hex(value) : std::to_string(value);
    };
    switch (cell.kind) {
    case Cell::number:
        return number(cell.value);
    case Cell::hex_number:
        return format_hex(cell.value);
    case Cell::numbers: {
        if (!cell.text.empty())
            return cell.text;
        std::string text;
        for (const std::int64_t value : cell.values)
            (text += text.empty() ? "" : form == CellForm::size ? "x" : " ") += number(value);
        return text;
    }
    default:
        return cell.text;
    }
}

} // namespace veldrune::inspect
