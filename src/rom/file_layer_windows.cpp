#include "rom/file_layer.h"
#include "rom/native_path.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>
#include <utility>

// After the standard headers, which choose an older system.
#undef _WIN32_WINNT
#define _WIN32_WINNT 0x0A000002
#include <windows.h>

namespace veldrune {
namespace {

// Other programs, and this one, may do everything with a file that is open here, as on other
// systems: only a lock says that it is being edited.
constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// Folders can be opened for their attributes only with this.
constexpr DWORD any_kind = FILE_FLAG_BACKUP_SEMANTICS;

template <std::size_t count>
bool is_one_of(DWORD error, const DWORD (&errors)[count]) {
    return std::ranges::find(errors, error) != std::end(errors);
}

// Empty where the text is no UTF-8.
std::wstring wide(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring converted(text.size(), L'\0'); // never longer
    converted.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), size, converted.data(), size)));
    return converted;
}

std::string utf8(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::string converted(3 * text.size(), '\0'); // never longer
    converted.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, converted.data(),
                            static_cast<int>(converted.size()), nullptr, nullptr)));
    return converted;
}

// The result of a call that fills a buffer, and returns the room it needs where that is too small.
template <typename Call>
std::wstring text_from(const Call& call) {
    std::wstring text(MAX_PATH, L'\0');
    DWORD length = call(text.data(), static_cast<DWORD>(text.size()));
    if (length > text.size()) {
        text.resize(length);
        length = call(text.data(), length);
    }
    text.resize(std::min<std::size_t>(length, text.size()));
    return text;
}

// The whole name from its root, in the form that may be longer than 260 characters. A device's
// stays in the form "\\.\NUL". Empty where there can be no such name.
std::wstring system_name(const std::string& path) {
    const std::wstring given = wide(path);
    const std::wstring whole = text_from([&](wchar_t* buffer, DWORD size) {
        return GetFullPathNameW(given.c_str(), size, buffer, nullptr);
    });
    if (whole.empty() || whole.starts_with(L"\\\\.\\") || whole.starts_with(L"\\\\?\\"))
        return whole;
    return whole.starts_with(L"\\\\") ? L"\\\\?\\UNC" + whole.substr(1) : L"\\\\?\\" + whole;
}

bool is_device(const std::wstring& name) {
    return name.starts_with(L"\\\\.\\");
}

// An open file or folder of the system. Closed when destroyed.
class Handle {
  public:
    Handle(const std::wstring& name, DWORD access, DWORD creation, DWORD flags)
        : handle_(CreateFileW(name.c_str(), access, share_all, nullptr, creation, flags, nullptr)) {
    }
    ~Handle() { close(); }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, closed)) {}
    Handle& operator=(Handle&&) = delete;

    explicit operator bool() const { return handle_ != closed; }
    HANDLE get() const { return handle_; }
    bool close() { return handle_ == closed || CloseHandle(std::exchange(handle_, closed)); }

  private:
    static inline const HANDLE closed = INVALID_HANDLE_VALUE;
    HANDLE handle_;
};

// For what can be asked of a file without reading it. Links are followed.
Handle look_at(const std::wstring& name) {
    return {name, FILE_READ_ATTRIBUTES, OPEN_EXISTING, any_kind};
}

