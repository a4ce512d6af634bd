// SPDX-License-Identifier: GPL-3.0-or-later
// A text of a fixed width. Any thread.
#pragma once

#include "base/Text.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tovik::tags {

/// Holds bytes left-justified, cut at the width and filled with blanks.
template <std::size_t Width>
class FixedText {
public:
    FixedText() = default;

    FixedText& operator=(std::string_view text) {
        text_ = base::cutToWidth(text, Width);
        text_.resize(Width, ' ');
        return *this;
    }

    /// All of it.
    [[nodiscard]] const std::string& bytes() const noexcept { return text_; }

    /// Without the blanks at both ends.
    [[nodiscard]] std::string trimmed() const { return std::string(base::trimmed(text_)); }

private:
    std::string text_ = std::string(Width, ' ');
};

} // namespace tovik::tags
