#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace veldrune {

/// A value of a packed record: count bits from first on, at most 24. Bit 0 is the lowest of byte 0,
/// and bit 8 the lowest of byte 1.
struct BitRun {
    int first;
    int count;

    constexpr std::size_t first_byte() const { return static_cast<std::size_t>(first / 8); }
    constexpr std::size_t byte_count() const {
        return static_cast<std::size_t>((first % 8 + count + 7) / 8);
    }
    constexpr int shift() const { return first % 8; }
    constexpr std::uint32_t mask() const { return (1u << count) - 1; }
};

/// The value in the run. The bytes must reach to its end, here and below.
constexpr std::uint32_t read_bits(std::span<const std::uint8_t> bytes, BitRun run) {
    std::uint64_t window = 0;
    for (std::size_t i = 0; i < run.byte_count(); ++i)
        window |= std::uint64_t{bytes[run.first_byte() + i]} << (8 * i);
    return static_cast<std::uint32_t>(window >> run.shift()) & run.mask();
}

/// Adds the value byte by byte: what is too wide for the run spills into the rest of its last byte
/// and no further, and no byte carries into the next.
constexpr void add_bits(std::span<std::uint8_t> bytes, BitRun run, std::uint32_t value) {
    const std::uint64_t window = std::uint64_t{value} << run.shift();
    for (std::size_t i = 0; i < run.byte_count(); ++i) {
        std::uint8_t& byte = bytes[run.first_byte() + i];
        byte = static_cast<std::uint8_t>(byte + (window >> (8 * i)));
    }
}

constexpr void clear_bits(std::span<std::uint8_t> bytes, BitRun run) {
    const std::uint64_t window = std::uint64_t{run.mask()} << run.shift();
    for (std::size_t i = 0; i < run.byte_count(); ++i)
        bytes[run.first_byte() + i] &= static_cast<std::uint8_t>(~(window >> (8 * i)));
}

/// Puts the low bits of value into the run and leaves all others as they are.
constexpr void replace_bits(std::span<std::uint8_t> bytes, BitRun run, std::uint32_t value) {
    clear_bits(bytes, run);
    add_bits(bytes, run, value & run.mask());
}

/// How many bits of a record of that size the rows of the tables take up, by their member bits.
/// Rows that share a bit, or reach beyond the record, do not compile.
template <std::size_t record_size>
consteval int bits_taken(const auto&... tables) {
    std::array<bool, 8 * record_size> taken{};
    int count = 0;
    const auto take = [&](BitRun run) {
        for (int bit = run.first; bit < run.first + run.count; ++bit, ++count)
            if (std::exchange(taken.at(static_cast<std::size_t>(bit)), true))
                throw "two rows share a bit";
    };
    const auto take_all = [&](const auto& table) {
        for (const auto& row : table)
            take(row.bits);
    };
    (take_all(tables), ...);
    return count;
}

} // namespace veldrune
