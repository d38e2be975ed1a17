#include "rom/file_layer.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
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

// Uses the system's own calls: the standard library can't identify an open file whose name has
// changed since, and reports a full disk late.
class DiskFile : public File {
  public:
    explicit DiskFile(int descriptor) : descriptor_(descriptor) {}
    ~DiskFile() override { ::close(descriptor_); }
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

    bool flush() override {
        return uninterrupted([&] { return ::fsync(descriptor_); }) == 0;
    }

    std::optional<FileStatus> status() override {
        struct stat status {};
        if (::fstat(descriptor_, &status) != 0)
            return std::nullopt;
        return FileStatus{identity_from(status), status.st_size, status.st_mode & 0777u};
    }

  private:
    int descriptor_;
};

class Disk : public FileLayer {
  public:
    std::unique_ptr<File> open(const std::string& path) override {
        return file_of(::open(path.c_str(), O_RDWR | O_CLOEXEC));
    }
    std::unique_ptr<File> create(const std::string& path, unsigned permissions) override {
        return file_of(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, permissions));
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
    std::optional<FileIdentity> identity_of(const std::string& path) override {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0)
            return std::nullopt;
        return identity_from(status);
    }

  private:
    static std::unique_ptr<File> file_of(int descriptor) {
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
    return to.flush();
}

} // namespace

std::unique_ptr<FileLayer> make_disk() {
    return std::make_unique<Disk>();
}

bool copy_file(FileLayer& files, File& from, const std::string& path) {
    const std::optional<FileStatus> status = from.status();
    const std::string to = files.target_of(path);
    std::string part = to + ".part";
    for (int number = 1; files.identity_of(part); ++number)
        part = to + ".part" + std::to_string(number);
    std::unique_ptr<File> target = status ? files.create(part, status->permissions) : nullptr;
    if (!target)
        return false;
    const bool copied = copy_bytes(from, status->size, *target);
    target.reset();
    if (copied && files.rename(part, to))
        return true;
    files.remove(part);
    return false;
}

} // namespace veldrune
