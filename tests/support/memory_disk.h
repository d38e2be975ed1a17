#pragma once

#include "rom/file_layer.h"
#include "support/bytes.h"

#include <map>
#include <set>

namespace veldrune::test {

/// A disk in memory that fails on demand. Files keep their contents when they are closed, and open
/// ones when their name goes. Folders need not be made.
class MemoryDisk : public FileLayer {
  public:
    /// One failure: the access of this number, counted from 1, or every one from it on, does
    /// nothing (refused) or half of its work (short).
    struct Fault {
        int at = 0; // 0: never
        bool from_then_on = false;
        bool half = false;
    };
    Fault read_fault;
    Fault write_fault; // counts writes, flushes, closings, creations and renamings
    int reads = 0;
    int writes = 0;
    int vanish_at = 0; // at this one of them vanishing_name goes, 0: never
    std::string vanishing_name;
    /// Every write that was done whole, in order.
    struct Write {
        std::int64_t offset;
        Bytes bytes;
    };
    std::vector<Write> log;
    /// Everything that was tried and could change a file or a name, in order.
    struct Access {
        enum Kind { write, flush, close, create, rename, flush_folder } kind;
        std::uint64_t file; // 0 for a folder
        bool done;
        std::int64_t offset = 0;
        std::int64_t size = 0;
    };
    std::vector<Access> accesses;
    bool wrote_half = false; // a write has failed after half of its work
    int openings = 0;
    bool marked_elsewhere = false; // another editor has its files open
    std::map<std::string, std::string> links;
    std::set<std::string> unwritable; // files and folders, "" for the files' own

    /// Starts counting anew, with these failures.
    void fail(const Fault& reading, const Fault& writing) {
        read_fault = reading;
        write_fault = writing;
        reads = writes = 0;
    }
    void fail(int read, int write) { fail(Fault{read}, Fault{write}); }

    Bytes& operator[](const std::string& path) {
        auto& file = files_[path];
        if (!file)
            file = std::make_shared<Contents>(Contents{{}, {}, 0, ++last_number_});
        return file->bytes;
    }
    bool exists(const std::string& path) const { return files_.contains(target(path)); }
    std::size_t file_count() const { return files_.size(); }
    void vanish(const std::string& path) { files_.erase(path); }

    std::unique_ptr<File> open(const std::string& path) override {
        if (!exists(path) || unwritable.contains(target(path)))
            return nullptr;
        ++openings;
        return std::make_unique<OpenFile>(*this, files_[target(path)]);
    }
    std::unique_ptr<File> create(const std::string& path, unsigned) override {
        const bool possible = !exists(path) && !links.contains(path) && may_change(path);
        if (!note(Access::create, possible ? last_number_ + 1 : 0) || !possible)
            return nullptr;
        (*this)[path].clear();
        return std::make_unique<OpenFile>(*this, files_[path]);
    }
    std::string target_of(const std::string& path) override {
        return exists(path) ? target(path) : path;
    }
    bool rename(const std::string& from, const std::string& to) override {
        const bool possible = files_.contains(from) && may_change(from) && may_change(to);
        if (!note(Access::rename, possible ? files_[from]->number : 0) || !possible ||
            !files_.contains(from))
            return false;
        links.erase(to);
        files_[to] = files_[from];
        files_.erase(from);
        return true;
    }
    void remove(const std::string& path) override {
        if (may_change(path))
            vanish(path);
    }
    Answer leads_to(const std::string& path, const FileIdentity& file) override {
        return exists(path) && files_[target(path)]->number == file.number ? Answer::yes
                                                                           : Answer::no;
    }
    NameStatus status_of(const std::string& path) override {
        if (!exists(path))
            return {links.contains(path) ? NameStatus::lost_link : NameStatus::nothing};
        return {NameStatus::regular_file, !unwritable.contains(target(path))};
    }
    bool flush_folder(const std::string&) override { return note(Access::flush_folder, 0); }

  private:
    /// What lies beyond the dense bytes is zero but for the bytes of a map.
    struct Contents {
        Bytes bytes;
        std::map<std::int64_t, std::uint8_t> beyond;
        std::int64_t sparse_end; // 0 where nothing has been written there
        std::uint64_t number;

