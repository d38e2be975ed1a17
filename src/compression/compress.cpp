#include "compression/compress.h"

#include "compression/decompress.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace veldrune {

namespace {

static_assert(std::endian::native == std::endian::little, "words are read with byte 0 lowest");

/// Which one of equally long runs an encoder takes.
enum class Tie { nearest, farthest };

struct Match {
    int length = 0;
    int position = 0; // of the input, negative in the zeros before it
};

constexpr int block_size = 16384;

/// A stretch of block_size positions of the input and the window before it. Every position stands
/// in a list, the list of those whose three bytes have the same hash, in the order in which the
/// encoder prefers them. Positions in here count from origin_.
///
/// Before the input there are only zeros. The first longest_run positions before it are listed;
/// every one further below has the same bytes as the last of them.
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

    /// The longest run in the window before position, which must lie in the block. Its length is
    /// below shortest_run where there is none.
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
            // Every longer run stands in both lists: the one that skips more is followed.
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

    /// A place in the list of the bytes offset to offset + 2 behind pos: the candidate that has
    /// them there begins offset bytes before the entry.
    struct Cursor {
        int entry;
        int offset;
        int candidate() const { return entry - offset; }
    };

    /// A run longer than best also agrees in the byte that ended best, so its position stands in
    /// the list of the three bytes that end there: its first entry behind best, if two steps reach
    /// it.
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
    /// When a position comes to the head of its list, the heads are the first entries for the
    /// position a window further on.
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
    /// The preferred one of the positions in the window before at with the three bytes at at.
    int first_entry(int at) const { return tie == Tie::nearest ? link(at) : first_[index(at)]; }
    int link(int at) const { return link_[index(at)]; }
    static bool is_beyond(int a, int b) { return tie == Tie::nearest ? a < b : a > b; }

    /// What leaves of the difference of two words the bytes in which a run longer than length
    /// agrees.
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
    std::array<std::int16_t, position_count> link_;  // the next one in each position's list
    std::array<std::int16_t, position_count> first_; // used where the farthest is preferred
    std::array<std::int16_t, 1 << 12> head_;
};

/// A stream as it grows: groups of eight items, each behind a control byte that has a bit set for
/// every literal.
class Writer {
  public:
    Writer(CompressOutput& output, std::size_t limit) : output_(output), limit_(limit) {
        output_[control_at_] = 0;
    }

    /// These are false where the stream would grow beyond its limit.
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

    /// Puts the length field in its place and returns the length.
    std::size_t finish() {
        output_[0] = static_cast<std::uint8_t>(out_);
        output_[1] = static_cast<std::uint8_t>(out_ >> 8);
        return out_;
    }

  private:
    /// A control byte follows on a full group only when another item comes.
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
