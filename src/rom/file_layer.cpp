#include "rom/file_layer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace veldrune {
namespace {

FileIdentity identity_from(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

// The standard library can't tell which file stands behind a name that has changed since it was
// opened, and reports a full disk late. The system's own calls do both.
class DiskFile : public File {
  public:
    explicit DiskFile(int descriptor) : descriptor_(descriptor) {}
    ~DiskFile() override { ::close(descriptor_); }
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;

    std::size_t read_at(std::int64_t offset, std::span<std::uint8_t> bytes) override {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t count = ::pread(descriptor_, bytes.data() + done, bytes.size() - done,
                                          offset + static_cast<std::int64_t>(done));
            if (count <= 0)
                break;
            done += static_cast<std::size_t>(count);
        }
        return done;
    }

    bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t count = ::pwrite(descriptor_, bytes.data() + done, bytes.size() - done,
                                           offset + static_cast<std::int64_t>(done));
            if (count <= 0)
                return false;
            done += static_cast<std::size_t>(count);
        }
        return true;
    }

    std::int64_t size() override { return status().st_size; }

    FileIdentity identity() override { return identity_from(status()); }

  private:
    struct stat status() const {
        struct stat status {};
        if (::fstat(descriptor_, &status) != 0)
            status = {};
        return status;
    }

    int descriptor_;
};

class Disk : public FileLayer {
  public:
    std::unique_ptr<File> open(const std::string& path) override {
        return file_of(::open(path.c_str(), O_RDWR | O_CLOEXEC));
    }
    std::unique_ptr<File> create(const std::string& path) override {
        return file_of(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
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

// A read that fails is told from the end of the file by the file's size.
bool copy_bytes(File& from, File& to) {
    std::vector<std::uint8_t> block(0x100000);
    const std::int64_t size = from.size();
    for (std::int64_t offset = 0; offset < size;) {
        const std::size_t count = from.read_at(offset, block);
        if (count == 0 || !to.write_at(offset, std::span(block).first(count)))
            return false;
        offset += static_cast<std::int64_t>(count);
    }
    return true;
}

} // namespace

std::unique_ptr<FileLayer> make_disk() {
    return std::make_unique<Disk>();
}

bool copy_file(FileLayer& files, File& from, const std::string& to) {
    std::string part = to + ".part";
    for (int number = 1; files.identity_of(part); ++number)
        part = to + ".part" + std::to_string(number);
    std::unique_ptr<File> target = files.create(part);
    if (!target)
        return false;
    const bool copied = copy_bytes(from, *target);
    target.reset();
    if (copied && files.rename(part, to))
        return true;
    files.remove(part);
    return false;
}

} // namespace veldrune
