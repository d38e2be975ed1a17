#include "compression/compress.h"

#include "compression/decompress.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace veldrune {

namespace {

static_assert(std::endian::native == std::endian::little, "words are read with byte 0 lowest");

// Which of several equally long runs an encoder takes.
enum class Tie { nearest, farthest };

struct Match {
    int length = 0;
    int position = 0; // of the input, negative in the zeros before it
};

constexpr int block_size = 16384;

// A block of block_size input positions and the window before it. The positions whose three bytes
// have the same hash form a linked list, in the order in which the encoder prefers them. Inside the
// class positions count from origin_.
//
// Before the input there are only zeros. The lists begin longest_run positions before it: a run
// from any earlier position has the same bytes as one from there.
template <int window, Tie tie>
class Block {
  public:
    Block(std::span<const std::uint8_t> input, int start)
        : origin_(std::max(start - window, -longest_run) - longest_run) {
        const int from = std::max(origin_, 0);
        const std::size_t room = text_.size() - index(from - origin_);
        const auto bytes = input.subspan(index(from));
        std::ranges::copy(bytes.first(std::min(room, bytes.size())), &text_[index(from - origin_)]);

        const int size = static_cast<int>(input.size());
        const int end = std::min(start + block_size, size) + longest_run - origin_;
        head_.fill(none);
        if (tie == Tie::nearest)
            list_rising(end);
        else
            list_falling(end);
    }

    // The longest run in the window before position, which must lie in the block. If there is none,
    // its length is below shortest_run.
    Match longest_match(int position) const {
        const int pos = position - origin_;
        const int low = pos - window;
        const std::uint64_t here = word(pos);
        Match best{shortest_run - 1, 0};
        int shift = shift_beyond(best.length);
        Cursor next{first_entry(pos), 0};
        for (int c = next.candidate(); tie == Tie::nearest ? c >= low : c < pos;
             c = next.candidate()) {
            next.entry = link(next.entry);
            if ((word(c) ^ here) << shift)
                continue;
            const int length = match_length(c, pos);
            if (length <= best.length)
                continue;
            best = {length, c};
            shift = shift_beyond(length);
            if (length == longest_run)
                break;
            // Every longer run is in both lists: the one that skips more is followed.
            const Cursor tail = tail_list(pos, best);
            if (is_beyond(tail.candidate(), next.candidate()))
                next = tail;
        }
        best.position += origin_;
        if (tie == Tie::farthest && best.position <= -longest_run)
            best.position = position - window;
        return best;
    }

  private:
    static constexpr std::int16_t none = INT16_MIN; // the end of a list, below every window

    // An entry in the list of the three bytes at pos + offset. A candidate run that has these bytes
    // at the same place begins offset bytes before the entry.
    struct Cursor {
        int entry;
        int offset;
        int candidate() const { return entry - offset; }
    };

    // A run longer than best also matches the byte at which best ended, so it is in the list of the
    // three bytes that end there. Returns the first entry of that list beyond best, or the entry
    // that two steps reach.
    Cursor tail_list(int pos, const Match& best) const {
        const int offset = best.length - 2;
        Cursor tail{first_entry(pos + offset), offset};
        for (int step = 0; step < 2 && !is_beyond(tail.candidate(), best.position); ++step)
            tail.entry = link(tail.entry);
        return tail;
    }

    void list_rising(int end) {
        for (int i = longest_run; i < end; ++i)
            put_in_list(i);
    }
    // Once position i is in its list, the head of every list is the preferred entry for position
    // i + window.
    void list_falling(int end) {
        for (int i = end - 1; i >= longest_run - window; --i) {
            if (i >= longest_run)
                put_in_list(i);
            if (i + window < end)
                first_[index(i + window)] = head_[hash(i + window)];
        }
    }
    void put_in_list(int at) {
        std::int16_t& head = head_[hash(at)];
        link_[index(at)] = head;
        head = static_cast<std::int16_t>(at);
    }
    // The preferred position before at whose three bytes have the same hash.
    int first_entry(int at) const { return tie == Tie::nearest ? link(at) : first_[index(at)]; }
    int link(int at) const { return link_[index(at)]; }
    static bool is_beyond(int a, int b) { return tie == Tie::nearest ? a < b : a > b; }

