// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Ground.h"

#include "base/ErrorPlace.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "config/Profile.h"
#include "player/ComfortSettings.h"
#include "player/LiveSetting.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace tovik::app {

namespace {

constexpr int kOldestSystem = 5;

host::Host watched(const host::Host& host, host::TimerFactory& timers, host::Dialogs& dialogs) {
    return {.clock = host.clock,
            .timers = timers,
            .watches = host.watches,
            .pump = host.pump,
            .dialogs = dialogs,
            .programs = host.programs,
            .random = host.random,
            .lock = host.lock,
            .messages = host.messages,
            .messengers = host.messengers,
            .dispatcher = host.dispatcher,
            .closing = host.closing,
            .paths = host.paths,
            .operatingSystem = host.operatingSystem};
}

} // namespace

Ground::Ground(const host::Host& host, Process& process, const StartOptions& options,
               window::PlayerWindow& window)
    : host_(host), timers_(host.timers, [this](const auto& tick) { runTick(tick); }),
      process_(process), window_(window), errHandler_(host.paths, host.clock, host.operatingSystem),
      settings(host.paths, settingsXml_), stored(settings, state, timers_), version(settings),
      language(host.paths, options.shippedFolder),
      dialogs_(
          {.dialogs = host.dialogs, .timers = timers_, .comfort = state.comfort, .line = line}),
      watchedHost_(watched(host, timers_, dialogs_)), errors(errHandler_, dialogs_),
      unkept(errors, language, screen, options.unkept), line(screen, unkept, host.timers),
      unplayable({.state = state, .news = news, .language = language, .line = line}),
      troubles(errors, language) {
    state.ComfortOfRun = options.comfort;
    language.obey(state.comfort);
    errHandler_.obey(state.comfort);
    settings.obey(state.comfort,
                  options.shippedFolder.empty()
                      ? std::string()
                      : host::Paths(options.shippedFolder).of(host::DataItem::Settings),
                  options.musicFolder);
    settings.reportUnwritten([this](const base::RuntimeError& failure) { unkept.note(failure); });
    settings.reportReplaced(
        [this](const base::RuntimeError& bad) { errors.log(bad, config::player("Load")); });
    settings.reportKeptAside([this](const std::string& path) { troubles.noteAside(path); });
    settings.reportUnread([this](const base::RuntimeError& why) { troubles.noteUnread(why); });
    language.attach(config::TextWindow::frmTSR, menuTexts);
}

void Ground::runTick(const host::Timer::Tick& tick) const {
    if (!state.comfort.tellsTimersInLine) {
        tick();
        return;
    }
    try {
        tick();
    } catch (...) {
        errors.reportUnguarded(config::currentError()); // here, where it counts as of a tick
    }
}

bool Ground::save(player::SettingKey key, const std::string& text) {
    try {
        player::storeText(settings, key, text);
        return true;
    } catch (const base::RuntimeError& error) {
        unkept.note(error);
        return false;
    }
}

void Ground::readLanguage() {
    language.Language_File(player::readLive(settings, "CLNG"));
}

void Ground::readComfort() {
    base::ComfortChoices choices;
    if (state.ComfortOfRun) {
        choices.master = *state.ComfortOfRun;
    } else {
        choices = player::readComfort(settings);
    }
    state.comfort = choices.record();
}

void Ground::takeFirstRun() {
    const std::string file = host_.paths.of(host::DataItem::FirstRun);
    std::string bytes;
    if (base::readWholeFile(file, bytes)) {
        return;
    }
    // What cannot be stored is taken over by the next start.
    if (save("CLNG", config::profileValue(bytes, "Firstrun", "LNG"))) {
        static_cast<void>(std::remove(file.c_str()));
        state.FirstRun = true;
    }
}

void Ground::refuseOldSystem() {
    if (host_.operatingSystem.major < kOldestSystem) {
        readLanguage();
        process_.endWith(language.get_Error_String(1), language.get_Error_String(0));
    }
}

void Ground::lookForOtherInstance() {
    if (process_.anotherInstance() && state.MultipleInstances != 1) {
        process_.passBy();
    }
}

void Ground::enterDataFolder() {
    // Names in lists may be told from there. Without the folder other steps have failed already.
    std::error_code failure;
    std::filesystem::current_path(host_.paths.dataFolder(), failure);
}

void Ground::readMessenger() {
    stored.read("MSN");
}

void Ground::makeKnown() {
    if (process_.isFirst()) {
        static_cast<void>(save("SHWND", std::to_string(window_.handle())));
    }
}

void Ground::startHelper(const std::string& name, const std::string& argument) const {
    // The start goes on without it, and asks nobody: few installations have these programs.
    config::guard(errors, config::player("Load"), [&] {
        if (!host_.programs.start(name, {argument})) {
            throw base::withPlace(base::RuntimeError(base::ErrorNumber::FileNotFound), name);
        }
    });
}

void Ground::associateFileTypes() {
    if (state.AssociateAtStart == 1) {
        startHelper("Tkstart.exe", player::readLive(settings, "SFA"));
    }
}

void Ground::checkForUpdates() {
    if (state.CheckUpdates == 1) {
        startHelper("update.exe", version.updateArgument());
    }
}

/// A deliberate oddity: a track that was started meanwhile has its captions overwritten, unless
/// `Comfort::titlesFileStart` leaves them.
void Ground::showCaptions() {
    if (state.comfort.titlesFileStart && !screen.playing.caption.empty()) {
        return;
    }
    screen.playing.caption = version.get_Tovik_Version();
    screen.playing.miniCaption = screen.playing.caption;
    screen.showCaptions();
}

void Ground::tellUnkept() {
    unkept.endStart();
}

} // namespace tovik::app
