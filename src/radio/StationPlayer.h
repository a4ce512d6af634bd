// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a station: starts it, looks how it stands with it, shows what it tells, and opens it again
// when it is lost. Interface thread; it never waits for the network.
#pragma once

#include "player/AddressPlayer.h"
#include "player/Core.h"
#include "player/Playback.h"
#include "radio/modNetRadio.h"
#include "radio/Reopening.h"
#include "radio/StationScreen.h"
#include "sound/api/StreamReport.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace tovik::radio {

/// A stream is begun and, when it ends, begun anew; nothing is asked of it but how it stands.
class StationPlayer final : public player::AddressPlayer,
                            private player::NowPlayingView,
                            private player::TrackEvents {
public:
    static constexpr int kOpeningMs = 50;  ///< how often is looked before a stream sounds
    static constexpr int kPlayingMs = 250; ///< and while it does

    /// What is saved goes to `folder`. All of them outlive the object.
    StationPlayer(const player::Core& core, player::Playback& playback,
                  const config::MultiLNG& language, playlist::stdSS& RadioLst, std::string folder);
    ~StationPlayer() override;
    StationPlayer(const StationPlayer&) = delete;
    StationPlayer& operator=(const StationPlayer&) = delete;

    /// Starts the station of a row of `RadioLst`; nothing without such a row.
    void playRow(playlist::Row row);

    /// Starts the address of a row of the playlist.
    void play(const player::TrackRef& track) override;

    /// Behind a pause: the station is opened again, live. A file goes on where it stands.
    void goOn() override;

    /// The record buttons. What sounds already of a song is saved from the next block on.
    void record(bool on);

    StationScreen screen;

    /// Set by who composes the player: where songs go with `Comfort::savesToRadioFolder`; empty, or
    /// not set: to the folder of old.
    std::function<std::string()> songFolder;

private:
    enum class From : std::uint8_t { stations, playlist };

    // Something else became the source, or Stop was pressed.
    void showSource() override;
    void reportNothing(const std::string& format, const std::string& word) override;

    void start(const player::TrackRef& track, From from);
    void becomeSource(const player::TrackRef& track, From from);
    void open(StationStatus status);
    void leave();

    void look();
    void lookAtPaused(const sound::StreamReport& report);
    void readHeaders();
    void showReport(const sound::StreamReport& report);
    void showTitle(const std::string& metadata);
    void announce();
    void noteHeard();
    void takeSavingOver();
    void over(const sound::StreamReport& report);
    void endFile();
    void giveUp(const sound::StreamReport& report);
    [[nodiscard]] SavingWays ways(bool recording) const;
    [[nodiscard]] StationStatus lostStatus() const;
    void lookAtSaving();
    void tellFailures();

    const player::Core& core_;
    player::Playback& playback_;
    playlist::stdSS& RadioLst_;
    std::unique_ptr<host::Timer> looking_;
    std::unique_ptr<host::Timer> telling_; ///< a box may stand for hours; looks go on meanwhile
    std::optional<modNetRadio::Failure> untold_;
    bool boxStands_ = false;
    Reopening reopening_;

    std::shared_ptr<modNetRadio> saving_;
    player::TrackRef track_;
    From from_ = From::stations;
    bool current_ = false;     ///< a station is the source and was not stopped
    bool starting_ = false;    ///< what is told meanwhile is told by this object
    bool sounded_ = false;     ///< it was heard since the user started it
    bool headersRead_ = false; ///< of the stream that is open
    bool closed_ = false;      ///< the connection was given up while it is paused
    std::uint64_t pausedBytes_ = 0;
    int looksWhileFull_ = 0;
    std::string metadata_;    ///< shown last
    bool brokenTold_ = false; ///< metadata without an end, of this station
    std::string announced_;
};

} // namespace tovik::radio
