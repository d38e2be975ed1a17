#pragma once

#include "rom/file_layer.h"
#include "support/bytes.h"

#include <map>

namespace veldrune::test {

/// A disk in memory that refuses on demand. Files keep their contents when they are closed.
class MemoryDisk : public FileLayer {
  public:
    int reads = 0;
    int writes = 0; // with flushes, creations and renamings
    /// Every write that was done, in order.
    struct Write {
        std::int64_t offset;
        Bytes bytes;
    };
    std::vector<Write> log;

    /// Starts counting anew. Refuses the read and the write of these numbers; 0: none.
    void fail(int read, int write) {
        refused_read_ = read;
        refused_write_ = write;
        reads = writes = 0;
    }

    Bytes& operator[](const std::string& path) {
        auto& file = files_[path];
        if (!file)
            file = std::make_shared<Contents>(Contents{{}, ++last_number_});
        return file->bytes;
    }
    bool exists(const std::string& path) const { return files_.contains(path); }
    std::size_t file_count() const { return files_.size(); }

    std::unique_ptr<File> open(const std::string& path) override {
        return exists(path) ? std::make_unique<OpenFile>(*this, files_[path]) : nullptr;
    }
    std::unique_ptr<File> create(const std::string& path, unsigned) override {
        if (refuses_write() || exists(path))
            return nullptr;
        (*this)[path].clear();
        return std::make_unique<OpenFile>(*this, files_[path]);
    }
    bool rename(const std::string& from, const std::string& to) override {
        if (refuses_write() || !exists(from))
            return false;
        files_[to] = files_[from];
        files_.erase(from);
        return true;
    }
    void remove(const std::string& path) override { files_.erase(path); }
    std::optional<FileIdentity> identity_of(const std::string& path) override {
        if (!exists(path))
            return std::nullopt;
        return FileIdentity{1, files_[path]->number};
    }

  private:
    struct Contents {
        Bytes bytes;
        std::uint64_t number;
    };

    bool refuses_write() { return ++writes == refused_write_; }

    class OpenFile : public File {
      public:
        OpenFile(MemoryDisk& disk, std::shared_ptr<Contents> contents)
            : disk_(disk), contents_(std::move(contents)) {}
        std::optional<std::size_t> read_at(std::int64_t offset,
                                           std::span<std::uint8_t> bytes) override {
            const Bytes& file = contents_->bytes;
            if (offset < 0 || offset >= std::ssize(file))
                return 0;
            if (++disk_.reads == disk_.refused_read_)
                return std::nullopt;
            const std::size_t count =
                std::min(bytes.size(), file.size() - static_cast<std::size_t>(offset));
            std::copy_n(file.begin() + offset, count, bytes.begin());
            return count;
        }
        bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
            const bool fits = offset >= 0 && offset <= 0x1000000; // no file is above 16 MiB
            if (!fits || disk_.refuses_write())
                return false;
            disk_.log.push_back({offset, {bytes.begin(), bytes.end()}});
            put_bytes(contents_->bytes, static_cast<std::size_t>(offset), bytes);
            return true;
        }
        bool flush() override { return !disk_.refuses_write(); }
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
    int refused_read_ = 0;
    int refused_write_ = 0;
};

} // namespace veldrune::test
