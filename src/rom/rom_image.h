#pragma once

#include "rom/file_layer.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace veldrune {

/// 24 bits as the image holds them: three bytes, the lowest first.
using Pointer24 = std::array<std::uint8_t, 3>;
constexpr Pointer24 pointer24_bytes(std::int64_t value) {
    return {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value >> 16)};
}

/// The one open image file. Offsets are 0-based file offsets, the 0x200-byte copier header
/// included; words and pointers are little-endian. There is no cache: what is written is in the
/// file when the call returns. A read outside the file, or with no file open, yields 0xFF; so does
/// one that the disk refuses, which a ReadWatch reports.
class RomImage {
  public:
    explicit RomImage(FileLayer& file_layer) : files_(file_layer) {}

    /// Opens path for reading and writing instead of the file that was open. On failure that one
    /// stays open. Fails also if the file's status can't be read.
    bool open(const std::string& path);
    /// After a failed opening of path: the reason, as far as the system knows one.
    const char* why_not_open(const std::string& path) const;
    bool is_open() const { return file_ != nullptr; }
    /// The path of the open file.
    const std::string& path() const { return path_; }
    /// The identity of the open file, which survives a change of its name.
    FileIdentity identity() const { return identity_; }
    /// Whether path names the open file.
    bool is_file(const std::string& path) const;
    /// Size of the open file in bytes. Nothing without one, or if the disk does not report it.
    std::optional<std::int64_t> size() const;
    /// Whether the path that the file was opened by still leads to it.
    Answer path_leads_here() const { return files_.leads_to(path_, identity_); }
    /// Whether writing was agreed to although the path no longer leads to the file; ends with the
    /// next opening.
    bool nameless_accepted = false;
    /// Whether another program had marked the file as being edited when it was opened.
    bool is_edited_elsewhere() const { return edited_elsewhere_; }
    /// Copies the open file to path, as copy_file does.
    std::optional<std::string> copy_to(const std::string& path) const;
    /// How many reads the disk has refused so far.
    int refused_reads() const { return refused_reads_; }

    std::uint8_t read_byte(std::int64_t offset) const;
    std::uint16_t read_word(std::int64_t offset) const;
    std::int32_t read_pointer24(std::int64_t offset) const;
    /// Fills all of bytes from offset on. Returns how many of them the file holds.
    std::size_t read(std::int64_t offset, std::span<std::uint8_t> bytes) const;

    /// False if the bytes could not be written; some of them may then be in the file.
    bool write(std::int64_t offset, std::span<const std::uint8_t> bytes);
    /// Has the disk confirm what was written since the last flush, if anything. False where it does
    /// not, or where a write has failed since then.
    bool flush();
    /// Whether a write has failed since the last flush.
    bool has_failed_write() const { return write_failed_; }
    bool write_byte(std::int64_t offset, std::uint8_t value) { return write(offset, {&value, 1}); }

  private:
    FileLayer& files_;
    std::unique_ptr<File> file_;
    std::string path_;
    FileIdentity identity_;
    mutable int refused_reads_ = 0;
    bool edited_elsewhere_ = false;
    bool unflushed_ = false;
    bool write_failed_ = false;
};

/// Watches the reads of an image from its own construction on.
class ReadWatch {
  public:
    explicit ReadWatch(const RomImage& rom) : rom_(rom), refused_before_(rom.refused_reads()) {}
    /// Whether the disk has refused a read since then.
    bool refused() const { return rom_.refused_reads() != refused_before_; }
    const RomImage& rom() const { return rom_; }

  private:
    const RomImage& rom_;
    int refused_before_;
};

/// The image that something in memory was read from.
struct ImageSource {
    FileIdentity identity;
    std::string path;
};
inline ImageSource source_of(const RomImage& rom) {
    return {rom.identity(), rom.path()};
}
/// Whether there is a source, and it is the open image.
inline bool is_from(const std::optional<ImageSource>& source, const RomImage& rom) {
    return source && source->identity == rom.identity();
}

} // namespace veldrune
