// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/RowPlayer.h"

#include "player/FadeTime.h"

namespace tovik::player {

void RowPlayer::button_play() {
    config::guard(core_.errors, config::player("playup_mouseup"), [this] {
        playlist::stdSS& list = core_.lists.stdSS;
        if (list.ListCount() > 0) {
            core_.state.IsPaused = false;
            if (list.SelectedIndex == 0) {
                list.SelectIndex(1);
            }
            Stdss_Play(std::to_string(list.SelectedIndex));
        }
    });
}

void RowPlayer::Stdss_Play(const std::string& /*row*/) {
    config::guard(core_.errors, config::player("playlist_play"), [this] {
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

void RowPlayer::PlayRow(playlist::Row row, std::int32_t fadeSeconds) {
    core_.lists.stdSS.SelectIndex(row);
    const TrackRef track = trackOf(core_.lists.stdSS, row);
    PlayerState& state = core_.state;
    const bool crosses = state.CrossfadeOn && state.TracksStarted != 0;
    const bool started = crosses
                             ? crossfade_.CrossFade_BurnBaby(track, fadeMilliseconds(fadeSeconds))
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
    state.CurrentTitle = track.title;
    const std::string shown = " " + track.title;
    NowPlaying& playing = core_.screen.playing;
    playing.scrollerText = shown;
    playing.caption = shown;
    if (state.MiniModeOn) {
        playing.miniCaption = shown;
    }
    core_.screen.showTitles();
}

} // namespace tovik::player
