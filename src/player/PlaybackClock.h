// SPDX-License-Identifier: GPL-3.0-or-later
// What moves while a track plays, and the decision that it is over. Interface thread.
#pragma once

#include "player/CBASS_TIME.h"
#include "player/Core.h"
#include "player/TrackEnd.h"

#include <cstdint>
#include <memory>

namespace tovik::player {

/// Its timers rest while nothing plays and nothing is told to be shown.
class PlaybackClock : private NowPlayingView {
public:
    /// `core` outlives the clock. Its timers do not tick yet.
    explicit PlaybackClock(const Core& core);
    ~PlaybackClock() override;
    PlaybackClock(const PlaybackClock&) = delete;
    PlaybackClock& operator=(const PlaybackClock&) = delete;

    /// Who is told that a track is over; before anything ticks. Outlives the clock.
    void setEnd(TrackEnd& end) { end_ = &end; }

    static constexpr int kTimer1Ms = 500;
    static constexpr int kTimer2Ms = 250;
    static constexpr int kTimer3Ms = 1000;

    /// Lets digits and words tick, from the start of the program on.
    void begin();

    /// Whether `Timer1` moves the digits: not while a hand is on the position bar.
    void moveDigits(bool moving);

    [[nodiscard]] bool movesDigits() const { return movesDigits_; }

    /// Whether `Timer3` moves the position mark and looks for the end of the track.
    void watchTrack(bool watching) {
        Timer3_->setInterval(kTimer3Ms);
        Timer3_->setEnabled(watching);
    }

    /// A track begins on the active channel: it is watched. With `Comfort::endsExactly` mark and
    /// digits are at its beginning at once, unless a hand is on the position bar.
    void beginTrack();

    [[nodiscard]] bool watchesTrack() const { return Timer3_->enabled(); }

    /// No timer ticks until something is told to be shown.
    [[nodiscard]] bool rests() const;

    /// The digits: time played, or time left with `TimeDisplayMode` 1.
    void Timer1();

    /// The words for mode, rate, volume and balance.
    void Timer2();

    /// The position mark, and the end of the track.
    void Timer3();

private:
    void showFacts(const NowPlaying& /*playing*/) override { stir(); }

    void showTitles(const NowPlaying& /*playing*/) override { stir(); }

    void showFormat(const NowPlaying& /*playing*/) override { stir(); }

    void showVolume(const NowPlaying& /*playing*/) override { stir(); }

    void showBalance(const NowPlaying& /*playing*/) override { stir(); }

    void stir();
    void showDigits();
    void showPlayed(std::int32_t seconds);
    void showHeard();
    std::int16_t markPosition();
    void movePosition();
    void lookForExactEnd();
    void followTrack(sound::Handle before);
    template <typename Body>
    void endTrackOnOverflow(Body&& body);

    const Core& core_;
    TrackEnd* end_ = nullptr;
    bool movesDigits_ = false;
    bool showsWords_ = false; ///< from `begin` on
    CBASS_TIME time_{core_.sound};
    std::unique_ptr<host::Timer> Timer1_;
    std::unique_ptr<host::Timer> Timer2_;
    std::unique_ptr<host::Timer> Timer3_;
};

/// How much of a track was played, in percent, from whole seconds. Raises 6 for 0 of 0, which is
/// what a dead channel tells, and 11 for more of 0.
[[nodiscard]] std::int16_t percentPlayed(std::int32_t position, std::int32_t duration);

/// Whether a track counts as over. A deliberate oddity: the percent is a rounded one, so that a
/// track of 200 seconds or more ends before its end, an hour's one 18 seconds early; a shorter one
/// waits for the next whole second, which can leave a gap; and a module, which repeats, plays on
/// when no tick meets its last half percent. `Comfort::endsExactly` takes the end that the sound
/// reports.
[[nodiscard]] constexpr bool isEndOfTrack(std::int16_t percent) {
    constexpr std::int16_t kWhole = 100;
    return percent == kWhole;
}

} // namespace tovik::player
