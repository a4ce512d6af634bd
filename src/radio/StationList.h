// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the list of radio stations in its file. Interface thread.
#pragma once

#include "config/Errors.h"
#include "playlist/stdSS.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::radio {

/// What the time column of a station says.
inline constexpr std::string_view kStationTime = "IRT";

/// Appends a station to a list: the address as data and file name, the name as title.
void addStation(playlist::stdSS& list, std::string_view address, std::string_view name);

class StationList {
public:
    /// Both outlive the object.
    StationList(playlist::stdSS& list, const config::Errors& errors)
        : list_(list), errors_(errors) {}

    /// One value of a file, 254 bytes at most; empty when it is absent, as in a missing file.
    [[nodiscard]] static std::string ReadStationList(std::string_view section, std::string_view key,
                                                     const std::string& path);

    /// Replaces the file by one that tells of the first `count` rows: the old file or the whole
    /// new one, whatever happens. A failure is logged; the answer is always true.
    bool WriteStationList(const std::string& path, std::int16_t count);

    /// What such a file would hold now.
    [[nodiscard]] std::string fileText(std::int16_t count) const;

    /// Appends the stations of a file, none of a missing one; addresses and names whole, or as wide
    /// as `ReadStationList` gives them. False for a file that cannot be
    /// read or whose count is none: it is logged, and such a file must not be written over.
    [[nodiscard]] bool load(const std::string& path, bool whole = false);

    /// Makes room for a new file: what stands there gets ".unread" behind its name. False when it
    /// stays where it is.
    [[nodiscard]] static bool setAside(const std::string& path);

private:
    void log(const base::RuntimeError& error, const std::string& path,
             const config::Procedure& procedure) const;

    playlist::stdSS& list_;
    const config::Errors& errors_;
};

} // namespace tovik::radio
