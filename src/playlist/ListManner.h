// SPDX-License-Identifier: GPL-3.0-or-later
// How a list is read or written: what of it is kinder, and where it lies. Any thread.
#pragma once

#include "base/Comfort.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::playlist {

/// Without any comfort everything in a list is taken, and written, as it stands.
struct ListManner {
    base::Comfort comfort{};
    std::string folder{}; ///< of the list, absolute; empty: names stay as they are
};

/// The file of an entry: see `Comfort::resolvesNames`.
[[nodiscard]] std::string fileOfEntry(std::string_view name, const ListManner& manner);

/// The title of an entry: see `Comfort::namesUntitled`.
[[nodiscard]] std::string titleOfEntry(std::string_view title, std::string_view fileName,
                                       const ListManner& manner);

/// The name by which a list calls a file: see `Comfort::savesRelativeNames`.
[[nodiscard]] std::string nameForList(std::string_view fileName, const ListManner& manner);

/// The seconds that a length tells, rounded; 0 where it is no number, too big, or less than 0, by
/// which others say that they do not know. What stands behind a blank is no part of it.
[[nodiscard]] std::int32_t knownSeconds(std::string_view length);

} // namespace tovik::playlist
