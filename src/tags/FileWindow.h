// SPDX-License-Identifier: GPL-3.0-or-later
// Looks at a file piece by piece without holding the whole of it. One thread at a time.
#pragma once

#include "base/RegularFile.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::tags {

class FileWindow {
public:
    static constexpr std::size_t kWindowBytes = 16384;

    /// The file was opened without a failure and outlives the object.
    explicit FileWindow(const base::RegularFile& file, std::size_t windowBytes = kWindowBytes)
        : file_(file), windowBytes_(windowBytes) {}

    /// The bytes from an offset (0 or more) on; fewer where the file ends or cannot be read. What
    /// is asked for beyond the end takes no memory. Valid until the next call.
    [[nodiscard]] std::string_view at(std::int64_t offset, std::size_t count);

    /// In bytes.
    [[nodiscard]] std::int64_t size() const noexcept { return file_.size(); }

private:
    const base::RegularFile& file_;
    std::size_t windowBytes_;
    std::string bytes_;
    std::int64_t start_ = 0;
};

} // namespace tovik::tags
