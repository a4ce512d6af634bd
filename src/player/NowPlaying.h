// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown of the playing track, as one record: each window maps it onto its own elements.
// Interface thread.
#pragma once

#include <array>
#include <string>

namespace tovik::player {

inline constexpr std::size_t kTagFields = 5;

/// The clock where nothing plays.
inline constexpr const char* kNoTime = "00:00";

struct NowPlaying {
    std::string infoText; ///< such as "128 kbps  44 KHZ"
    std::string mode;     ///< "Mono", "Stereo" or neither: the word that is bright

    /// Artist, title, album, year, genre.
    std::array<std::string, kTagFields> fields;

    std::string scrollerText;
    std::string caption;     ///< of the main window, as far as it has rotated
    std::string miniCaption; ///< of the mini window, likewise

    std::string time = kNoTime; ///< five characters, the third is the colon
    bool countsDown = false;    ///< a minus sign stands before the time
    double percent = 0;         ///< the position mark, 0 to 100

    std::string volumeText;    ///< such as "Volume 80%"
    std::string balanceText;   ///< such as "Left 25%"
    std::string hoverText;     ///< the balance of the lamp under the pointer
    bool balanceHover = false; ///< the pointer is held over the lamps: `hoverText` is shown
};

/// A window that shows the record. It is told which part changed.
class NowPlayingView {
public:
    virtual ~NowPlayingView() = default;

    /// The facts of the track: info text, mode, fields.
    virtual void showFacts(const NowPlaying& playing) = 0;

    /// Of these, the info text and the mode.
    virtual void showFormat(const NowPlaying& playing) = 0;

    /// Scroller and captions.
    virtual void showTitles(const NowPlaying& playing) = 0;

    /// Only the captions.
    virtual void showCaptions(const NowPlaying& playing) = 0;

    virtual void showTime(const NowPlaying& playing) = 0;
    virtual void showPosition(const NowPlaying& playing) = 0;

    /// The words for volume and balance.
    virtual void showVolume(const NowPlaying& playing) = 0;
    virtual void showBalance(const NowPlaying& playing) = 0;

    /// A file is the current source: its labels and fields show, in place of a station's line, and
    /// are hidden on the other panels.
    virtual void showFields(bool visible) = 0;
};

} // namespace tovik::player
