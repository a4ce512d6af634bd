// SPDX-License-Identifier: GPL-3.0-or-later
// Collects and shows the facts of a started track; plain starts and crossfades share it.
// Interface thread.
#pragma once

#include "player/CBASS_TIME.h"
#include "player/Core.h"
#include "player/TrackEvents.h"
#include "player/TrackRef.h"
#include "tags/cMP3ID3v1.h"
#include "tags/FileFacts.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tovik::player {

class TrackFacts {
public:
    /// Both outlive the object.
    TrackFacts(const Core& core, tags::cMP3ID3v1& tag);

    /// A file or a disc's track becomes the current source: the fields of the tag take the place of
    /// what a station showed.
    void takeOverFields();

    /// From the rate to the report: everything that follows the start of the sound of a track on
    /// `channel`. `popup` is the text of the title popup; empty takes the row's title.
    void show(sound::Handle channel, const TrackRef& track, const std::string& popup);

    /// A CD track tells nothing of itself but its row.
    void showNothingKnown(const TrackRef& track);

    /// A file did not open: its row is marked, and it is told.
    void noteUnopened(const TrackRef& track);

    /// The same, and title and captions are those of its row. What sounds besides goes on,
    /// and so does the clock.
    void showUnopened(const TrackRef& track);

    /// Nothing sounds any more: clock and position mark stand at the start, nothing is known of a
    /// track, and no row has the played look.
    void showSilence();

    /// A track waits to be played: what is known of it is shown as soon as it was read. Nothing is
    /// read without `Comfort::readsEveryFormat`.
    void showWaiting(const TrackRef& track);

    /// Current title, scroller and captions from the row and the length of `channel`.
    void showTitles(sound::Handle channel, const TrackRef& track);

    /// Writes the length of `channel` into a row.
    void refreshRowTime(sound::Handle channel, playlist::Row row);

private:
    /// What is known of a track at once. With `Comfort::readsEveryFormat` the rest comes later.
    [[nodiscard]] tags::FileFacts read(const TrackRef& track);
    [[nodiscard]] tags::FileFacts readEveryFormat(const TrackRef& track);
    void take(const std::string& path, const tags::FileFacts& facts);
    void takeWaiting(const TrackRef& track, const tags::FileFacts& facts);
    void forgetTrack();

    /// Brings a title into the row, and gives the track as it is shown from then on.
    [[nodiscard]] TrackRef refreshRowTitle(const TrackRef& track, const tags::FileFacts& facts);
    [[nodiscard]] TrackReport reportOf(sound::Handle channel, const TrackRef& track,
                                       const tags::FileFacts& facts);
    void showFormat(sound::Handle channel, const std::string& path);
    void showFormat(std::int32_t kilobits, std::int32_t hertz, const std::string& mode);
    void showFields(const tags::FileFacts& facts);
    void nameUnknown();
    void showPopup(sound::Handle channel, const std::string& text);
    void showTitles(const std::string& title, const std::string& length);
    [[nodiscard]] std::string length(sound::Handle channel);

    /// A track whose facts are asked for.
    struct Shown {
        TrackRef track;
        bool sounds; ///< or waits to be played
    };

    const Core& core_;
    tags::cMP3ID3v1& tag_;
    std::optional<Shown> track_;
    std::optional<tags::FileFacts> told_; ///< of it; none: they are on their way
    CBASS_TIME time_{core_.sound};
    std::shared_ptr<const void> taking_; ///< of the facts that come in
};

} // namespace tovik::player
