#include "rom/file_layer.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace veldrune {
namespace {

FileIdentity identity_from(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

// Repeats a system call that a signal has interrupted.
template <typename Call>
ssize_t uninterrupted(Call call) {
    ssize_t result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

int open_descriptor(const std::string& path, int flags, unsigned permissions = 0) {
    return static_cast<int>(
        uninterrupted([&] { return ::open(path.c_str(), flags, permissions); }));
}

// Whether a flush or close that has failed may have lost something. The other errors say that the
// system can't flush such a file, or that a signal came while it was closed.
bool may_have_lost(int error) {
    constexpr int harmless[] = {EINVAL, ENOSYS, EOPNOTSUPP, ENOTSUP, EROFS, EINTR};
    return std::ranges::find(harmless, error) == std::end(harmless);
}

bool flush_descriptor(int descriptor) {
    return uninterrupted([&] { return ::fsync(descriptor); }) == 0;
}

unsigned permissions_of(const struct stat& status) {
    return status.st_mode & 0777u;
}

// Uses the system's own calls: the standard library can't identify an open file whose name has
// changed since, and reports a full disk late.
class DiskFile final : public File {
  public:
    explicit DiskFile(int descriptor) : descriptor_(descriptor) {}
    ~DiskFile() override { close(); }
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;

    std::optional<std::size_t> read_at(std::int64_t offset,
                                       std::span<std::uint8_t> bytes) override {
        const ssize_t count =
            uninterrupted([&] { return ::pread(descriptor_, bytes.data(), bytes.size(), offset); });
        if (count < 0)
            return std::nullopt;
        return static_cast<std::size_t>(count);
    }

    bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
        while (!bytes.empty()) {
            const ssize_t count = uninterrupted(
                [&] { return ::pwrite(descriptor_, bytes.data(), bytes.size(), offset); });
            if (count <= 0)
                return false;
            bytes = bytes.subspan(static_cast<std::size_t>(count));
            offset += count;
        }
        return true;
    }

    bool flush() override { return flush_descriptor(descriptor_) || !may_have_lost(errno); }

    bool close() override {
        return descriptor_ < 0 || ::close(std::exchange(descriptor_, -1)) == 0 ||
               !may_have_lost(errno);
    }

    Answer lock() override {
        if (uninterrupted([&] { return ::flock(descriptor_, LOCK_EX | LOCK_NB); }) == 0)
            return Answer::yes;
        return errno == EWOULDBLOCK ? Answer::no : Answer::unknown;
    }

    std::optional<FileStatus> status() override {
        struct stat status {};
        if (::fstat(descriptor_, &status) != 0)
            return std::nullopt;
        return FileStatus{identity_from(status), status.st_size, permissions_of(status)};
    }

    void set_permissions(unsigned permissions) override { ::fchmod(descriptor_, permissions); }

  private:
    int descriptor_;
};

class Disk : public FileLayer {
  public:
    std::unique_ptr<File> open(const std::string& path) override {
        return open_regular(path, O_RDWR);
    }
    std::unique_ptr<File> open_to_read(const std::string& path) override {
        return open_regular(path, O_RDONLY);
    }
    std::unique_ptr<File> create(const std::string& path, unsigned permissions) override {
        return file_of(path, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
    }
    std::string target_of(const std::string& path) override {
        std::error_code failed;
        const std::filesystem::path target = std::filesystem::canonical(path, failed);
        return failed ? path : target.string();
    }
    bool rename(const std::string& from, const std::string& to) override {
        return ::rename(from.c_str(), to.c_str()) == 0;
    }
    void remove(const std::string& path) override { ::unlink(path.c_str()); }
    Answer leads_to(const std::string& path, const FileIdentity& file) override {
        struct stat status {};
        if (::stat(path.c_str(), &status) == 0)
            return identity_from(status) == file ? Answer::yes : Answer::no;
        return leads_nowhere(errno) ? Answer::no : Answer::unknown;
    }
    NameStatus status_of(const std::string& path) override {
        struct stat status {};
        if (::stat(path.c_str(), &status) == 0)
            return {S_ISREG(status.st_mode) ? NameStatus::regular_file : NameStatus::other,
                    ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0,
                    permissions_of(status)};
        const bool is_link = ::lstat(path.c_str(), &status) == 0;
        return {is_link ? NameStatus::lost_link : NameStatus::nothing};
    }
    bool flush_folder(const std::string& path) override {
        const std::filesystem::path folder = std::filesystem::path(path).parent_path();
        const int descriptor = open_descriptor(folder.empty() ? "." : folder.string(),
                                               O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        const bool flushed =
            (descriptor >= 0 && flush_descriptor(descriptor)) || !may_have_lost_names(errno);
        if (descriptor >= 0)
            ::close(descriptor);
        return flushed;
    }

  private:
    // A folder may also be closed to reading or to flushes.
    static bool may_have_lost_names(int error) {
        return may_have_lost(error) && error != EBADF && error != EACCES;
    }
    static bool leads_nowhere(int error) {
        return error == ENOENT || error == ENOTDIR || error == ELOOP;
    }
    std::unique_ptr<File> open_regular(const std::string& path, int access) {
        // Opening anything else could wait for ever, or set off a device.
        if (status_of(path).kind != NameStatus::regular_file)
            return nullptr;
        return file_of(path, access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    }
    static std::unique_ptr<File> file_of(const std::string& path, int flags,
                                         unsigned permissions = 0) {
        const int descriptor = open_descriptor(path, flags, permissions);
        return descriptor < 0 ? nullptr : std::make_unique<DiskFile>(descriptor);
    }
};

bool copy_bytes(File& from, std::int64_t size, File& to) {
    std::vector<std::uint8_t> block(0x100000);
    for (std::int64_t offset = 0; offset < size;) {
        const std::size_t count = from.read_at(offset, block).value_or(0);
        if (count == 0 || !to.write_at(offset, std::span(block).first(count)))
            return false;
        offset += static_cast<std::int64_t>(count);
    }
    return true;
}

// A name in the folder of path that is no longer than a file system allows.
std::string part_name(const std::string& path, int number) {
    constexpr std::size_t longest_stem = 32; // bytes
    const std::filesystem::path whole(path);
    std::string stem = whole.filename().string();
    std::size_t length = std::min(stem.size(), longest_stem);
    while (length < stem.size() && length > 0 && (stem[length] & 0xC0) == 0x80)
        --length; // not in the middle of a character
    stem.resize(length);
    return (whole.parent_path() / (stem + ".part" + (number == 0 ? "" : std::to_string(number))))
        .string();
}

struct PartFile {
    std::string path;
    std::unique_ptr<File> file; // null where it can't be made
};

PartFile create_part(FileLayer& files, const std::string& path, unsigned permissions) {
    constexpr int most_tries = 1000;
    PartFile part;
    for (int number = 0; !part.file && number < most_tries; ++number) {
        part.path = part_name(path, number);
        if (std::filesystem::path(part.path) == path)
            continue; // a half copy must not have that name
        part.file = files.create(part.path, permissions);
        if (!part.file && files.status_of(part.path).kind == NameStatus::nothing)
            break; // not because the name is taken
    }
    return part;
}

const char* why_not_replaced(const NameStatus& status) {
    switch (status.kind) {
    case NameStatus::nothing:
        return nullptr;
    case NameStatus::lost_link:
        return ": the link there leads to nothing";
    case NameStatus::other:
        return ": what is there is no regular file";
    default:
        return status.writable ? nullptr : ": the file there can't be written";
    }
}

// Has fill write a new file, and puts it at path when it is whole. A file that is replaced hands
// its permissions on.
template <typename Fill>
std::optional<std::string> replace_file(FileLayer& files, const std::string& path,
                                        unsigned permissions, const Fill& fill) {
    const NameStatus there = files.status_of(path);
    if (const char* why = why_not_replaced(there))
        return why;
    const std::string to = files.target_of(path);
    const bool replaces = there.kind != NameStatus::nothing;
    PartFile part = create_part(files, to, replaces ? there.permissions : permissions);
    if (!part.file)
        return "";
    if (replaces)
        part.file->set_permissions(there.permissions);
    const bool filled = fill(*part.file) && part.file->close();
    part.file.reset();
    if (!filled || !files.rename(part.path, to)) {
        files.remove(part.path);
        return "";
    }
    return std::nullopt;
}

} // namespace

std::unique_ptr<FileLayer> make_disk() {
    std::signal(SIGXFSZ, SIG_IGN); // a write beyond the greatest allowed size fails like any other
    return std::make_unique<Disk>();
}

std::optional<std::string> copy_file(FileLayer& files, File& from, const std::string& path) {
    const std::optional<FileStatus> status = from.status();
    if (!status)
        return "";
    const std::string to = files.target_of(path);
    const auto failure = replace_file(files, path, status->permissions, [&](File& part) {
        return copy_bytes(from, status->size, part) && part.flush();
    });
    if (failure || files.flush_folder(to))
        return failure;
    return ": the disk has not confirmed that it is there";
}

std::optional<std::string> write_file(FileLayer& files, const std::string& path,
                                      std::span<const std::uint8_t> bytes) {
    constexpr unsigned everyone = 0666; // less what the user's mask takes away
    return replace_file(files, path, everyone, [&](File& to) { return to.write_at(0, bytes); });
}

} // namespace veldrune
