// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmPlayer.h"

#include <algorithm>
#include <utility>

namespace tovik::app {

namespace {

constexpr int kTimer4Ms = 100;

} // namespace

frmPlayer::frmPlayer(const host::Host& host, sound::SoundLibrary& sound,
                     window::PlayerWindow& window, player::TrackEvents& events,
                     StartOptions options)
    : host_(host), sound_(sound), window_(window), options_(std::move(options)),
      settings_(host.paths, settingsXml_), version_(settings_),
      language_(host.paths, options_.shippedFolder),
      errHandler_(host.paths, host.clock, host.operatingSystem), errors_(errHandler_, host.dialogs),
      tagWarning_(host.dialogs), tag_(tagWarning_), files_(stdSS_, host.pump, host.paths),
      listKeeper_(stdSS_, host.clock, host.timers, host.paths,
                  [this] {
                      return options_.keepsList && !listLost_ &&
                             files_.savesAtExit(state_.DirAddIdle);
                  }),
      core_{.state = state_,
            .sound = sound,
            .settings = settings_,
            .errors = errors_,
            .lists = {.stdSS = stdSS_, .List1 = List1_},
            .timers = host.timers,
            .screen = screen_,
            .news = news_},
      equalizer_(core_, host.dialogs), equalizerFiles_(host.dialogs, equalizerStore_),
      playback_(core_, tag_, equalizer_, window, host.random),
      Timer4_(host.timers.makeTimer([this] { Timer4(); })), view_({.core = core_,
                                                                   .playback = playback_,
                                                                   .equalizer = equalizer_,
                                                                   .commands = commands_,
                                                                   .window = window,
                                                                   .dialogs = host.dialogs,
                                                                   .paths = host.paths}) {
    news_.add(events);
    stdSS_.setEvents(this);
    settings_.reportUnwritten([this](const base::RuntimeError& failure) { unkept_.note(failure); });
    language_.attach(config::TextWindow::frmPlayer, view_.texts);
    language_.attach(config::TextWindow::frmTSR, menuTexts_);
    startTimers();
    bindCommands();
}

frmPlayer::~frmPlayer() = default;

void frmPlayer::startTimers() {
    // The others wait until a track plays, their mode is on or a panel is switched.
    playback_.clock.begin();
    Timer4_->setInterval(kTimer4Ms);
    Timer4_->setEnabled(true);
}

void frmPlayer::take(std::span<const Step> steps) {
    for (const Step& step : steps) {
        if (ended_) {
            return;
        }
        if ((!passingBy_ || step.besideOther) &&
            (step.reader == nullptr || wasTaken(step.reader))) {
            (this->*step.run)();
            taken_.push_back(step.run);
        }
    }
}

bool frmPlayer::wasTaken(Action run) const {
    return std::ranges::find(taken_, run) != taken_.end();
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
    const bool movesOn =
        playback_.clock.watchesTrack() && !state_.StopAfterCurrent && playback_.advance.hasNext();
    return state_.IsPlaying &&
           (active(state_.PrimaryChannel) || active(state_.SecondaryChannel) || movesOn);
}

bool frmPlayer::playsForEver() const {
    // Modules are told to repeat.
    return state_.IsPlaying && (sound_.BASS_MusicGetLength(state_.active(), true) > 0 ||
                                (playback_.clock.watchesTrack() && playback_.advance.neverEnds()));
}

void frmPlayer::Play(const std::string& itemData) {
    playback_.rows.Stdss_Play(itemData);
}

void frmPlayer::changeLanguage() {
    language_.Language_File(settings_.getSetting("CLNG"));
    language_.loadAttached();
    view_.showWords();
    unkept_.show();
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
        {
            const playlist::ListKeeper::Loading loading(listKeeper_);
            try {
                files_.autoload_playlist();
            } catch (...) {
                listLost_ = true; // already while the box tells it
                throw;
            }
        }
        if (state_.FirstRun) {
            // The very first start plays the piece that came with the program.
            playItem(0);
        }
    });
}

} // namespace tovik::app
