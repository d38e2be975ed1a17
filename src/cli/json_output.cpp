#include "cli/json_output.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace veldrune::cli {
namespace {

using namespace inspect;
using Json = nlohmann::ordered_json;

// What UTF-8 characters of a length are: the bits that mark the first byte, and the lowest code.
struct Utf8Length {
    std::size_t bytes;
    unsigned mask;
    unsigned marked;
    unsigned lowest;
};
constexpr Utf8Length utf8_lengths[] = {
    {1, 0x80, 0x00, 0x0}, {2, 0xE0, 0xC0, 0x80}, {3, 0xF0, 0xE0, 0x800}, {4, 0xF8, 0xF0, 0x10000}};

unsigned byte_at(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

// The bytes of the character that a text begins with; 0 where that is none to be kept.
std::size_t kept_bytes(std::string_view text) {
    for (const Utf8Length& length : utf8_lengths) {
        if ((byte_at(text, 0) & length.mask) != length.marked)
            continue;
        unsigned code = byte_at(text, 0) & ~length.mask;
        for (std::size_t i = 1; i < length.bytes; ++i) {
            if ((byte_at(text, i) & 0xC0) != 0x80)
                return 0;
            code = code << 6 | (byte_at(text, i) & 0x3F);
        }
        const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
        const bool stands_for_byte = code >= 0xEF80 && code <= 0xEFFF;
        const bool kept = code >= length.lowest && code <= 0x10FFFF;
        return kept && !surrogate && !stands_for_byte ? length.bytes : 0;
    }
    return 0;
}

Json json_cell(const Cell& cell) {
    switch (cell.kind) {
    case Cell::nothing:
        return nullptr;
    case Cell::words:
        return utf8_text(cell.text);
    case Cell::numbers:
        return cell.values;
    default:
        return cell.value;
    }
}

std::string json_key(const Column& column) {
    std::string key = column.key;
    std::ranges::replace(key, '-', '_');
    return key;
}

} // namespace

std::string utf8_text(std::string_view bytes) {
    std::string text;
    while (!bytes.empty()) {
        const std::size_t kept = kept_bytes(bytes);
        if (kept != 0) {
            text += bytes.substr(0, kept);
        } else {
            const unsigned code = 0xEF00 + byte_at(bytes, 0);
            text += static_cast<char>(0xE0 | code >> 12);
            text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
            text += static_cast<char>(0x80 | (code & 0x3F));
        }
        bytes.remove_prefix(std::max<std::size_t>(kept, 1));
    }
    return text;
}

std::string json_begin(const std::string& image, const char* command, const char* array) {
    std::string text = "{\"format\": " + std::to_string(json_format);
    text += ", \"image\": " + Json(utf8_text(image)).dump();
    text += ", \"command\": " + Json(command).dump();
    return text + ", " + Json(array).dump() + ": [";
}

std::string json_row(const std::vector<Column>& columns, const std::vector<Cell>& row, bool first) {
    Json object = Json::object();
    for (std::size_t i = 0; i < row.size(); ++i)
        object[json_key(columns[i])] = json_cell(row[i]);
    return (first ? "\n" : ",\n") + object.dump();
}

std::string json_of(const std::string& image, const char* command, const char* array,
                    const Listing& listing) {
    std::string text = json_begin(image, command, array);
    for (const std::vector<Cell>& row : listing.rows)
        text += json_row(listing.columns, row, &row == listing.rows.data());
    return text + json_end;
}

} // namespace veldrune::cli
