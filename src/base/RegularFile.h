// SPDX-License-Identifier: GPL-3.0-or-later
// An existing file, read or changed in place. One thread at a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>

namespace tovik::base {

/// An open file that is a file: folders, pipes and devices are refused, and opening neither
/// creates a file nor waits. Closed with the object.
class RegularFile {
public:
    enum class Access { Read, ReadWrite };

    RegularFile(const std::string& path, Access access);
    ~RegularFile();
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    /// Why it could not be opened. After a failure nothing else may be called.
    [[nodiscard]] std::error_code failure() const noexcept { return failure_; }

    /// In bytes, when it was opened.
    [[nodiscard]] std::int64_t size() const noexcept { return size_; }

    /// Up to `count` bytes from `offset`; fewer only where the file ends.
    [[nodiscard]] std::error_code readAt(std::int64_t offset, std::size_t count,
                                         std::string& bytes) const;

    /// Writes all bytes at `offset`; the file grows where it must.
    [[nodiscard]] std::error_code writeAt(std::int64_t offset, std::string_view bytes);

    /// Cuts the file, or fills it with zeros, to this size.
    [[nodiscard]] std::error_code resize(std::int64_t size);

private:
    int descriptor_ = -1;
    std::int64_t size_ = 0;
    std::error_code failure_;
};

/// The most that is read at once; far more than any list or settings file holds.
inline constexpr std::int64_t kMostWholeFileBytes = std::int64_t{1} << 30;

/// All bytes of a file; one with more than `mostBytes` counts as lack of memory. On a failure
/// `bytes` is empty.
[[nodiscard]] std::error_code readWholeFile(const std::string& path, std::string& bytes,
                                            std::int64_t mostBytes = kMostWholeFileBytes);

} // namespace tovik::base
