#include "rom/file_layer.h"

#include "rom/native_path.h"

#include <algorithm>
#include <vector>

namespace veldrune {
namespace {

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
    const std::filesystem::path whole = native_path(path);
    std::string stem = whole.filename().string();
    std::size_t length = std::min(stem.size(), longest_stem);
    while (length < stem.size() && length > 0 && (stem[length] & 0xC0) == 0x80)
        --length; // not in the middle of a character
    stem.resize(length);
    const std::string ending = ".part" + (number == 0 ? std::string() : std::to_string(number));
    return (whole.parent_path() / native_path(stem + ending)).string();
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
        if (native_path(part.path) == native_path(path))
            continue; // a half copy must not have that name
        part.file = files.create(part.path, permissions);
        if (!part.file && files.status_of(part.path).kind == NameStatus::nothing)
            break; // not because the name is taken
    }
    return part;
}

// Has fill write a new file, and puts it at path when it is whole. A file that is replaced hands
// its permissions on.
template <typename Fill>
std::optional<std::string> replace_file(FileLayer& files, const std::string& path,
                                        unsigned permissions, const Fill& fill) {
    const NameStatus there = files.status_of(path);
    if (const char* why = why_not_written(there))
        return std::string(": ").append(why);
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

const char* why_not_written(const NameStatus& status) {
    switch (status.kind) {
    case NameStatus::nothing:
        return nullptr;
    case NameStatus::lost_link:
        return "the link there leads to nothing";
    case NameStatus::other:
        return "what is there is no regular file";
    case NameStatus::regular_file:
        if (status.held)
            return "another program has the file there open";
        return status.writable ? nullptr : "the file there can't be written";
    }
    return nullptr;
}

std::optional<std::string> copy_file(FileLayer& files, File& from, const std::string& path) {
    const std::optional<FileStatus> status = from.status();
    if (!status)
        return "";
    const std::string to = files.target_of(path);
    auto failure = replace_file(files, path, status->permissions, [&](File& part) {
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
