// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Music.h"

#include "base/Text.h"
#include "player/SoundDevice.h"
#include "vis/SonVis.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tovik::app {

namespace {

using commands::CommandId;

constexpr std::uint32_t kSoundVersion = 0x00000002;
constexpr const char* kSoundTitle = "BASS.DLL";

} // namespace

Music::Music(const player::Core& core, player::StartEqualizer& equalizer,
             const player::PlayerHandle& window, const host::Host& host, Process& process)
    : core_(core), window_(window), process_(process), tagWarning(host.dialogs), tag(tagWarning),
      playback(core, tag, equalizer, window, host.random) {
    core.lists.stdSS.setEvents(this);
    // The other timers wait until a track plays, their mode is on or a panel is switched.
    playback.clock.begin();
}

Music::~Music() {
    core_.lists.stdSS.setEvents(nullptr);
}

bool Music::sounds() const {
    const player::PlayerState& state = core_.state;
    const auto active = [this](sound::Handle channel) {
        return core_.sound.BASS_ChannelIsActive(channel) != sound::Activity::stopped;
    };
    const bool movesOn =
        playback.clock.watchesTrack() && !state.StopAfterCurrent && playback.advance.hasNext();
    return state.IsPlaying &&
           (active(state.PrimaryChannel) || active(state.SecondaryChannel) || movesOn);
}

bool Music::playsForEver() const {
    const player::PlayerState& state = core_.state;
    // Modules are told to repeat.
    return state.IsPlaying && (core_.sound.BASS_MusicGetLength(state.active(), true) > 0 ||
                               (playback.clock.watchesTrack() && playback.advance.neverEnds()));
}

void Music::Play(const std::string& itemData) {
    playback.rows.Stdss_Play(itemData);
}

void Music::bind(commands::Commands& commands) {
    bindPlaying(commands);
    bindAdvance(commands);
}

void Music::bindPlaying(commands::Commands& commands) {
    commands.bind(CommandId::play, [this] { playback.rows.button_play(); });
    commands.bind(CommandId::pause, [this] {
        if (playback.rows.waiting()) {
            playback.rows.button_play(); // what the last session left counts as paused
        } else {
            playback.transport.button_pause();
        }
    });
    commands.bind(CommandId::stop, [this] {
        playback.rows.forgetPlace();
        playback.transport.button_stop();
    });
    commands.bind(CommandId::backFiveSeconds, [this] { playback.transport.five_seconds_bck(); });
    commands.bind(CommandId::forwardFiveSeconds, [this] { playback.transport.five_seconds_fwd(); });
    commands.bind(CommandId::startOfList, [this] { playback.rows.playItem(0); });
    commands.bind(CommandId::endOfList,
                  [this] { playback.rows.playItem(core_.lists.List1.ListCount() - 1); });
    commands.bind(CommandId::stopAfterCurrent,
                  {.run =
                       [this] {
                           core_.state.StopAfterCurrent = !core_.state.StopAfterCurrent;
                           playback.advance.forgetNext();
                           core_.screen.showStopNote();
                       },
                   .checked = [this] { return core_.state.StopAfterCurrent; }});
}

void Music::bindAdvance(commands::Commands& commands) {
    const player::PlayerState& state = core_.state;
    commands.bind(CommandId::next, [this] { playback.advance.goOn(player::AskedBy::user); });
    commands.bind(CommandId::previous, [this] { playback.advance.last_track(); });
    commands.bind(CommandId::nextButton, [this] { playback.advance.button_next(); });
    commands.bind(CommandId::previousButton, [this] { playback.advance.button_previous(); });
    commands.bind(CommandId::tenTracksForward, [this] { playback.advance.ten_tracks_fwd(); });
    commands.bind(CommandId::tenTracksBack, [this] { playback.advance.ten_track_bck(); });
    commands.bind(CommandId::stopWithFadeout, [this] {
        playback.advance.forgetNext();
        playback.fadeOut.FadeOutTrack();
    });
    commands.bind(CommandId::shuffle, {.run = [this] { playback.advance.button_shuffle(); },
                                       .checked = [&state] { return state.ShuffleOn; }});
    commands.bind(CommandId::repeat, {.run = [this] { playback.advance.button_loop(); },
                                      .checked = [&state] { return state.RepeatOn; }});
    commands.bind(CommandId::crossfade, {.run =
                                             [this] {
                                                 playback.crossfade.button_cfd();
                                                 playback.advance.forgetNext();
                                             },
                                         .checked = [&state] { return state.CrossfadeOn; }});
    commands.bind(CommandId::silenceSkip, {.run = [this] { playback.silenceSkip.button_sld(); },
                                           .checked = [&state] { return state.SilenceSkipOn; }});
}

void Music::checkSoundLibrary() {
    if (core_.sound.BASS_GetVersion() != kSoundVersion) {
        process_.endWith("BASS version 2.0 was not loaded", kSoundTitle);
    }
}

void Music::openSound() {
    core_.sound.BASS_RecordInit(0);
    if (!player::openSoundDevice(core_.sound, window_.handle())) {
        process_.endWith("Can't initialize device", kSoundTitle);
    }
}

void Music::openRecording() {
    static constexpr std::array<std::string_view, 3> kWanted = {"stereo out", "wave out mix",
                                                                "mono out"};
    for (int index = 0;; ++index) {
        const auto name = core_.sound.BASS_RecordGetInputName(index);
        if (!name) {
            break;
        }
        if (std::ranges::find(kWanted, base::toLowerAscii(*name)) != kWanted.end()) {
            vis::sonfix(core_.sound, index);
            break;
        }
    }
    // Nothing listens to the mix yet, so nothing is delivered and nothing is spent.
    static_cast<void>(core_.sound.BASS_RecordStart(44100, 2, nullptr, 0));
}

void Music::applyBalance() {
    playback.balance.ApplyBalance(core_.state.BalanceValue);
}

void Music::tellNothingPlays() {
    core_.news.reportNothing(player::kNothingFormat, player::kNothingWord);
}

void Music::freeSound() {
    sound::SoundLibrary& sound = core_.sound;
    sound.BASS_RecordFree();
    sound.BASS_Stop();
    const player::PlayerState& state = core_.state;
    const std::array channels = {state.PrimaryChannel, state.SecondaryChannel, state.SpareChannelC,
                                 state.SpareChannelD};
    for (const sound::Handle channel : channels) {
        sound.BASS_StreamFree(channel);
    }
    for (const sound::Handle channel : channels) {
        sound.BASS_MusicFree(channel);
    }
    sound.BASS_Free();
}

} // namespace tovik::app
