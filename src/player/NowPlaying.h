// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown of the playing track, as one record, and those who show it. Interface thread.
#pragma once

#include "player/Mode.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tovik::player {

inline constexpr std::size_t kTagFields = 5;

/// A field of which nothing is known.
inline constexpr const char* kUnknown = "N/A";

/// The clock where nothing plays.
inline constexpr const char* kNoTime = "00:00";

struct NowPlaying {
    std::string infoText; ///< such as "128 kbps  44 KHZ"
    std::string mode;     ///< "Mono", "Stereo" or neither: the word that is bright

    /// Artist, title, album, year, genre.
    std::array<std::string, kTagFields> fields;

    /// The same, whole; what does not begin as the field does is out of date.
    std::array<std::string, kTagFields> wholeFields;

    std::string stationText; ///< what a station says of itself; lines end in LF

    std::string scrollerText;
    std::string caption;     ///< of the main window, as far as it has rotated
    std::string miniCaption; ///< of the mini window, likewise

    std::string time = kNoTime; ///< "mm:ss", or "h:mm:ss" where hours are told
    bool countsDown = false;    ///< a minus sign stands before the time
    double percent = 0;         ///< the position mark, 0 to 100

    std::string volumeText;    ///< such as "Volume 80%"
    std::string balanceText;   ///< such as "Left 25%"
    std::string hoverText;     ///< the balance of the lamp under the pointer
    bool balanceHover = false; ///< the pointer is held over the lamps: `hoverText` is shown

    std::string notice; ///< that nothing of this session is kept; empty while all is
};

/// Somebody who shows the record. It is told which part changed, and says what of it it shows.
class NowPlayingView {
public:
    virtual ~NowPlayingView() = default;

    /// The facts of the track: info text, mode, fields.
    virtual void showFacts(const NowPlaying& /*playing*/) {}

    /// Of these, the info text and the mode.
    virtual void showFormat(const NowPlaying& /*playing*/) {}

    /// Scroller and captions.
    virtual void showTitles(const NowPlaying& /*playing*/) {}

    /// The title that was shown last belongs to what waits to be played: scroller and captions
    /// stand still until the next one.
    virtual void holdTitles() {}

    /// Only the captions.
    virtual void showCaptions(const NowPlaying& /*playing*/) {}

    virtual void showTime(const NowPlaying& /*playing*/) {}

    virtual void showPosition(const NowPlaying& /*playing*/) {}

    /// The words for volume and balance.
    virtual void showVolume(const NowPlaying& /*playing*/) {}

    virtual void showBalance(const NowPlaying& /*playing*/) {}

    /// The volume became that of the state, other than by a hand on this view's own bar.
    virtual void showVolumeLevel() {}

    /// A balance from -100 to 100 is heard.
    virtual void showBalanceLevel(std::int16_t /*pan*/) {}

    /// What a station says of itself.
    virtual void showStation(const NowPlaying& /*playing*/) {}

    /// Whether a station is being saved, as the state has it.
    virtual void showRecording() {}

    /// A file or a station, as the state has it, is the current source.
    virtual void showSource() {}

    /// A mode was switched; the state says how.
    virtual void showMode(Mode /*mode*/) {}

    /// Whether the player stops after this track, as the state has it.
    virtual void showStopNote() {}

    /// The notice, also in other words.
    virtual void showNotice(const NowPlaying& /*playing*/) {}

    /// The equalizer was switched; the state says how.
    virtual void showEqualizer() {}

    /// A slider of the equalizer, a band or the master, has that value.
    virtual void showSlider(std::size_t /*slider*/, std::int32_t /*value*/) {}
};

} // namespace tovik::player
