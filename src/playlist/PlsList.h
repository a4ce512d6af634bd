// SPDX-License-Identifier: GPL-3.0-or-later
// Between the bytes of a PLS file and a list. Interface thread.
#pragma once

#include "host/MessagePump.h"
#include "playlist/M3uList.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::playlist {

class stdSS;

/// As many rows without any key of their own are added at most. More than that a number with
/// nothing behind it does not bring, or one line could fill the memory.
inline constexpr std::int32_t kMostEmptyEntries = 32767;

/// Appends the entries of PLS text to the list, from 1 to "NumberOfEntries". Gives way once before
/// them and once at each. A name or title that is missing is empty; a length that is missing or no
/// number is that of the entry before, or 0 with `Comfort::forgetsLengths`. With
/// `Comfort::readsAllOfPls` the entries are those that name a file, whatever the count says.
/// Nothing is raised.
[[nodiscard]] ReadEnd appendPls(std::string_view text, stdSS& list, host::MessagePump& pump,
                                const ListManner& manner = {});

/// The list as PLS text.
[[nodiscard]] std::string plsText(const stdSS& list, const ListManner& manner = {});

} // namespace tovik::playlist
