// SPDX-License-Identifier: GPL-3.0-or-later
// Decides which row plays next. Interface thread.
#pragma once

#include "host/RandomNumbers.h"
#include "player/Core.h"
#include "player/FadeOut.h"
#include "player/FadeTime.h"
#include "player/RowPlayer.h"
#include "player/SeamlessNext.h"
#include "player/ShuffleOrder.h"
#include "player/TrackEnd.h"
#include "player/Transport.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace tovik::player {

class TrackAdvance final : public TrackEnd, private TrackEvents {
public:
    /// All of them outlive the object.
    TrackAdvance(const Core& core, Transport& transport, RowPlayer& rows, FadeOut& fadeOut,
                 SeamlessNext& seamless, host::RandomNumbers& random);
    ~TrackAdvance() override;
    TrackAdvance(const TrackAdvance&) = delete;
    TrackAdvance& operator=(const TrackAdvance&) = delete;

    /// What the shuffle has played, where `Comfort::remembersPicks` lets it have a memory.
    ShuffleOrder order;

    void Next_track() override { goOn(AskedBy::player); }

    /// The next row. A deliberate oddity: a crossfade to it takes as long as one at the end of a
    /// track, unless `Comfort::shortensManualNext` has the user's take a time of its own.
    void goOn(AskedBy who);

    /// The row before, or with shuffle and repeat a new pick. A row that cannot be played ends it,
    /// as it does `Next_track`; with `Comfort::skipsUnplayable` the next one in the same direction
    /// has its turn, a tick later.
    void last_track();

    /// Plays a row at which several were opened: one that cannot be played is gone over as by
    /// `Next_track`.
    void playFrom(playlist::Row row);

    /// Ten rows on or back, or one where fewer are left.
    void ten_tracks_fwd();
    void ten_track_bck();

    /// What the buttons do: nothing with an empty list. A deliberate oddity: they take a pause for
    /// ended before they know of a row to go on to (`Comfort::keepsPauseAtEnd` looks first).
    void button_next();
    void button_previous();

    /// The switches of the modes.
    void button_shuffle();
    void button_loop();

    /// A row out of `count`, or 0. A deliberate oddity: one pick in nine is 0, which is no row, and
    /// so plays nothing until the clock moves on (`Comfort::alwaysPicksRow` never gives it). Picks
    /// have no memory; the host's generator takes its seed from the clock when the program starts.
    [[nodiscard]] playlist::Row gen_shuffle(playlist::Row count);

    /// A deliberate oddity: behind the last row nothing stops (`Comfort::stopsAtListEnd` does).
    void endTrack() override;

    /// Near the end the track that comes next is opened, so that it follows without a gap; with
    /// crossfades that overlap (`Comfort::crossesBeforeEnd`) it is started as long before the end
    /// as a crossfade takes.
    std::int64_t nearEnd(std::int64_t milliseconds) override;

    /// A mode or the list has changed: what was to follow is looked up anew at the next tick.
    void forgetNext() {
        upcoming_.reset();
        seamless_.drop();
        crossedFrom_ = sound::kNoHandle;
    }

    /// Whether `Next_track` would play something.
    [[nodiscard]] bool hasNext() const;

    /// Whether `last_track` would play something, but for picks without a memory.
    [[nodiscard]] bool hasPrevious() const;

    /// Whether there is always a next track.
    [[nodiscard]] bool neverEnds() const;

    enum class Direction : std::uint8_t { forth, back };

    /// The row that `Next_track` or `last_track` would play, which counts as gone to: for who only
    /// selects it. None where there is nothing to go to, or 0 for a pick that is no row.
    [[nodiscard]] std::optional<playlist::Row> stepTo(Direction direction);

    /// Selects an item of the plain list, counted from 0; one that is not there leaves the
    /// selection as it is.
    void selectItem(std::int32_t item);

private:
    [[nodiscard]] playlist::Row currentRow() const;
    void reportTrack(const TrackReport& report) override;
    void reportNothing(const std::string& format, const std::string& word) override;

    /// Steps through the list from a row; none where there is nothing to go to.
    [[nodiscard]] std::optional<playlist::Row> rowBehind(playlist::Row row);
    [[nodiscard]] std::optional<playlist::Row> rowBefore(playlist::Row row);

    void play(playlist::Row row, std::int32_t seconds, Direction direction, AskedBy who);
    void skipRow();
    void endSkipping();
    void playItem(playlist::Row row);
    [[nodiscard]] playlist::Row pick();
    [[nodiscard]] std::optional<playlist::Row> upcomingRow();
    [[nodiscard]] std::optional<playlist::Row> takeUpcomingRow();
    void fadeModule(std::int64_t milliseconds);
    void noteRow();
    [[nodiscard]] bool followsOnAlbum(const TrackRef& next) const;
    [[nodiscard]] bool filesFollowOnAlbum(const std::string& playing,
                                          const std::string& next) const;

    [[nodiscard]] bool remembers() const {
        return core_.state.ShuffleOn && core_.state.comfort.remembersPicks;
    }

    const Core& core_;
    Transport& transport_;
    RowPlayer& rows_;
    FadeOut& fadeOut_;
    SeamlessNext& seamless_;
    host::RandomNumbers& random_;
    std::optional<playlist::Row> upcoming_;        ///< a pick that was made before its time
    sound::Handle crossedFrom_ = sound::kNoHandle; ///< the channel that a crossfade was to leave
    std::unique_ptr<host::Timer> skip_;            ///< ticks once: the failed row is left behind
    playlist::Row failed_ = 0;                     ///< the row that could not be played
    std::int32_t failures_ = 0;                    ///< in a row
    Direction direction_ = Direction::forth;       ///< in which it was met
};

} // namespace tovik::player
