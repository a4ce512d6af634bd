// SPDX-License-Identifier: GPL-3.0-or-later
// Who must know that a track started or that nothing plays: popup, messenger, visualisation. The
// player calls; what stands above it implements. Interface thread.
#pragma once

#include <string>

namespace tovik::player {

/// What is told of a started track.
struct TrackReport {
    std::string path;
    std::string artist; ///< as shown, empty when unknown
    std::string title;
    std::string album;
    std::string listTitle; ///< the title of its row
    int seconds = 0;
};

/// The parts of the status message that nothing plays.
inline constexpr const char* kNothingFormat = "{0} - {1}";
inline constexpr const char* kNothingWord = "Music";

class TrackEvents {
public:
    virtual ~TrackEvents() = default;

    /// A track started; `text` is for the title popup.
    virtual void showTitlePopup(const std::string& /*text*/) {}

    /// For the status message of messengers and the desktop.
    virtual void reportTrack(const TrackReport& /*report*/) {}

    /// More is known of the track that was told last.
    virtual void reportFacts(const TrackReport& /*report*/) {}

    /// A track took the place of the one before, and no more is known than its path: one of a
    /// disc. Empty: a file did not open, and nothing sounds.
    virtual void reportUnknownTrack(const std::string& /*path*/) {}

    /// The last track is over and none follows; told again as long as the clock goes on looking.
    virtual void reportEndOfList() {}

    /// Nothing plays; `format` and `word` are the parts of the status message.
    virtual void reportNothing(const std::string& /*format*/, const std::string& /*word*/) {}

    /// A file that was to be played did not open.
    virtual void reportUnplayable() {}

    /// What plays was paused or goes on.
    virtual void reportPause() {}

    /// What plays was taken to another place.
    virtual void reportSeek() {}

    /// The sound that a running visualisation shows is another one.
    virtual void restartVisualisation() {}

    virtual void stopVisualisation() {}

    /// What rests may have something to move for again: sound goes on after a pause, or the place
    /// where a visualisation is drawn comes in sight. Told rather too often than too seldom.
    virtual void stirVisualisation() {}
};

} // namespace tovik::player
