// SPDX-License-Identifier: GPL-3.0-or-later
// The titles and performers that the CD-Text of a disc tells. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::cd {

class CdTexts {
public:
    /// Strings of a key, "=" and a value, such as "TITLE1=Song", each ended by a NUL, up to an
    /// empty one or the end. Keys in any case; others than titles and performers are passed over.
    /// Values are UTF-8, else Windows-1252. Raises 9 for an index beyond `count` (0 to 99), 5 for a
    /// key without a value, 13 and 6 for an index that is no number. `skipsStray`: what is told of
    /// an index beyond `count` is passed over.
    CdTexts(std::string_view text, std::int32_t count, bool skipsStray = false);

    /// Index 0 is the whole disc, index n is track n; up to `count`. UTF-8, perhaps empty.
    [[nodiscard]] const std::string& title(std::int32_t index) const {
        return titles_.at(static_cast<std::size_t>(index));
    }

    [[nodiscard]] const std::string& performer(std::int32_t index) const {
        return performers_.at(static_cast<std::size_t>(index));
    }

private:
    std::vector<std::string> titles_;
    std::vector<std::string> performers_;
};

} // namespace tovik::cd
