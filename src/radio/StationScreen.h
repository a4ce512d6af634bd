// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown of a station: its name, what it plays, and how it stands with it. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "player/Core.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::radio {

/// How it stands with a station.
enum class StationStatus : std::uint8_t {
    sounds, ///< there is nothing to say, its title stands there
    connecting,
    buffering,
    reconnecting,
    noSuchStation,
    noAnswer, ///< it never sounded, and is tried again
    noSound,  ///< nothing to be heard is there
};

inline constexpr std::size_t kStationStatuses = 7;

/// Nothing is drawn anew that stands there already.
class StationScreen {
public:
    /// Both outlive the object. Nothing is shown yet.
    StationScreen(const player::Core& core, const config::MultiLNG& language)
        : core_(core), language_(language) {}

    /// Reads the words of the language anew, and shows them.
    void readWords();

    /// A station of the list with that title takes the display; nothing else is known of it.
    void begin(std::string_view title);

    /// The name that it gives itself; bytes as sent.
    void setName(std::string_view name);

    /// What it plays, as people see it.
    void setTitle(std::string_view title);

    /// `percent`: of what is buffered.
    void setStatus(StationStatus status, int percent = 0);

    /// Of the sound; 0 and empty while unknown.
    void setFormat(int kbps, int hertz, const std::string& mode);

    /// The display belongs to something else: nothing more is shown.
    void end() { shown_ = false; }

    /// What it calls itself, or its title in the list.
    [[nodiscard]] const std::string& name() const { return name_; }

    /// The song, or the station's title while it tells none.
    [[nodiscard]] const std::string& title() const { return title_; }

private:
    [[nodiscard]] std::string statusText() const;
    void show();

    const player::Core& core_;
    const config::MultiLNG& language_;
    std::array<std::string, kStationStatuses - 1> words_; ///< by status, from `connecting` on
    bool shown_ = false;
    std::string name_;
    std::string title_;
    StationStatus status_ = StationStatus::sounds;
    int percent_ = 0;
};

} // namespace tovik::radio
