// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmPlayer.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tovik::app {

namespace {

std::string shippedSkin(const StartOptions& options) {
    return options.shippedFolder.empty()
               ? std::string()
               : host::Paths(options.shippedFolder).of(host::DataItem::SkinPackage);
}

} // namespace

frmPlayer::frmPlayer(const host::Host& host, sound::SoundLibrary& sound,
                     window::PlayerWindow& window, window::WindowOpener& windows,
                     player::TrackEvents& events, StartOptions options, window::Shell* shell)
    : options_(std::move(options)), process_(host, options_.checkInstance),
      ground_(host, process_, options_, window),
      lists_(ground_.host(), ground_.state, options_.keepsList),
      core_{.state = ground_.state,
            .sound = sound,
            .settings = ground_.settings,
            .errors = ground_.errors,
            .lists = {.stdSS = lists_.stdSS, .List1 = lists_.List1},
            .timers = ground_.host().timers,
            .screen = ground_.screen,
            .news = ground_.news,
            .facts = &lists_.facts},
      tone_(core_, ground_.stored, ground_.host().dialogs, windows),
      music_(core_, tone_.equalizer, window, ground_.host(), process_),
      search_(core_, music_.playback, windows),
      tagging_(core_, ground_.host(), music_.tagWarning, ground_.language, windows),
      stations_({.core = core_,
                 .playback = music_.playback,
                 .RadioLst = lists_.RadioLst,
                 .language = ground_.language,
                 .windows = windows},
                ground_.host()),
      discInfo_(core_, lists_.lstTracks, ground_.host(), windows),
      startFile_(core_, music_.playback, lists_.files, music_.tag, options_.commandLine),
      autoload_({.core = core_,
                 .playback = music_.playback,
                 .stored = ground_.stored,
                 .lists = lists_,
                 .paths = ground_.host().paths},
                lists_, startFile_),
      menus_(commands_, ground_.menuTexts, window, ground_.errors, ground_.host().paths),
      front_({.core = core_,
              .knobs = {.seek = music_.playback.seek,
                        .volume = music_.playback.volume,
                        .balance = music_.playback.balance,
                        .equalizer = tone_.equalizer},
              .commands = commands_,
              .window = window,
              .host = ground_.host(),
              .menus = &menus_.frmTSR},
             ground_.stored, ground_.language, shippedSkin(options_)),
      visuals_({.core = core_,
                .host = ground_.host(),
                .window = window,
                .elements = front_.view.elements,
                .pictures = front_.view.pictures,
                .language = ground_.language,
                .menus = menus_.frmTSR,
                .shippedVisuals = options_.shippedVisuals}),
      presence_({.core = core_,
                 .knobs = front_.knobs,
                 .main = front_.view,
                 .window = window,
                 .host = ground_.host(),
                 .menus = menus_.frmTSR,
                 .visuals = visuals_,
                 .stored = ground_.stored,
                 .version = ground_.version,
                 .commands = commands_,
                 .shell = shell,
                 .shippedSkin = shippedSkin(options_),
                 .spare = &front_.spare}),
      filling_({.core = core_,
                .files = lists_.files,
                .window = window,
                .windows = windows,
                .elements = front_.view.elements,
                .language = ground_.language,
                .line = ground_.line},
               ground_.host()),
      discs_({.core = core_,
              .playback = music_.playback,
              .lstTracks = lists_.lstTracks,
              .info = discInfo_,
              .buttons = filling_.buttons,
              .menus = menus_.frmTSR,
              .panels = front_.view.panels,
              .language = ground_.language},
             ground_.host()),
      rips_({.core = core_,
             .disc = discs_.state,
             .form = discInfo_.form,
             .lstTracks = lists_.lstTracks,
             .window = window,
             .language = ground_.language,
             .warning = music_.tagWarning,
             .work = tagging_.work(),
             .elements = front_.view.elements},
            ground_.host()),
      choices_({.preferences = {.core = core_,
                                .silenceSkip = music_.playback.silenceSkip,
                                .window = window,
                                .windows = windows,
                                .language = ground_.language,
                                .paths = ground_.host().paths,
                                .shippedFolder = options_.shippedFolder},
                .version = ground_.version,
                .host = ground_.host(),
                .changeLanguage = [this] { changeLanguage(); }}),
      desktop_({.core = core_,
                .playback = music_.playback,
                .commands = commands_,
                .media = filling_.media,
                .options = options_},
               ground_.host()),
      handOver_(core_, process_, options_, window, startFile_, autoload_,
                [this](const std::string& token) { presence_.bringToFront(token); }) {
    choices_.preferences.hooks.spectrumSpeed = [this](std::int32_t milliseconds) {
        visuals_.setSpeed(milliseconds);
    };
    choices_.preferences.hooks.comfort = [this] { applyComfort(); };
    choices_.preferences.hooks.tray = [this](bool) { presence_.ApplyShellPresence(); };
    front_.foreignSkin = [this](const std::string& path) { ground_.troubles.noteForeign(path); };
    front_.panelChosen = [this] { presence_.showMainWindow(); };
    desktop_.attach(choices_.preferences.hooks);
    ground_.news.add(events);
    startFile_.attach(filling_.media, options_.keepsList);
    autoload_.begin();
    process_.bind(commands_);
    tone_.bind(commands_);
    music_.bind(commands_);
    search_.bind(commands_);
    tagging_.bind(commands_);
    stations_.bind(commands_);
    front_.bind(commands_);
    visuals_.bind(commands_);
    presence_.bind(commands_);
    filling_.bind(commands_);
    discs_.bind(commands_);
    cd::Ripping::Hooks& ripping = rips_.ripping.hooks;
    ripping.Stop_play = [this] { music_.playback.transport.Stop_play(); };
    ripping.Init_CD_Ripper = [this] { discs_.drives.Init_CD_Ripper(); };
    ripping.showDisc = [this] { discInfo_.dialog.Show(); };
    ripping.unloadDisc = [this] { discInfo_.dialog.Unload(); };
    ripping.forgetOtherDisc = [this] { discInfo_.dialog.forgetOtherDisc(); };
    discInfo_.dialog.hooks.drive = [this] { return discs_.state.CDDrive; };
    discInfo_.dialog.hooks.Rip_All = [this] { rips_.ripping.Rip_All(); };
    rips_.bind(commands_);
    menus_.bind(commands_, front_.view.elements, front_.view.input.keyWindow());
    lists_.bind(commands_,
                [this] { return menus_.frmTSR.listInfo() == commands::CommandId::editTag; });
    filling_.askForLocation = [this] { stations_.askForAddress(lists_.stdSS); };
    choices_.bind(commands_);
    choices_.preferences.shortcuts.attach(menus_.accelerators());
    front_.view.input.tellVisual(visuals_);
    front_.enableButtons(commands_);
}

