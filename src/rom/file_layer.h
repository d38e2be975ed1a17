#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace veldrune {

/// Identifies a file independently of its names.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0; // on that device, the low 64 bits of it
    std::uint64_t number_above = 0;
    bool operator==(const FileIdentity&) const = default;
};

/// What the system says. Where it can't say, nobody is asked about it.
enum class Answer { yes, no, unknown };

/// What there is under a name, links followed.
struct NameStatus {
    enum Kind { nothing, lost_link, regular_file, other } kind = nothing;
    bool writable = false;
    unsigned permissions = 0; // as the system has them, 0 where it has no such bits
    bool held = false;        // another program keeps it from being written or replaced
};

struct FileStatus {
    FileIdentity identity;
    std::int64_t size = 0;    // bytes
    unsigned permissions = 0; // the low nine bits of a file mode, 0 where there is none
};

/// One open file. Closed when destroyed. Offsets are 0-based bytes.
class File {
  public:
    virtual ~File() = default;
    /// Reads up to bytes.size() bytes and returns how many were read, 0 at the end of the file.
    /// Nothing if the disk refuses.
    virtual std::optional<std::size_t> read_at(std::int64_t offset,
                                               std::span<std::uint8_t> bytes) = 0;
    /// Writes all of bytes, extending the file if they reach beyond its end. False if any of them
    /// could not be written.
    virtual bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) = 0;
    /// False where what was written may not have reached the disk. A file that can't be flushed
    /// counts as one that has been.
    virtual bool flush() = 0;
    /// Closes the file before it is destroyed. False where what was written may be lost.
    virtual bool close() = 0;
    /// Marks the file as being edited, until it is closed. No where another program has marked it.
    virtual Answer lock() = 0;
    /// Nothing if the disk does not report it.
    virtual std::optional<FileStatus> status() = 0;
    /// Gives the file these permissions (bits as in FileStatus), as far as the system can.
    virtual void set_permissions(unsigned) {}
};

/// What the program needs of a disk. Tests replace it with one that fails on demand.
class FileLayer {
  public:
    virtual ~FileLayer() = default;
    /// An existing regular file, for reading and writing. Null where that can't be had.
    virtual std::unique_ptr<File> open(const std::string& path) = 0;
    /// An existing regular file for reading alone, which needs no permission to write. Null where
    /// that can't be had.
    virtual std::unique_ptr<File> open_to_read(const std::string& path) { return open(path); }
    /// Creates an empty file with these permissions (bits as in FileStatus), less those that the
    /// system keeps from new files. Null if the name is taken or the file can't be created.
    virtual std::unique_ptr<File> create(const std::string& path, unsigned permissions) = 0;
    /// The final target of a symbolic link; any other path unchanged.
    virtual std::string target_of(const std::string& path) { return path; }
    /// Renames the file at path from to path to, replacing any file there. False on failure.
    virtual bool rename(const std::string& from, const std::string& to) = 0;
    /// Removes the file at path. Does nothing if there is none.
    virtual void remove(const std::string& path) = 0;
    /// Whether a name leads to a file.
    virtual Answer leads_to(const std::string& path, const FileIdentity& file) = 0;
    virtual NameStatus status_of(const std::string& path) = 0;
    /// False where the names in the folder of path may not have reached the disk.
    virtual bool flush_folder(const std::string& path) = 0;
};

/// The real disk. Every access goes straight to the operating system.
/// Names are UTF-8 on a system whose own are texts.
std::unique_ptr<FileLayer> make_disk();

/// The words of the command line, the program's name first, from main's arguments or where the
/// system has them whole. Names among them are as FileLayer takes them.
std::vector<std::string> command_line(int count, char** words);

/// Why what a name leads to can't be written, for the user; null where it can, or where the name
/// leads to nothing.
const char* why_not_written(const NameStatus& status);

/// Copies an open file to path, or to what a link there leads to. The copy is made under a
/// temporary name in the same folder and renamed when it is whole and on the disk, so that a
/// failure leaves what was there. It keeps the permissions of the file whose place it takes. Only a
/// regular file that can be written is replaced. Returns nothing when the copy is there, and
/// otherwise why not: ": " and a reason, or an empty text where the system has none.
std::optional<std::string> copy_file(FileLayer& files, File& from, const std::string& path);

/// Puts a file with these bytes at path in the same way, but does not wait for the disk. Who may
/// use a new one is as the user's other new files have it.
std::optional<std::string> write_file(FileLayer& files, const std::string& path,
                                      std::span<const std::uint8_t> bytes);

} // namespace veldrune
