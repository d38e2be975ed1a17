#pragma once

#include "rom/file_layer.h"
#include "support/bytes.h"

#include <map>

namespace veldrune::test {

/// A disk in memory that fails on demand. Files keep their contents when they are closed.
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
    Fault write_fault; // counts writes, flushes, creations and renamings
    int reads = 0;
    int writes = 0;
    /// Every write that was done whole, in order.
    struct Write {
        std::int64_t offset;
        Bytes bytes;
    };
    std::vector<Write> log;
    bool wrote_half = false; // a write has failed after half of its work
    bool refuse_open = false;
    bool marked_elsewhere = false; // another editor has its files open

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
            file = std::make_shared<Contents>(Contents{{}, ++last_number_});
        return file->bytes;
    }
    bool exists(const std::string& path) const { return files_.contains(path); }
    std::size_t file_count() const { return files_.size(); }

    std::unique_ptr<File> open(const std::string& path) override {
        if (refuse_open || !exists(path))
            return nullptr;
        return std::make_unique<OpenFile>(*this, files_[path]);
    }
    std::unique_ptr<File> create(const std::string& path, unsigned) override {
        if (fails(write_fault, ++writes) || exists(path))
            return nullptr;
        (*this)[path].clear();
        return std::make_unique<OpenFile>(*this, files_[path]);
    }
    bool rename(const std::string& from, const std::string& to) override {
        if (fails(write_fault, ++writes) || !exists(from))
            return false;
        files_[to] = files_[from];
        files_.erase(from);
        return true;
    }
    void remove(const std::string& path) override { files_.erase(path); }
    Answer leads_to(const std::string& path, const FileIdentity& file) override {
        return exists(path) && files_[path]->number == file.number ? Answer::yes : Answer::no;
    }
    NameStatus status_of(const std::string& path) override {
        return {exists(path) ? NameStatus::regular_file : NameStatus::nothing, true};
    }
    bool flush_folder(const std::string&) override { return !fails(write_fault, ++writes); }

  private:
    struct Contents {
        Bytes bytes;
        std::uint64_t number;
    };

    static bool fails(const Fault& fault, int access) {
        return fault.at != 0 && (fault.from_then_on ? access >= fault.at : access == fault.at);
    }

    class OpenFile : public File {
      public:
        OpenFile(MemoryDisk& disk, std::shared_ptr<Contents> contents)
            : disk_(disk), contents_(std::move(contents)) {}
        std::optional<std::size_t> read_at(std::int64_t offset,
                                           std::span<std::uint8_t> bytes) override {
            const Bytes& file = contents_->bytes;
            if (offset < 0 || offset >= std::ssize(file))
                return 0;
            std::size_t count =
                std::min(bytes.size(), file.size() - static_cast<std::size_t>(offset));
            if (fails(disk_.read_fault, ++disk_.reads)) {
                if (!disk_.read_fault.half)
                    return std::nullopt;
                count /= 2;
            }
            std::copy_n(file.begin() + offset, count, bytes.begin());
            return count;
        }
        bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
            if (offset < 0 || offset > 0x1000000) // the disk holds no file above 16 MiB
                return false;
            const bool failing = fails(disk_.write_fault, ++disk_.writes);
            disk_.wrote_half |= failing && disk_.write_fault.half;
            if (failing)
                bytes = bytes.first(disk_.write_fault.half ? bytes.size() / 2 : 0);
            else
                disk_.log.push_back({offset, {bytes.begin(), bytes.end()}});
            put_bytes(contents_->bytes, static_cast<std::size_t>(offset), bytes);
            return !failing;
        }
        bool flush() override { return !fails(disk_.write_fault, ++disk_.writes); }
        bool close() override { return !fails(disk_.write_fault, ++disk_.writes); }
        Answer lock() override { return disk_.marked_elsewhere ? Answer::no : Answer::yes; }
        std::optional<FileStatus> status() override {
            return FileStatus{{1, contents_->number},
                              static_cast<std::int64_t>(contents_->bytes.size())};
        }

      private:
        MemoryDisk& disk_;
        std::shared_ptr<Contents> contents_;
    };

    std::map<std::string, std::shared_ptr<Contents>> files_;
    std::uint64_t last_number_ = 0;
};

} // namespace veldrune::test
