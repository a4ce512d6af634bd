// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmPlayer.h"

#include <utility>

namespace tovik::app {

namespace {

constexpr int kTimer4Ms = 100;

} // namespace

frmPlayer::frmPlayer(const host::Host& host, sound::SoundLibrary& sound,
                     player::PlayerWindow& window, player::TrackEvents& events,
                     StartOptions options)
    : host_(host), sound_(sound), window_(window), events_(events), options_(std::move(options)),
      settings_(host.paths, settingsXml_), version_(settings_), language_(host.paths),
      errHandler_(host.paths, host.clock, host.operatingSystem), errors_(errHandler_, host.dialogs),
      tagWarning_(host.dialogs), tag_(tagWarning_), files_(stdSS_, host.pump, host.paths),
      scroller_(host.timers, [this](std::u32string_view characters) { drawTitle(characters); }),
      display_(elements_, fields_, scroller_,
               [this](const std::string& caption) { window_.setCaption(caption); }),
      time_(sound), opener_(sound), volume_(state_, sound, settings_),
      volumeBar_(state_, volume_, errors_, elements_, playing_, display_),
      balance_(state_, sound, errors_, elements_, playing_, display_),
      equalizer_({.state = state_,
                  .sound = sound,
                  .errors = errors_,
                  .elements = elements_,
                  .dialogs = host.dialogs}),
      equalizerFiles_(host.dialogs, equalizerStore_),
      starter_(state_, sound, volume_, balance_, equalizer_),
      facts_(state_, time_, settings_, tag_, stdSS_, playing_, display_, events),
      Timer1_(host.timers.makeTimer([this] { clock_.Timer1(); })),
      Timer2_(host.timers.makeTimer([this] { clock_.Timer2(); })),
      Timer3_(host.timers.makeTimer([this] { clock_.Timer3(); })),
      Timer4_(host.timers.makeTimer([this] { Timer4(); })),
      Timer5_(host.timers.makeTimer([this] { caption_.Timer5(); })),
      sldTimer_(host.timers.makeTimer([this] { silenceSkip_.SLD_Timer(); })),
      CrossFade_(host.timers.makeTimer([this] { crossfade_.crossfade_Timer(); })),
      FadeOut_(host.timers.makeTimer([this] { fadeOut_.FadeOut_Timer(); })),
      crossfade_({.state = state_,
                  .sound = sound,
                  .settings = settings_,
                  .errors = errors_,
                  .opener = opener_,
                  .starter = starter_,
                  .facts = facts_,
                  .volume = volume_,
                  .list = stdSS_,
                  .elements = elements_,
                  .view = display_,
                  .events = events,
                  .CrossFade = *CrossFade_,
                  .Timer3 = *Timer3_}),
      transport_({.state = state_,
                  .sound = sound,
                  .errors = errors_,
                  .time = time_,
                  .opener = opener_,
                  .facts = facts_,
                  .starter = starter_,
                  .crossfade = crossfade_,
                  .settings = settings_,
                  .list = stdSS_,
                  .mirror = List1_,
                  .elements = elements_,
                  .playing = playing_,
                  .view = display_,
                  .events = events,
                  .window = window,
                  .Timer3 = *Timer3_}),
      advance_({.state = state_,
                .settings = settings_,
                .errors = errors_,
                .transport = transport_,
                .crossfade = crossfade_,
                .list = stdSS_,
                .mirror = List1_,
                .elements = elements_,
                .playing = playing_,
                .view = display_,
                .random = host.random}),
      silenceSkip_({.state = state_,
                    .sound = sound,
                    .time = time_,
                    .settings = settings_,
                    .errors = errors_,
                    .list = stdSS_,
                    .advance = advance_,
                    .elements = elements_,
                    .sldTimer = *sldTimer_,
                    .CrossFade = *CrossFade_}),
      fadeOut_(state_, sound, settings_, transport_, *FadeOut_),
      positionBar_({.state = state_,
                    .time = time_,
                    .errors = errors_,
                    .elements = elements_,
                    .playing = playing_,
                    .view = display_,
                    .window = window,
                    .Timer1 = *Timer1_,
                    .Timer3 = *Timer3_}),
      input_({.elements = elements_,
              .errors = errors_,
              .commands = commands_,
              .shortcuts = shortcuts_,
              .bars = bars_,
              .equalizer = equalizerInput_,
              .volumeBar = volumeBar_,
              .timeDisplay = timeDisplay_,
              .window = window}) {
    stdSS_.setEvents(this);
    language_.attach(config::TextWindow::frmPlayer, texts_);
    language_.attach(config::TextWindow::frmTSR, menuTexts_);
    startTimers();
    bindCommands();
}

frmPlayer::~frmPlayer() = default;

void frmPlayer::drawTitle(std::u32string_view characters) {
    if (window_.visible()) {
        // Without a strip of glyphs the caption stands still.
        static_cast<void>(
            fields_.draw(ui::MainElement::songname, 0, characters, ui::Strip::Bright));
    }
}

void frmPlayer::startTimers() {
    const auto begin = [](host::Timer& timer, int milliseconds) {
        timer.setInterval(milliseconds);
        timer.setEnabled(true);
    };
    begin(*Timer1_, player::PlaybackClock::kTimer1Ms);
    begin(*Timer2_, player::PlaybackClock::kTimer2Ms);
    begin(*Timer4_, kTimer4Ms);
    begin(*Timer5_, player::RotatingCaption::kTimer5Ms);
    // These wait until a track plays or their mode is on.
    Timer3_->setInterval(player::PlaybackClock::kTimer3Ms);
    sldTimer_->setInterval(player::SilenceSkip::kSldTimerMs);
    Timer6_->setInterval(skin::Panels::kTimer6Ms);
}

void frmPlayer::take(std::span<const Step> steps) {
    for (const Step& step : steps) {
        if (ended_) {
            return;
        }
        if (!passingBy_ || step.besideOther) {
            (this->*step.run)();
        }
    }
}

void frmPlayer::endProcess(int status) {
    ended_ = true;
    host_.closing.endProcess(status);
}

void frmPlayer::endWith(const std::string& text, const std::string& title) {
    host_.dialogs.showMessage({.text = text, .title = title, .icon = host::MessageIcon::Critical});
    endProcess(EXIT_FAILURE);
}

bool frmPlayer::AnotherInstance() {
    return options_.checkInstance && !host_.lock.hold();
}

bool frmPlayer::sounds() const {
    const auto active = [this](sound::Handle channel) {
        return sound_.BASS_ChannelIsActive(channel) != sound::Activity::stopped;
    };
    const bool movesOn = Timer3_->enabled() && !state_.StopAfterCurrent && advance_.hasNext();
    return state_.IsPlaying &&
           (active(state_.PrimaryChannel) || active(state_.SecondaryChannel) || movesOn);
}

bool frmPlayer::playsForEver() const {
    // Modules are told to repeat.
    return state_.IsPlaying && (sound_.BASS_MusicGetLength(state_.active(), true) > 0 ||
                                (Timer3_->enabled() && advance_.neverEnds()));
}

void frmPlayer::Play(const std::string& itemData) {
    transport_.Stdss_Play(itemData);
}

void frmPlayer::Timer4() {
    config::guard(errors_, config::player("Timer4"), [this] {
        if (!state_.LoadFinished) {
            return;
        }
        // A start with a file never reads the saved list, so there is nothing to wait for.
        Timer4_->setEnabled(false);
        if (state_.NoCommandLine) {
            autoload_playlist();
        }
    });
}

void frmPlayer::autoload_playlist() {
    config::guard(errors_, config::player("Autoload_Playlist"), [this] {
        files_.autoload_playlist();
        if (state_.FirstRun) {
            // The very first start plays the piece that came with the program.
            playItem(0);
        }
    });
}

} // namespace tovik::app
