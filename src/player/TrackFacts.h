// SPDX-License-Identifier: GPL-3.0-or-later
// Collects and shows the facts of a started track; plain starts and crossfades share it.
// Interface thread.
#pragma once

#include "config/Settings.h"
#include "player/CBASS_TIME.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "player/TrackEvents.h"
#include "playlist/stdSS.h"
#include "tags/cMP3ID3v1.h"

#include <string>

namespace tovik::player {

class TrackFacts {
public:
    /// All of them outlive the object.
    TrackFacts(PlayerState& state, CBASS_TIME& time, config::Settings& settings,
               tags::cMP3ID3v1& tag, playlist::stdSS& list, NowPlaying& playing,
               NowPlayingView& view, TrackEvents& events);

    /// A file or a disc's track becomes the current source: the fields of the tag take the place of
    /// what a station showed.
    void takeOverFields();

    /// From the rate to the report: everything that follows the start of the sound of `path` on
    /// `channel`. `title` is for the popup; empty takes the title of the row fetched last.
    void show(sound::Handle channel, const std::string& path, const std::string& title);

    /// A CD track tells nothing of itself but its row.
    void showNothingKnown();

    /// A file did not open: title and captions are those of its row. What sounds besides goes on,
    /// and so does the clock.
    void showUnopened();

    /// Nothing sounds any more: clock and position mark stand at the start, nothing is known of a
    /// track, and no row has the played look.
    void showSilence();

    /// Current title, scroller and captions from the row fetched last and the length of `channel`.
    void showTitles(sound::Handle channel);

    /// Writes the length of `channel` into the selected row.
    void refreshRowTime(sound::Handle channel);

private:
    void showSoundingRow();
    void showFormat(sound::Handle channel, const std::string& path);
    void readFields(const std::string& path);
    void showPopup(sound::Handle channel, const std::string& title);
    [[nodiscard]] std::string lastFive(sound::Handle channel);

    PlayerState& state_;
    CBASS_TIME& time_;
    config::Settings& settings_;
    tags::cMP3ID3v1& tag_;
    playlist::stdSS& list_;
    NowPlaying& playing_;
    NowPlayingView& view_;
    TrackEvents& events_;
};

} // namespace tovik::player
