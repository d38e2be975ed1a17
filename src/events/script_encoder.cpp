#include "events/script_encoder.h"

#include "rom/number_text.h"

namespace veldrune {
namespace {

// Every step is false where it refused; nothing is encoded after that.
class Encoder {
  public:
    Encoder(const ScriptGrid& grid, Dialogs& dialogs) : grid_(grid), dialogs_(dialogs) {}

    EncodedScript encode() {
        script_.bytes.reserve(grid_.size()); // about a row a byte
        while (!script_.refusal && !ended_)
            encode_command();
        return std::move(script_);
    }

  private:
    bool encode_command() {
        const int row = next_row(static_cast<int>(grid_.size()));
        if (row < 0)
            return refuse(static_cast<int>(grid_.size()) - 1, primary,
                          "the script has no FE at its end");
        const int code = command_code_at(grid_, row);
        if (code < 0)
            return refuse(row, secondary, "it belongs to no command");
        if (!holds_value_alone(row, primary))
            return false;
        emit(static_cast<std::uint32_t>(code), 1);
        ended_ = code == return_command;
        return ended_ || encode_rows(row, script_command(static_cast<std::uint8_t>(code)));
    }

    bool encode_rows(int command, const ScriptCommand& shape) {
        const int end = command_end(grid_, command);
        list_count_.reset();
        for (const Parameter& parameter : shape.parameters()) {
            const int row = next_row(end);
            if (row < 0)
                return refuse(command, primary, "the command lacks rows");
            if (!holds_value_alone(row, secondary) || !encode_parameter(parameter.kind, row))
                return false;
        }
        if (shape.is_queue())
            return encode_queue(row_ - 1, end);
        return next_row(end) < 0 || refuse(row_ - 1, secondary, "its command has no such row");
    }

    bool encode_parameter(ParameterKind kind, int row) {
        switch (kind) {
        case ParameterKind::offset_list:
            return encode_offsets(row);
        case ParameterKind::map_data:
            return encode_map_data(row);
        case ParameterKind::list_count:
            if (!encode_value(kind, row, secondary))
                return false;
            list_count_ = script_.bytes.back();
            return true;
        default:
            return encode_value(kind, row, secondary);
        }
    }

    bool encode_value(ParameterKind kind, int row, ScriptColumn column) {
        const std::string& cell = cell_at(row, column);
        if (kind == ParameterKind::pointer)
            return encode_offset(cell, row, column);
        const int size = size_of(kind);
        const std::uint64_t value = number_in(cell, dialogs_);
        if (value >= 1u << 8 * size)
            return refuse(row, column,
                          "its value does not fit in a " +
                              std::string(size == 2 ? "word" : "byte"));
        if (kind == ParameterKind::high_nibble)
            emit(static_cast<std::uint32_t>(value & 0xF) << 4, 1);
        else if (kind == ParameterKind::low_nibble)
            script_.bytes.back() |= static_cast<std::uint8_t>(value & 0xF);
        else
            emit(static_cast<std::uint32_t>(value), size);
        return true;
    }

    bool encode_offset(const std::string& digits, int row, ScriptColumn column) {
        const std::uint64_t offset = is_blank(digits) ? 0 : number_in(digits, dialogs_);
        if (offset < lowest_script_offset || offset > highest_script_offset)
            return refuse(row, column, "an offset lies between 0A0200 and 10A01FF");
        emit(static_cast<std::uint32_t>(offset - lowest_script_offset),
             size_of(ParameterKind::pointer));
        return true;
    }

    bool encode_offsets(int row) {
        const auto offsets = offsets_in(cell_at(row, secondary));
        if (!offsets)
            return refuse(row, secondary, "its digits make no whole offsets");
        const std::size_t count = list_count_.value_or(offsets->size());
        if (offsets->size() < count)
            return refuse(row, secondary, "its list holds fewer offsets than its count tells");
        for (std::size_t i = 0; i < count; ++i)
            if (!encode_offset((*offsets)[i], row, secondary))
                return false;
        return true;
    }

