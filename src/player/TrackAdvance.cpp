// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TrackAdvance.h"

#include "base/Numbers.h"
#include "base/Url.h"
#include "tags/FactsDesk.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

namespace tovik::player {

namespace {

constexpr playlist::Row kTenRows = 10;

} // namespace

TrackAdvance::TrackAdvance(const Core& core, Transport& transport, RowPlayer& rows,
                           FadeOut& fadeOut, SeamlessNext& seamless, host::RandomNumbers& random)
    : order(core.lists.stdSS, random), core_(core), transport_(transport), rows_(rows),
      fadeOut_(fadeOut), seamless_(seamless), random_(random),
      skip_(core.timers.makeTimer([this] { skipRow(); })) {
    constexpr int kSoon = 1; // an interval of 0 never ticks
    skip_->setInterval(kSoon);
    core_.news.add(*this);
}

TrackAdvance::~TrackAdvance() {
    core_.news.remove(*this);
}

playlist::Row TrackAdvance::gen_shuffle(playlist::Row count) {
    // Cell 0 stays empty; it is one of the nine that are taken unless `Comfort` says otherwise.
    static constexpr std::size_t kCells = 10;
    static constexpr double kTaken = 9;
    static constexpr playlist::Row kFewRows = 10;
    playlist::Row picked = 0;
    config::guard(core_.errors, config::player("GenShuffle"), [&] {
        std::array<playlist::Row, kCells> cells{};
        for (std::size_t i = 1; i < kCells; ++i) {
            do {
                cells[i] = base::toInt32(std::floor(count * random_.next() + 1));
            } while (count > kFewRows && cells[i] == cells[i - 1]);
        }
        const std::size_t first = core_.state.comfort.alwaysPicksRow ? 1 : 0;
        picked = cells.at(first + static_cast<std::size_t>(random_.next() * kTaken));
    });
    return picked;
}

playlist::Row TrackAdvance::pick() {
    return gen_shuffle(core_.lists.stdSS.ListCount());
}

void TrackAdvance::goOn(AskedBy who) {
    config::guard(core_.errors, config::player("Next_track"), [&] {
        const std::int32_t seconds = fadeSeconds(core_.settings);
        endSkipping();
        if (const auto row = takeUpcomingRow()) {
            play(*row, seconds, Direction::forth, who);
        } else {
            core_.news.reportEndOfList();
        }
    });
}

/// What `Next_track` plays; a pick stays the same until it is taken.
std::optional<playlist::Row> TrackAdvance::upcomingRow() {
    if (remembers()) {
        return order.upcoming(core_.state.RepeatOn);
    }
    if (!core_.state.ShuffleOn) {
        return rowBehind(currentRow());
    }
    if (!upcoming_) {
        upcoming_ = pick();
    }
    return upcoming_;
}

std::optional<playlist::Row> TrackAdvance::takeUpcomingRow() {
    const auto row = remembers() ? order.next(core_.state.RepeatOn) : upcomingRow();
    upcoming_.reset();
    return row;
}

void TrackAdvance::last_track() {
    config::guard(core_.errors, config::player("Last_track"), [this] {
        const std::int32_t seconds = fadeSeconds(core_.settings);
        endSkipping();
        if (core_.lists.stdSS.SelectedIndex == 0) {
            core_.lists.stdSS.SelectedIndex = 1;
        }
        if (const auto row = rowBefore(currentRow())) {
            play(*row, seconds, Direction::back, AskedBy::user);
        }
    });
}

std::optional<playlist::Row> TrackAdvance::stepTo(Direction direction) {
    const playlist::stdSS& list = core_.lists.stdSS;
    if (list.ListCount() == 0) {
        return std::nullopt;
    }
    return direction == Direction::forth ? takeUpcomingRow()
                                         : rowBefore(std::max<playlist::Row>(currentRow(), 1));
}

std::optional<playlist::Row> TrackAdvance::rowBehind(playlist::Row row) {
    if (remembers()) {
        return order.next(core_.state.RepeatOn);
    }
    if (core_.state.ShuffleOn) {
        return pick();
    }
    const playlist::Row count = core_.lists.stdSS.ListCount();
    if (count == 0 || (row == count && !core_.state.RepeatOn)) {
        return std::nullopt;
    }
    return row == count ? 1 : row + 1;
}

std::optional<playlist::Row> TrackAdvance::rowBefore(playlist::Row row) {
    const playlist::Row count = core_.lists.stdSS.ListCount();
    if (remembers()) {
        const auto before = order.previous();
        return before || count == 0 ? before : std::optional(row);
    }
    const bool mayTurn = core_.state.RepeatOn && count != 0;
    if (core_.state.ShuffleOn) {
        return mayTurn ? std::optional(pick()) : std::nullopt;
    }
    if (row != 1) {
        return row - 1;
    }
    if (!mayTurn) {
        return std::nullopt;
    }
    // A deliberate oddity: with a single row this is row 0, which plays nothing.
    return count != 1 || core_.state.comfort.restartsOnlyTrack ? count : 0;
}

void TrackAdvance::play(playlist::Row row, std::int32_t seconds, Direction direction, AskedBy who) {
    rows_.PlayRow(row, seconds, who);
    if (core_.state.comfort.skipsUnplayable && core_.lists.stdSS.isUnplayable(row)) {
        failed_ = row;
        ++failures_;
        direction_ = direction;
        skip_->setEnabled(true);
    } else {
        endSkipping();
    }
}

void TrackAdvance::playFrom(playlist::Row row) {
    play(row, fadeSeconds(core_.settings), Direction::forth, AskedBy::player);
}

/// One row a tick: a list of files that are all gone may be long, and Stop must reach the player.
void TrackAdvance::skipRow() {
    skip_->setEnabled(false);
    config::guard(core_.errors, config::player("Next_track"), [this] {
        const auto row = direction_ == Direction::forth ? rowBehind(failed_) : rowBefore(failed_);
        const bool wayEnds = remembers() && row == failed_;
        if (!row || wayEnds || failures_ >= core_.lists.stdSS.ListCount()) {
            transport_.button_stop(); // ends the skipping, too
            return;
        }
        play(*row, fadeSeconds(core_.settings), direction_, AskedBy::player);
    });
}

void TrackAdvance::endSkipping() {
    skip_->setEnabled(false);
    failures_ = 0;
}

void TrackAdvance::reportTrack(const TrackReport& /*report*/) {
    endSkipping();
    noteRow();
}

/// The row that sounds has had its turn in the round of a shuffle.
void TrackAdvance::noteRow() {
    if (remembers()) {
        order.noteStarted(core_.lists.stdSS.SoundingRow());
    } else {
        order.clear();
    }
}

void TrackAdvance::reportNothing(const std::string& /*format*/, const std::string& /*word*/) {
    endSkipping();
}

bool TrackAdvance::hasNext() const {
    if (remembers()) {
        return order.hasNext(core_.state.RepeatOn);
    }
    const playlist::Row count = core_.lists.stdSS.ListCount();
    return count != 0 && (core_.state.ShuffleOn || core_.state.RepeatOn || currentRow() != count);
}

bool TrackAdvance::hasPrevious() const {
    return core_.lists.stdSS.ListCount() != 0 &&
           (core_.state.RepeatOn || remembers() || currentRow() > 1);
}

/// A deliberate oddity: the list goes on from the row that was clicked last, unless
/// `Comfort::goesOnFromSoundingRow` lets it go on from the one that sounds.
playlist::Row TrackAdvance::currentRow() const {
    const playlist::stdSS& list = core_.lists.stdSS;
    const bool fromSounding = core_.state.comfort.goesOnFromSoundingRow && core_.state.IsPlaying &&
                              list.SoundingRow() > 0;
    return fromSounding ? list.SoundingRow() : list.SelectedIndex;
}

bool TrackAdvance::neverEnds() const {
    const bool goesOn = core_.state.RepeatOn || (core_.state.ShuffleOn && !remembers());
    return core_.lists.stdSS.ListCount() != 0 && goesOn && !core_.state.StopAfterCurrent;
}

void TrackAdvance::endTrack() {
    const bool rips = core_.state.RippingNow || core_.state.RipRunning; // also between two tracks
    if (rips && !core_.state.RipSparesSound) {
        return;
    }
    const bool listEnds = core_.state.comfort.stopsAtListEnd && !hasNext();
    if (core_.state.StopAfterCurrent || fadeOut_.runs() || listEnds) {
        transport_.button_stop();
    } else if (const auto following = seamless_.takeOver()) {
        upcoming_.reset();
        if (remembers()) {
            order.noteStarted(following->row);
        }
        rows_.showStarted(*following);
    } else {
        Next_track();
    }
}

bool TrackAdvance::followsOnAlbum(const TrackRef& next) const {
    const playlist::stdSS& list = core_.lists.stdSS;
    const std::string playing(list.text(list.SoundingRow(), playlist::RowText::FileName));
    const auto before = cdTrackOf(playing);
    const auto after = cdTrackOf(next.path);
    if (before && after) {
        return before->letter == after->letter && before->number + 1 == after->number;
    }
    return core_.state.comfort.crossesBeforeEnd && !before && !after &&
           filesFollowOnAlbum(playing, next.path);
}

/// Asked again and again before the end: what is not known yet is by then.
bool TrackAdvance::filesFollowOnAlbum(const std::string& playing, const std::string& next) const {
    if (core_.facts == nullptr || base::isWebUrl(playing) || base::isWebUrl(next)) {
        return false;
    }
    for (const std::string& path : {playing, next}) {
        if (core_.facts->known(path) == nullptr) {
            core_.facts->ask(path, tags::FactsDesk::Urgency::first);
        }
    }
    const tags::FileFacts* const before = core_.facts->known(playing);
    const tags::FileFacts* const after = core_.facts->known(next);
    return before != nullptr && after != nullptr && tags::followsOnAlbum(*before, *after);
}

/// A module that ends after its first pass mostly ends in the middle of a sound.
void TrackAdvance::fadeModule(std::int64_t milliseconds) {
    constexpr std::int64_t kFade = 1000;
    constexpr int kKeepFrequency = -1;
    constexpr int kKeepPan = -101;
    const sound::Handle channel = core_.state.active();
    if (core_.state.comfort.endsModules && milliseconds <= kFade &&
        core_.sound.BASS_MusicGetLength(channel, true) > 0) {
        core_.sound.BASS_ChannelSlideAttributes(channel, kKeepFrequency, 0, kKeepPan,
                                                static_cast<std::uint32_t>(milliseconds));
    }
}

std::int64_t TrackAdvance::nearEnd(std::int64_t milliseconds) {
    constexpr std::int64_t kOpensBefore = 4000; // enough for a disk that wakes up
    const PlayerState& state = core_.state;
    fadeModule(milliseconds);
    const bool held = state.ripHoldsSound();
    const bool movesOn = !state.StopAfterCurrent && !fadeOut_.runs() && !held;
    const auto next = movesOn ? upcomingRow() : std::nullopt;
    if (!next || *next < 1) {
        seamless_.drop();
        return 0;
    }
    const playlist::stdSS& list = core_.lists.stdSS;
    const TrackRef track{.path = std::string(list.text(*next, playlist::RowText::FileName)),
                         .title = std::string(list.text(*next, playlist::RowText::Title)),
                         .row = *next};
    if (!state.CrossfadeOn || followsOnAlbum(track)) {
        if (milliseconds <= kOpensBefore) {
            seamless_.prepare(track);
        } else {
            seamless_.drop();
        }
        return 0;
    }
    seamless_.drop();
    if (!state.comfort.crossesBeforeEnd) {
        return 0;
    }
    const std::int64_t fade = fadeMilliseconds(fadeSeconds(core_.settings));
    if (milliseconds > fade) {
        return fade;
    }
    // What does not open is not tried again beside the same track.
    if (std::exchange(crossedFrom_, state.active()) != state.active()) {
        Next_track();
    }
    return 0;
}

void TrackAdvance::selectItem(std::int32_t item) {
    if (item >= 0 && item < core_.lists.List1.ListCount()) {
        core_.lists.List1.ListIndex(item);
    }
}

void TrackAdvance::playItem(playlist::Row row) {
    selectItem(row - 1);
    core_.lists.stdSS.SelectedIndex = row;
    rows_.List1_DblClick();
}

void TrackAdvance::ten_tracks_fwd() {
    const playlist::Row count = core_.lists.stdSS.ListCount();
    const playlist::Row row = currentRow();
    if (count == 0 || row < 1) {
        playItem(kTenRows);
    } else if (count - row < kTenRows) {
        goOn(AskedBy::user);
    } else {
        playItem(row + kTenRows);
    }
}

void TrackAdvance::ten_track_bck() {
    const playlist::Row row = currentRow();
    if (core_.lists.stdSS.ListCount() != 0 && row > kTenRows) {
        playItem(row - kTenRows);
    } else {
        last_track();
    }
}

void TrackAdvance::button_next() {
    if (core_.lists.stdSS.ListCount() > 0) {
        if (hasNext() || !core_.state.comfort.keepsPauseAtEnd) {
            core_.state.IsPaused = false;
        }
        goOn(AskedBy::user);
    }
}

void TrackAdvance::button_previous() {
    if (core_.lists.stdSS.ListCount() > 0) {
        if (hasPrevious() || !core_.state.comfort.keepsPauseAtEnd) {
            core_.state.IsPaused = false;
        }
        last_track();
    }
}

void TrackAdvance::button_shuffle() {
    core_.state.ShuffleOn = !core_.state.ShuffleOn;
    forgetNext();
    if (core_.state.IsPlaying) {
        noteRow(); // what sounds already has had its turn
    }
    core_.screen.showMode(Mode::shuffle);
}

void TrackAdvance::button_loop() {
    core_.state.RepeatOn = !core_.state.RepeatOn;
    forgetNext();
    core_.screen.showMode(Mode::repeat);
}

} // namespace tovik::player
