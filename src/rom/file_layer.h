#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace veldrune {

/// Tells two files apart, whatever names they go by.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    bool operator==(const FileIdentity&) const = default;
};

struct FileStatus {
    FileIdentity identity;
    std::int64_t size = 0;    // bytes
    unsigned permissions = 0; // as the system has them
};

/// One open file. Closed when destroyed. Offsets are 0-based bytes.
class File {
  public:
    virtual ~File() = default;
    /// Reads up to bytes.size() bytes and returns how many came, 0 at the end of the file. Nothing
    /// where the disk refuses.
    virtual std::optional<std::size_t> read_at(std::int64_t offset,
                                               std::span<std::uint8_t> bytes) = 0;
    /// Writes all of bytes, extending the file where they reach beyond its end. False where any
    /// of them could not be written.
    virtual bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) = 0;
    /// False where what was written may not have reached the disk.
    virtual bool flush() = 0;
    /// Nothing where the disk does not tell.
    virtual std::optional<FileStatus> status() = 0;
};

/// The disk, as far as the program needs it. Tests put one in its place that fails on demand.
class FileLayer {
  public:
    virtual ~FileLayer() = default;
    /// An existing file, for reading and writing. Null where that can't be had.
    virtual std::unique_ptr<File> open(const std::string& path) = 0;
    /// A new, empty file with these permissions (bits as in FileStatus). Null where the name is
    /// taken or the file can't be made.
    virtual std::unique_ptr<File> create(const std::string& path, unsigned permissions) = 0;
    /// What a link leads to at last; any other name as it is.
    virtual std::string target_of(const std::string& path) { return path; }
    /// Gives the file at from the name to, in the place of what had that name.
    virtual bool rename(const std::string& from, const std::string& to) = 0;
    /// Takes the name from the folder. Nothing happens where there is none.
    virtual void remove(const std::string& path) = 0;
    /// The file behind a name, or nothing where there is none.
    virtual std::optional<FileIdentity> identity_of(const std::string& path) = 0;
};

/// The real disk. Every access goes straight to the operating system.
std::unique_ptr<FileLayer> make_disk();

/// Copies an open file to path, or to what a link there leads to. The copy is made under a
/// temporary name in the same folder and renamed when it is whole, so that a failure leaves what
/// stood there. False on failure.
bool copy_file(FileLayer& files, File& from, const std::string& path);

} // namespace veldrune