// Nothing where it is no regular file.
std::optional<BY_HANDLE_FILE_INFORMATION> regular_file(const Handle& file) {
    BY_HANDLE_FILE_INFORMATION known;
    const bool is_regular = GetFileType(file.get()) == FILE_TYPE_DISK &&
                            GetFileInformationByHandle(file.get(), &known) &&
                            !(known.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
    return is_regular ? std::optional(known) : std::nullopt;
}

// File systems with 64-bit numbers do not have those of 128 bits.
std::optional<FileIdentity> identity_of(const Handle& file) {
    FILE_ID_INFO whole;
    if (GetFileInformationByHandleEx(file.get(), FileIdInfo, &whole, sizeof whole)) {
        FileIdentity identity{whole.VolumeSerialNumber};
        std::memcpy(&identity.number, whole.FileId.Identifier, 8);
        std::memcpy(&identity.number_above, whole.FileId.Identifier + 8, 8);
        return identity;
    }
    BY_HANDLE_FILE_INFORMATION known;
    if (!GetFileInformationByHandle(file.get(), &known))
        return std::nullopt;
    return FileIdentity{known.dwVolumeSerialNumber,
                        std::uint64_t{known.nFileIndexHigh} << 32 | known.nFileIndexLow};
}

// Whether a flush that has failed may have lost something. The other errors say that the system
// can't flush such a file.
bool may_have_lost(DWORD error) {
    return !is_one_of(error,
                      {ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED, ERROR_CALL_NOT_IMPLEMENTED});
}

OVERLAPPED place(std::int64_t offset) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

DWORD size_of_one_call(std::size_t size) {
    constexpr std::size_t most = 0x40000000;
    return static_cast<DWORD>(std::min(size, most));
}

class DiskFile final : public File {
  public:
    explicit DiskFile(Handle file) : file_(std::move(file)) {}

    std::optional<std::size_t> read_at(std::int64_t offset,
                                       std::span<std::uint8_t> bytes) override {
        OVERLAPPED from = place(offset);
        DWORD count = 0;
        if (ReadFile(file_.get(), bytes.data(), size_of_one_call(bytes.size()), &count, &from) ||
            GetLastError() == ERROR_HANDLE_EOF)
            return count;
        return std::nullopt;
    }

    bool write_at(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
        while (!bytes.empty()) {
            OVERLAPPED to = place(offset);
            DWORD count = 0;
            if (!WriteFile(file_.get(), bytes.data(), size_of_one_call(bytes.size()), &count,
                           &to) ||
                count == 0)
                return false;
            bytes = bytes.subspan(count);
            offset += count;
        }
        return true;
    }

    bool flush() override {
        return FlushFileBuffers(file_.get()) || !may_have_lost(GetLastError());
    }

    bool close() override { return file_.close(); }

    // The locked byte lies where no image reaches, so that the lock hinders nobody's access.
    Answer lock() override {
        constexpr std::int64_t far_beyond = std::int64_t{1} << 62;
        OVERLAPPED locked = place(far_beyond);
        if (LockFileEx(file_.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                       &locked))
            return Answer::yes;
        return is_one_of(GetLastError(), {ERROR_LOCK_VIOLATION, ERROR_IO_PENDING})
                   ? Answer::no
                   : Answer::unknown;
    }

    std::optional<FileStatus> status() override {
        LARGE_INTEGER size;
        const std::optional<FileIdentity> identity = identity_of(file_);
        if (!identity || !GetFileSizeEx(file_.get(), &size))
            return std::nullopt;
        return FileStatus{*identity, size.QuadPart, 0};
    }

  private:
    Handle file_;
};

// Unlike MoveFileExW this replaces a file that this program has open itself. Older file systems
// can't.
bool rename_over_open_file(const std::wstring& from, const std::wstring& to) {
    const Handle file(from, DELETE | SYNCHRONIZE, OPEN_EXISTING,
                      any_kind | FILE_FLAG_OPEN_REPARSE_POINT);
    std::vector<std::uint64_t> room((sizeof(FILE_RENAME_INFO) + to.size() * sizeof(wchar_t)) / 8 +
                                    1);
    auto* const wanted = reinterpret_cast<FILE_RENAME_INFO*>(room.data());
    wanted->Flags = FILE_RENAME_FLAG_REPLACE_IF_EXISTS | FILE_RENAME_FLAG_POSIX_SEMANTICS;
    wanted->FileNameLength = static_cast<DWORD>(to.size() * sizeof(wchar_t));
    std::memcpy(wanted->FileName, to.data(), wanted->FileNameLength);
    return file && SetFileInformationByHandle(file.get(), FileRenameInfoEx, wanted,
                                              static_cast<DWORD>(room.size() * 8));
}

class Disk : public FileLayer {
  public:
    std::unique_ptr<File> open(const std::string& path) override {
        return status_of(path).writable ? open_regular(path, GENERIC_READ | GENERIC_WRITE)
                                        : nullptr;
    }
    std::unique_ptr<File> open_to_read(const std::string& path) override {
        return open_regular(path, GENERIC_READ);
    }
    // The folder says who may use a new file.
    std::unique_ptr<File> create(const std::string& path, unsigned) override {
        const std::wstring name = system_name(path);
        return is_device(name) ? nullptr : file_of(name, GENERIC_READ | GENERIC_WRITE, CREATE_NEW);
    }
    std::string target_of(const std::string& path) override {
        const std::wstring name = system_name(path);
        const DWORD attributes = GetFileAttributesW(name.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
            return path;
        const Handle file = look_at(name);
        const std::wstring target = text_from([&](wchar_t* buffer, DWORD size) {
            return file ? GetFinalPathNameByHandleW(file.get(), buffer, size, 0) : 0;
        });
        return target.empty() ? path : utf8(target);
    }
    bool rename(const std::string& from, const std::string& to) override {
        const std::wstring old_name = system_name(from), new_name = system_name(to);
        return rename_over_open_file(old_name, new_name) ||
               MoveFileExW(old_name.c_str(), new_name.c_str(),
                           MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    }
    void remove(const std::string& path) override { DeleteFileW(system_name(path).c_str()); }
    Answer leads_to(const std::string& path, const FileIdentity& file) override {
        const std::wstring name = system_name(path);
        if (name.empty() || is_device(name))
            return Answer::no;
        const Handle there = look_at(name);
        if (!there)
            return leads_nowhere(GetLastError()) ? Answer::no : Answer::unknown;
        const std::optional<FileIdentity> identity = identity_of(there);
        return !identity ? Answer::unknown : *identity == file ? Answer::yes : Answer::no;
    }
    NameStatus status_of(const std::string& path) override {
        const std::wstring name = system_name(path);
        if (is_device(name)) // even to look at one could set it off
            return {NameStatus::other};
        const DWORD attributes = GetFileAttributesW(name.c_str()); // of a link itself
        if (attributes == INVALID_FILE_ATTRIBUTES)
            return {is_denied() ? NameStatus::regular_file : NameStatus::nothing};
        const Handle file = look_at(name);
        if (!file && is_denied() && !(attributes & FILE_ATTRIBUTE_DIRECTORY))
            return {NameStatus::regular_file};
        if (!file)
            return {attributes & FILE_ATTRIBUTE_REPARSE_POINT ? NameStatus::lost_link
                                                              : NameStatus::other};
        const auto known = regular_file(file);
        if (!known)
            return {NameStatus::other};
        NameStatus status{NameStatus::regular_file};
        status.writable = !(known->dwFileAttributes & FILE_ATTRIBUTE_READONLY) &&
                          access_error(name, GENERIC_WRITE) == 0;
        status.held = access_error(name, GENERIC_WRITE | DELETE) == ERROR_SHARING_VIOLATION;
        return status;
    }
    // A renaming is written with the file system's journal.
    bool flush_folder(const std::string&) override { return true; }

  private:
    static bool leads_nowhere(DWORD error) {
        return is_one_of(error, {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME,
                                 ERROR_BAD_PATHNAME, ERROR_CANT_RESOLVE_FILENAME});
    }
    // Whether the call that has just failed may not even look at what is there, which then counts
    // as a file that can't be written.
    static bool is_denied() { return GetLastError() == ERROR_ACCESS_DENIED; }
    // Why a file can't be opened so, 0 where it can.
    static DWORD access_error(const std::wstring& name, DWORD access) {
        return Handle(name, access, OPEN_EXISTING, 0) ? 0 : GetLastError();
    }
    std::unique_ptr<File> open_regular(const std::string& path, DWORD access) {
        if (status_of(path).kind != NameStatus::regular_file)
            return nullptr;
        return file_of(system_name(path), access, OPEN_EXISTING);
    }
    static std::unique_ptr<File> file_of(const std::wstring& name, DWORD access, DWORD creation) {
        Handle file(name, access, creation, FILE_ATTRIBUTE_NORMAL);
        return file && regular_file(file) ? std::make_unique<DiskFile>(std::move(file)) : nullptr;
    }
};

} // namespace

std::unique_ptr<FileLayer> make_disk() {
    SetErrorMode(SEM_FAILCRITICALERRORS); // an empty drive fails, and opens no window of the system
    return std::make_unique<Disk>();
}

std::filesystem::path stream_path(const std::string& name) {
    return system_name(name);
}

bool make_folder(const std::string& name) {
    const std::wstring whole = system_name(name);
    if (is_device(whole))
        return false;
    for (std::size_t end = 0; end < whole.size();) {
        end = std::min(whole.find(L'\\', end + 1), whole.size());
        CreateDirectoryW(whole.substr(0, end).c_str(), nullptr); // fails where there is one
    }
    const DWORD attributes = GetFileAttributesW(whole.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY;
}

std::vector<std::string> command_line(int, char**) {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> converted;
    for (int i = 0; words && i < count; ++i)
        converted.push_back(utf8(words[i]));
    LocalFree(words);
    return converted;
}

} // namespace veldrune
