#pragma once

#include <string>
#include <string_view>

namespace veldrune::cli {

/// Writes to standard output. Throws Failure where that can't be done, and ReaderGone.
void put_out(std::string_view text);

/// Writes in blocks what comes in small pieces.
class BlockedOut {
  public:
    void add(std::string_view text) {
        block_ += text;
        if (block_.size() >= 0x10000)
            finish();
    }
    /// After the last piece.
    void finish() {
        put_out(block_);
        block_.clear();
    }

  private:
    std::string block_;
};

/// Shows text in place of the one before it, on a terminal; nowhere else.
void put_progress(std::string_view text);

} // namespace veldrune::cli