    // The left shift that keeps, of the difference of two words, the bytes that must agree for a
    // run longer than length.
    static int shift_beyond(int length) { return std::max(56 - 8 * length, 0); }
    int match_length(int a, int b) const {
        for (int n = 0; n < longest_run; n += 8)
            if (const std::uint64_t difference = word(a + n) ^ word(b + n))
                return std::min(n + std::countr_zero(difference) / 8, longest_run);
        return longest_run;
    }
    std::size_t hash(int at) const { return (word(at) << 40) * 0x9E3779B97F4A7C15U >> 52; }
    std::uint64_t word(int at) const {
        std::uint64_t bytes;
        std::memcpy(&bytes, &text_[index(at)], sizeof bytes);
        return bytes;
    }
    static constexpr std::size_t index(int at) { return static_cast<std::size_t>(at); }

    static constexpr int position_count = longest_run + window + block_size + longest_run;
    int origin_;
    std::array<std::uint8_t, position_count + 8> text_{};
    std::array<std::int16_t, position_count> link_;  // the next entry of the position's list
    std::array<std::int16_t, position_count> first_; // first_entry for Tie::farthest
    std::array<std::int16_t, 1 << 12> head_;
};

// Writes a stream: groups of a control byte and up to eight items. A control bit is set for a
// literal.
class Writer {
  public:
    Writer(CompressOutput& output, std::size_t limit) : output_(output), limit_(limit) {
        output_[control_at_] = 0;
    }

    // Both return false if the stream would exceed its limit.
    bool put_literal(std::uint8_t byte) {
        if (!begin_item(1, 1))
            return false;
        output_[out_++] = byte;
        return true;
    }
    bool put_reference(const Match& match) {
        if (!begin_item(0, 2))
            return false;
        const int ring_position = (match.position + ring_start) & (ring_size - 1);
        const int reference = (match.length - shortest_run) << 11 | ring_position;
        output_[out_++] = static_cast<std::uint8_t>(reference);
        output_[out_++] = static_cast<std::uint8_t>(reference >> 8);
        return true;
    }

    // Writes the length field and returns the length.
    std::size_t finish() {
        output_[0] = static_cast<std::uint8_t>(out_);
        output_[1] = static_cast<std::uint8_t>(out_ >> 8);
        return out_;
    }

  private:
    // The control byte of the next group is written only when there is an item for it.
    bool begin_item(int control_bit, std::size_t size) {
        const bool group_full = count_ == 8;
        if (out_ + (group_full ? 1 : 0) + size > limit_)
            return false;
        if (group_full) {
            count_ = 0;
            control_at_ = out_++;
            output_[control_at_] = 0;
        }
        output_[control_at_] |= static_cast<std::uint8_t>(control_bit << count_++);
        return true;
    }

    CompressOutput& output_;
    std::size_t limit_;
    std::size_t control_at_ = 2;
    std::size_t out_ = 3;
    int count_ = 0; // items in the open group
};

template <int window, Tie tie>
std::optional<std::size_t> compress(std::span<const std::uint8_t> input, CompressOutput& output,
                                    std::size_t limit) {
    const int size = static_cast<int>(input.size());
    Writer writer(output, limit);
    int pos = 0;
    for (int start = 0; start < size; start += block_size) {
        const Block<window, tie> block(input, start);
        while (pos < std::min(start + block_size, size)) {
            const Match match = block.longest_match(pos);
            const bool found = match.length >= shortest_run;
            if (!(found ? writer.put_reference(match)
                        : writer.put_literal(input[static_cast<std::size_t>(pos)])))
                return std::nullopt;
            pos += found ? match.length : 1;
        }
    }
    return writer.finish();
}

} // namespace

std::optional<std::size_t> compress_layer(std::span<const std::uint8_t> input,
                                          CompressOutput& output) {
    return compress<2048, Tie::nearest>(input, output, layer_stream_limit);
}

std::optional<std::size_t> compress_world_map(std::span<const std::uint8_t> input,
                                              CompressOutput& output) {
    return compress<2047, Tie::farthest>(input, output, world_map_stream_limit);
}

} // namespace veldrune
