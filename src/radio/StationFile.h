// SPDX-License-Identifier: GPL-3.0-or-later
// The file of the radio stations, as bytes: a section "stationlist" with two keys for each station.
// Pure; any thread.
#pragma once

#include "config/Profile.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::radio {

inline constexpr std::string_view kStationSection = "stationlist";
inline constexpr std::string_view kStationCount = "NumberOfEntries";

/// As many stations as a file can tell of.
inline constexpr std::int32_t kMostStations = 32767;

/// The keys of a station's address and name. They cross over: what is called "Url" is the name.
[[nodiscard]] std::string addressKey(std::int32_t number);
[[nodiscard]] std::string nameKey(std::int32_t number);

/// A file taken apart once. Keys match in any case of ASCII letters, the first of a name counts.
class StationFile {
public:
    explicit StationFile(std::string_view bytes, std::size_t width = config::kProfileValueWidth);

    /// As the profile reader tells it, as wide as that at most; empty for a missing key.
    [[nodiscard]] std::string value(std::string_view key) const;

    /// How many stations it tells of: 0 for a missing count or one below 0, nothing for a count
    /// that is no number or beyond `kMostStations`.
    [[nodiscard]] std::optional<std::int32_t> count() const;

private:
    std::map<std::string, std::string> values_; ///< by their keys in small letters
};

/// Appends the line that begins the file.
void appendStationHead(std::string& file);

/// Appends the two lines of a station; `number` counts from 1. What would end a line becomes a
/// blank.
void appendStation(std::string& file, std::int32_t number, std::string_view address,
                   std::string_view name);

/// Appends the two lines that end the file.
void appendStationTail(std::string& file, std::int32_t count);

} // namespace tovik::radio