    // The width and the height are the two bytes encoded last.
    bool encode_map_data(int row) {
        const std::size_t size = script_.bytes.size();
        const std::size_t count =
            static_cast<std::uint8_t>(script_.bytes[size - 2] * script_.bytes[size - 1]);
        const std::string digits = without_breaks(cell_at(row, secondary));
        if (digits.size() != count * 2)
            return refuse(row, secondary,
                          "its width and height take exactly " + std::to_string(count) +
                              " bytes of data");
        for (std::size_t at = 0; at < digits.size(); at += 2)
            emit(static_cast<std::uint32_t>(number_in(digits.substr(at, 2), dialogs_)), 1);
        return true;
    }

    // The actions must make up the bytes that the count gives; the last one may reach beyond them.
    bool encode_queue(int count_row, int end) {
        const std::size_t start = script_.bytes.size();
        const auto count = static_cast<std::size_t>(queue_size(script_.bytes.back()));
        while (script_.bytes.size() - start < count) {
            const int row = next_row(end);
            if (row < 0)
                return refuse_queue(count_row);
            if (!encode_action(row, end))
                return false;
        }
        const int surplus = next_row(end);
        return surplus < 0 || refuse_surplus(surplus, end, count_row);
    }

    // Below the end of a queue an action makes its number of bytes wrong; a value alone is refused
    // at its own row.
    bool refuse_surplus(int first, int end, int count_row) {
        int value_row = -1;
        for (int row = end; row-- > first;) {
            if (!is_blank(cell_at(row, secondary)))
                return refuse_queue(count_row);
            if (!is_blank(cell_at(row, tertiary)))
                value_row = row;
        }
        return value_row < 0 ? refuse_queue(count_row)
                             : refuse(value_row, tertiary, "it belongs to no action");
    }

    bool encode_action(int row, int end) {
        if (is_blank(cell_at(row, secondary)))
            return refuse(row, tertiary, "it belongs to no action");
        if (!holds_value_alone(row, secondary) ||
            !encode_value(ParameterKind::byte, row, secondary))
            return false;
        for (const Parameter& parameter : queue_action(script_.bytes.back()).parameters()) {
            const int at = next_row(end);
            if (at < 0 || !is_blank(cell_at(at, secondary)))
                return refuse(row, secondary, "the action lacks rows");
            if (!encode_value(parameter.kind, at, tertiary))
                return false;
        }
        return true;
    }

    // No other column of a row that has its value in this one holds any. The primary one, where it
    // is another, is blank: the row would begin a command.
    bool holds_value_alone(int row, ScriptColumn its_column) {
        for (const ScriptColumn column : {secondary, tertiary})
            if (column != its_column && !is_blank(cell_at(row, column)))
                return refuse(row, column, "it has no value in that column");
        return true;
    }

    bool refuse_queue(int count_row) {
        return refuse(count_row, secondary, "its actions do not make up its number of bytes");
    }

    bool refuse(int row, ScriptColumn column, const std::string& why) {
        script_.refusal =
            CellRefusal{row, column, "Row " + std::to_string(row) + " can't be saved: " + why + ".",
                        error_title};
        return false;
    }

    // The next row before end that holds anything; -1 where there is none.
    int next_row(int end) {
        while (row_ < end && is_blank(row_at(grid_, row_)))
            ++row_;
        return row_ < end ? row_++ : -1;
    }

    const std::string& cell_at(int row, ScriptColumn column) const {
        return row_at(grid_, row).cells[column];
    }

    void emit(std::uint32_t value, int bytes) {
        for (; bytes > 0; --bytes, value >>= 8)
            script_.bytes.push_back(static_cast<std::uint8_t>(value));
    }

    const ScriptGrid& grid_;
    Dialogs& dialogs_;
    int row_ = 1; // the next row
    bool ended_ = false;
    std::optional<std::size_t> list_count_; // of the present command
    EncodedScript script_;
};

} // namespace

EncodedScript encode_script(const ScriptGrid& grid, Dialogs& dialogs) {
    return Encoder(grid, dialogs).encode();
}

} // namespace veldrune
