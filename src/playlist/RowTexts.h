// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of one row of a list in a single block of memory: a list of 100,000 rows would
// otherwise spend more on empty strings and spare room than on letters. One thread at a time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace tovik::playlist {

/// Which text of a row.
enum class RowText : std::uint8_t { ItemData, FileName, Title, TimeText };

inline constexpr std::size_t kRowTexts = 4;

/// Four texts. Views into it hold until the object is changed or goes.
class RowTexts {
public:
    RowTexts() = default;

    /// Raises Overflow for a text of 4 GiB or more.
    RowTexts(std::string_view itemData, std::string_view fileName, std::string_view title,
             std::string_view timeText);

    [[nodiscard]] std::string_view get(RowText which) const noexcept;

    /// Replaces one text; the new one may be a part of an old one.
    void set(RowText which, std::string_view text);

private:
    // NOLINTNEXTLINE(modernize-avoid-c-arrays): the block's length is known at run time only
    using Bytes = char[];

    [[nodiscard]] static std::unique_ptr<Bytes>
    packed(const std::array<std::string_view, kRowTexts>& texts);

    // The lengths of the four texts, then their bytes.
    std::unique_ptr<Bytes> block_;
};

} // namespace tovik::playlist
