// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a file as who reads and edits tags sees them. One thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::tags {

class TagBytes {
public:
    TagBytes() = default;
    virtual ~TagBytes() = default;
    TagBytes(const TagBytes&) = delete;
    TagBytes& operator=(const TagBytes&) = delete;

    [[nodiscard]] virtual std::int64_t size() const = 0;

    /// Up to `count` bytes from `offset`; fewer where they end, none where they cannot be read.
    [[nodiscard]] virtual std::string read(std::int64_t offset, std::size_t count) = 0;

    /// Puts bytes in the place of `count` others. What lies between the end and an offset behind
    /// it becomes zeros. Nothing on the disk changes by it.
    virtual void replace(std::int64_t offset, std::int64_t count, std::string_view bytes) = 0;
};

} // namespace tovik::tags
