// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of a text file. One thread at a time.
#pragma once

#include <optional>
#include <string_view>

namespace tovik::base {

/// Takes a text apart at CR LF, LF or CR. What stands behind the last line end is a line unless it
/// is empty.
class LineReader {
public:
    /// The text must outlive the reader and its lines.
    explicit LineReader(std::string_view text) noexcept : rest_(text) {}

    /// The next line without its end; nothing behind the last one.
    [[nodiscard]] std::optional<std::string_view> next() noexcept;

private:
    std::string_view rest_;
};

} // namespace tovik::base
