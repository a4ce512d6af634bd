// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/RowPlayer.h"

#include "player/ClockText.h"
#include "player/FadeTime.h"

#include <algorithm>
#include <utility>

namespace tovik::player {

void RowPlayer::button_play() {
    config::guard(core_.errors, config::player("playup_mouseup"), [this] {
        playlist::stdSS& list = core_.lists.stdSS;
        // A deliberate oddity: Play starts anew, only Pause goes on.
        if (core_.state.IsPlaying && core_.state.IsPaused && core_.state.comfort.goesOnAfterPause) {
            transport_.pause();
            return;
        }
        if (list.ListCount() > 0) {
            core_.state.IsPaused = false;
            if (list.SelectedIndex == 0) {
                list.SelectIndex(1);
            }
            const std::optional<RowPlace> place = std::exchange(waiting_, std::nullopt);
            Stdss_Play(std::to_string(list.SelectedIndex));
            if (place && place->row == list.SelectedIndex && core_.state.IsPlaying) {
                time_.SetPlayingPos(core_.state.active(), place->seconds, false);
                showPlace(*place);
            }
        }
    });
}

void RowPlayer::waitAt(const RowPlace& place) {
    playlist::stdSS& list = core_.lists.stdSS;
    core_.lists.List1.ListIndex(place.row - 1);
    list.SelectIndex(place.row);
    if (place.seconds <= 0) {
        return;
    }
    waiting_ = place;
    core_.state.CurrentTitle = list.text(place.row, playlist::RowText::Title);
    NowPlaying& playing = core_.screen.playing;
    playing.scrollerText = " " + core_.state.CurrentTitle;
    playing.caption = playing.scrollerText;
    playing.miniCaption = playing.scrollerText;
    core_.screen.showTitles();
    core_.screen.holdTitles();
    showPlace(place);
    facts_.showWaiting({.path = std::string(list.text(place.row, playlist::RowText::FileName)),
                        .title = core_.state.CurrentTitle,
                        .row = place.row});
}

void RowPlayer::showPlace(const RowPlace& place) {
    NowPlaying& playing = core_.screen.playing;
    const std::int32_t length = core_.lists.stdSS.seconds(place.row);
    playing.countsDown = core_.state.TimeDisplayMode != 0 && length > 0;
    playing.time =
        clockText(core_.state.comfort, playing.countsDown ? length - place.seconds : place.seconds);
    core_.screen.showTime();
    if (length > 0) {
        playing.percent = std::min(100.0, 100.0 * place.seconds / length);
        core_.screen.showPosition();
    }
}

std::optional<RowPlace> RowPlayer::waiting() const {
    const bool waits =
        waiting_ && !core_.state.IsPlaying && waiting_->row == core_.lists.stdSS.SelectedIndex;
    return waits ? waiting_ : std::nullopt;
}

std::optional<RowPlace> RowPlayer::place() const {
    const PlayerState& state = core_.state;
    const playlist::stdSS& list = core_.lists.stdSS;
    if (state.IsPlaying && !state.RadioMode && list.SoundingRow() > 0) {
        return RowPlace{list.SoundingRow(), time_.GetHeardSeconds(state.active())};
    }
    if (waiting_) {
        return waiting_;
    }
    return list.SelectedIndex > 0 ? std::optional(RowPlace{list.SelectedIndex, 0}) : std::nullopt;
}

void RowPlayer::Stdss_Play(const std::string& /*row*/) {
    config::guard(core_.errors, config::player("playlist_play"), [this] {
        forgetPlace();
        playlist::stdSS& list = core_.lists.stdSS;
        const TrackRef track = trackOf(list, list.SelectedIndex);
        const std::int32_t seconds = fadeSeconds(core_.settings);
        const bool started = core_.state.CrossfadeOn
                                 ? crossfade_.CrossFade_BurnBaby(track, fadeMilliseconds(seconds))
                                 : startAlone(track);
        // What did not open has no length, and the row keeps what it says.
        if (started) {
            facts_.refreshRowTime(core_.state.active(), track.row);
            facts_.showTitles(core_.state.active(), track);
        }
    });
}

bool RowPlayer::startAlone(const TrackRef& track) {
    PlayerState& state = core_.state;
    TrackOpener opener(core_.sound);
    state.CrossfadeLeg = 0;
    state.ActiveChannel = ChannelSlot::primary;
    for (const sound::Handle channel :
         {state.SecondaryChannel, state.SpareChannelC, state.SpareChannelD}) {
        opener.free(channel);
    }
    return transport_.Burnbaby(track);
}

void RowPlayer::List1_DblClick() {
    forgetPlace();
    const playlist::Row row = core_.lists.List1.ListIndex() + 1;
    const TrackRef track = trackOf(core_.lists.stdSS, row);
    core_.lists.stdSS.SelectedIndex = row;
    PlayerState& state = core_.state;
    if (state.CrossfadeOn && state.ClearCounterOnPlay) {
        state.ClearCounterOnPlay = false;
        state.TracksStarted = 0;
    }
    if (state.CrossfadeOn && state.TracksStarted != 0) {
        crossfade_.CrossFade_BurnBaby(track, fadeMilliseconds(fadeSeconds(core_.settings)));
    } else {
        transport_.Burnbaby(track);
    }
}

void RowPlayer::playItem(std::int32_t item) {
    core_.lists.List1.ListIndex(item);
    List1_DblClick();
}

void RowPlayer::PlayRow(playlist::Row row, std::int32_t fadeSeconds, AskedBy who) {
    forgetPlace();
    core_.lists.stdSS.SelectIndex(row);
    const TrackRef track = trackOf(core_.lists.stdSS, row);
    PlayerState& state = core_.state;
    const bool crosses = state.CrossfadeOn && state.TracksStarted != 0;
    const bool started = crosses
                             ? crossfade_.CrossFade_BurnBaby(
                                   track, fadeFor(who, fadeSeconds, core_.settings, state.comfort))
                             : transport_.Burnbaby(track);
    if (state.RadioMode) {
        return; // a stream tells itself what it plays
    }
    if (crosses && !started && state.comfort.keepsTitleOfOldTrack &&
        core_.sound.BASS_ChannelIsActive(state.active()) != sound::Activity::stopped) {
        return; // the old track plays on, under its own title
    }
    showStarted(track);
}

void RowPlayer::showStarted(const TrackRef& track) {
    PlayerState& state = core_.state;
    const playlist::stdSS& list = core_.lists.stdSS;
    // The start may have brought a title into the row.
    const bool isNew = state.comfort.readsEveryFormat &&
                       list.text(track.row, playlist::RowText::FileName) == track.path;
    state.CurrentTitle =
        isNew ? std::string(list.text(track.row, playlist::RowText::Title)) : track.title;
    const std::string shown = " " + state.CurrentTitle;
    NowPlaying& playing = core_.screen.playing;
    playing.scrollerText = shown;
    playing.caption = shown;
    if (state.MiniModeOn) {
        playing.miniCaption = shown;
    }
    core_.screen.showTitles();
}

} // namespace tovik::player
