#include "rom/file_layer.h"
#include "rom/native_path.h"

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

    bool is_regular() const {
        struct stat status {};
        return ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
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
        auto file = file_of(path, access | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
        // The name may lead elsewhere since.
        return file && file->is_regular() ? std::move(file) : nullptr;
    }
    static std::unique_ptr<DiskFile> file_of(const std::string& path, int flags,
                                             unsigned permissions = 0) {
        const int descriptor = open_descriptor(path, flags, permissions);
        return descriptor < 0 ? nullptr : std::make_unique<DiskFile>(descriptor);
    }
};

} // namespace

std::unique_ptr<FileLayer> make_disk() {
    std::signal(SIGXFSZ, SIG_IGN); // a write beyond the greatest allowed size fails like any other
    return std::make_unique<Disk>();
}

std::filesystem::path stream_path(const std::string& name) {
    return native_path(name);
}

bool make_folder(const std::string& name) {
    std::error_code failed;
    std::filesystem::create_directories(name, failed);
    return std::filesystem::is_directory(name, failed);
}

std::vector<std::string> command_line(int count, char** words) {
    return {words, words + count};
}

} // namespace veldrune