bool frmPlayer::applies(const Step& step) const {
    const auto wasTaken = [this](Call call) {
        return std::ranges::find(taken_, call) != taken_.end();
    };
    return !process_.ended() && (!process_.passingBy() || step.besideOther) &&
           (step.reader == nullptr || wasTaken(step.reader));
}

void frmPlayer::take(const Step& step) {
    step.call(*this);
    taken_.push_back(step.call);
}

void frmPlayer::take(std::span<const Step> steps, const config::Procedure& procedure) {
    for (const Step& step : steps) {
        if (!applies(step)) {
            continue;
        }
        try {
            take(step);
        } catch (...) {
            if (!ground_.state.comfort.goesOnAfterStep) {
                throw;
            }
            ground_.troubles.note(config::currentError(), procedure);
        }
    }
}

void frmPlayer::Form_Initialize() {
    const config::Procedure& words = config::player("Initialize");
    config::guard(ground_.errors, words, [this, &words] { take(kInitializeSteps, words); });
}

void frmPlayer::Form_Load() {
    try {
        take(kLoadSteps, config::player("Load"));
    } catch (...) {
        const base::RuntimeError error = config::currentError();
        front_.endSplash();
        ground_.errors.reportAndTell(error, config::player("Load"));
    }
    handOver_.begin();
    if (!process_.ended()) {
        ground_.troubles.tell();
    }
}

void frmPlayer::kill_me() {
    try {
        // A save that fails ends the list of things to do, never the way out.
        config::guard(ground_.errors, config::player("kill process"), [this] {
            take(kEndSteps, config::player("kill process"));
            ground_.troubles.tell();
        });
    } catch (...) {
        // Nothing that goes wrong in telling it may keep the process alive, either.
        ground_.errors.reportUnguarded(config::currentError());
    }
    process_.end(EXIT_SUCCESS);
}

void frmPlayer::saveSession() {
    for (const Step& step : kSessionSteps) {
        try {
            if (applies(step)) {
                take(step);
            }
        } catch (...) {
            ground_.errors.log(config::currentError(), config::player("kill process"));
        }
    }
}

void frmPlayer::changeLanguage() {
    ground_.readLanguage();
    ground_.language.loadAttached();
    front_.view.showWords();
    presence_.mini.showWords();
    ground_.unkept.show();
    stations_.player.screen.readWords();
}

void frmPlayer::applyComfort() {
    music_.playback.volume.apply();
    music_.playback.silenceSkip.watch();
    tone_.equalizer.followComfort();
    front_.followComfort();
    for (playlist::stdSS* const list : {&lists_.stdSS, &lists_.lstTracks, &lists_.RadioLst}) {
        list->looksChanged(1, list->ListCount());
    }
    filling_.rowFacts.follow();
    changeLanguage();
}

void frmPlayer::loadSettings(frmPlayer& player) {
    player.ground_.stored.getSettings();
    player.music_.playback.silenceSkip.watch();
}

void frmPlayer::loadLanguage(frmPlayer& player) {
    config::MultiLNG& language = player.ground_.language;
    player.ground_.readLanguage();
    language.Load_Main_Win_LNG();
    language.Load_Menus_Lng();
    language.loadNames();
    player.front_.view.showWords();
    player.stations_.player.screen.readWords();
}

void frmPlayer::saveSettings(frmPlayer& player) {
    player.front_.notePlace();
    player.ground_.stored.saveAtEnd();
}

} // namespace tovik::app
