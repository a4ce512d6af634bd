// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the file of one song of a stream. One thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <system_error>

namespace tovik::radio {

/// How an existing file is opened.
enum class SongFile {
    anew,    ///< it is replaced
    goingOn, ///< what comes is added to it
};

/// Closed with the object. A name that leads elsewhere (a link), or is no file, is refused.
class clsFileIo {
public:
    clsFileIo() = default;

    ~clsFileIo() { CloseFile(); }

    clsFileIo(const clsFileIo&) = delete;
    clsFileIo& operator=(const clsFileIo&) = delete;

    /// Makes the file, in place of one of that name. False when it cannot be made; `failure` tells
    /// why. A file that is open is closed.
    bool OpenFile(const std::string& name, SongFile how = SongFile::anew);

    /// Whether a name was set.
    bool CloseFile();

    /// Writes a block, and it is out of this program's hands. Before the first one of a file
    /// (`synced` is false) the block must hold 0xFF, 0xFB, the beginning of an MPEG frame, with a
    /// byte behind it: then four bytes are written first, these three and 0, and `synced` becomes
    /// true; what stands before that place in the block is not cut away. A block without one is
    /// dropped. Without an open file nothing happens. False when the disk took less than all.
    bool WriteBytes(std::span<const std::byte> buffer, bool& synced);

    [[nodiscard]] std::error_code failure() const noexcept { return lastResult_; }

    [[nodiscard]] std::uint64_t bytesWritten() const noexcept { return bytesWritten_; }

private:
    bool write(std::span<const std::byte> bytes);
    [[nodiscard]] bool take(int descriptor, SongFile how);

    int descriptor_ = -1;
    std::error_code lastResult_;
    std::uint64_t bytesWritten_ = 0;
    std::string name_;
};

} // namespace tovik::radio
