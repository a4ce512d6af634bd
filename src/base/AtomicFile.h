// SPDX-License-Identifier: GPL-3.0-or-later
// Replacing a file so that a crash or a full disk leaves the old one or the new one, never half
// of one. One thread at a time.
#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace tovik::base {

/// Whether the bytes must have reached the disk before the new file takes the old one's place.
enum class Flush { No, Yes };

/// A file being written beside the one that it is to replace. Until `commit` succeeds the old file
/// stays as it was; without it the new bytes are dropped. The new file takes over the access mode
/// of the old one and, where that is allowed, its owner and group, and where the name is a symbolic
/// link, the file it points to is replaced.
class AtomicFile {
public:
    explicit AtomicFile(const std::string& path);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Whether the new file has, as far as is known, the owner and group of the old one.
    [[nodiscard]] bool keepsOwner() const noexcept { return keepsOwner_; }

    /// Appends bytes to the new file. After a failure every further call answers with it.
    std::error_code write(std::string_view bytes);

    /// Puts the new file in the old one's place, if everything was written. To be called once.
    [[nodiscard]] std::error_code commit(Flush flush);

private:
    void open();
    void fail();

    std::string path_;
    std::string temporaryPath_;
    int descriptor_ = -1;
    bool keepsOwner_ = true;
    std::error_code failure_;
};

/// Replaces a whole file, or makes it, by these bytes.
[[nodiscard]] std::error_code replaceFile(const std::string& path, std::string_view bytes,
                                          Flush flush);

/// Removes what processes that were killed while they wrote have left in a folder. What a living
/// process writes stays.
void sweepLeftovers(const std::string& folder);

} // namespace tovik::base