        std::int64_t size() const { return sparse_end ? sparse_end : std::ssize(bytes); }
        void read(std::int64_t offset, std::span<std::uint8_t> to) const {
            const std::int64_t dense =
                std::clamp<std::int64_t>(std::ssize(bytes) - offset, 0, std::ssize(to));
            std::copy_n(bytes.begin() + (dense ? offset : 0), dense, to.begin());
            std::fill(to.begin() + dense, to.end(), std::uint8_t{0});
            for (auto at = beyond.lower_bound(offset + dense);
                 at != beyond.end() && at->first < offset + std::ssize(to); ++at)
                to[static_cast<std::size_t>(at->first - offset)] = at->second;
        }
        void write(std::int64_t offset, std::span<const std::uint8_t> from) {
            const std::int64_t end = offset + std::ssize(from);
            const auto dense = static_cast<std::size_t>(
                std::clamp<std::int64_t>(most_dense - offset, 0, std::ssize(from)));
            if (dense > 0)
                put_bytes(bytes, static_cast<std::size_t>(offset), from.first(dense));
            if (dense == from.size())
                return;
            bytes.resize(most_dense);
            sparse_end = std::max(sparse_end, end);
            beyond.erase(beyond.lower_bound(offset + static_cast<std::int64_t>(dense)),
                         beyond.lower_bound(end));
            for (std::size_t i = dense; i < from.size(); ++i)
                if (from[i] != 0)
                    beyond[offset + static_cast<std::int64_t>(i)] = from[i];
        }
    };
    static constexpr std::int64_t most_dense = 0x800000;

    static bool fails(const Fault& fault, int access) {
        return fault.at != 0 && (fault.from_then_on ? access >= fault.at : access == fault.at);
    }
    // Counts an access. False where it fails.
    bool note(Access::Kind kind, std::uint64_t file, std::int64_t offset = 0,
              std::int64_t size = 0) {
        const bool done = !fails(write_fault, ++writes);
        if (writes == vanish_at)
            vanish(vanishing_name);
        accesses.push_back({kind, file, done, offset, size});
        return done;
    }
    std::string target(std::string path) const {
        for (std::size_t steps = 0; steps <= links.size() && links.contains(path); ++steps)
            path = links.at(path);
        return path;
    }
    bool may_change(const std::string& path) const {
        const std::size_t slash = path.rfind('/');
        return !unwritable.contains(slash == std::string::npos ? "" : path.substr(0, slash));
    }

    class OpenFile : public File {
      public:
        OpenFile(MemoryDisk& disk, std::shared_ptr<Contents> contents)
            : disk_(disk), contents_(std::move(contents)) {}
        std::optional<std::size_t> read_at(std::int64_t offset,
                                           std::span<std::uint8_t> bytes) override {
            if (offset < 0 || offset >= contents_->size())
                return 0;
            std::int64_t count = std::min(std::ssize(bytes), contents_->size() - offset);
            if (fails(disk_.read_fault, ++disk_.reads)) {
                if (!disk_.read_fault.half)
                    return std::nullopt;
                count /= 2;
            }
            contents_->read(offset, bytes.first(static_cast<std::size_t>(count)));
            return static_cast<std::size_t>(count);
        }
        bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
            if (offset < 0)
                return false;
            const bool done =
                disk_.note(Access::write, contents_->number, offset, std::ssize(bytes));
            disk_.wrote_half |= !done && disk_.write_fault.half;
            if (done)
                disk_.log.push_back({offset, {bytes.begin(), bytes.end()}});
            else
                bytes = bytes.first(disk_.write_fault.half ? bytes.size() / 2 : 0);
            contents_->write(offset, bytes);
            return done;
        }
        bool flush() override { return disk_.note(Access::flush, contents_->number); }
        bool close() override { return disk_.note(Access::close, contents_->number); }
        Answer lock() override { return disk_.marked_elsewhere ? Answer::no : Answer::yes; }
        std::optional<FileStatus> status() override {
            return FileStatus{{1, contents_->number}, contents_->size()};
        }

      private:
        MemoryDisk& disk_;
        std::shared_ptr<Contents> contents_;
    };

    std::map<std::string, std::shared_ptr<Contents>> files_;
    std::uint64_t last_number_ = 0;
};

} // namespace veldrune::test
