// SPDX-License-Identifier: GPL-3.0-or-later
// A field of a tag between its bytes and what people see and type. Any thread.
#pragma once

#include "base/Windows1252.h"

#include <string>
#include <string_view>
#include <utility>

namespace tovik::tags {

/// As long as nobody types, the bytes stay what they were.
class TagField {
public:
    TagField() = default;

    explicit TagField(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] const std::string& bytes() const noexcept { return bytes_; }

    /// In UTF-8.
    [[nodiscard]] std::string text() const { return base::displayText(bytes_); }

    /// Takes typed UTF-8: as Windows-1252 where every character fits and comes back as it was
    /// typed, else as it is.
    void type(std::string text) {
        std::string narrow = base::windows1252FromUtf8(text).value_or(text);
        bytes_ = base::displayText(narrow) == text ? std::move(narrow) : std::move(text);
    }

private:
    std::string bytes_;
};

} // namespace tovik::tags
