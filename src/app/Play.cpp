// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Play.h"

#include "app/BuiltInPictures.h"
#include "app/DataPlace.h"
#include "app/frmPlayer.h"
#include "app/MainWindow.h"
#include "app/OutputChoice.h"
#include "app/PlatformChoice.h"
#include "app/SessionEnd.h"
#include "base/ErrorStream.h"
#include "config/FirstFill.h"
#include "desktop/bus/Mpris.h"
#include "desktop/CoverFiles.h"
#include "dialogs/DialogOpener.h"
#include "dialogs/DialogPlace.h"
#include "host/qt/RealHost.h"
#include "host/virtual/UnattendedDialogs.h"
#include "host/virtual/UnattendedPrograms.h"
#include "sound/engine/Engine.h"
#include "sound/engine/MachineDrives.h"
#include "sound/engine/ProgramParts.h"
#include "tray/DesktopShell.h"
#include "ui/qt/SkinPalette.h"
#include "window/WindowPictures.h"

#include <array>
#include <cstdlib>
#include <optional>
#include <QApplication>

namespace tovik::app {

namespace {

/// Says on the error stream what became of the device; the player waits by itself.
class DeviceNews final : public sound::DeviceObserver {
public:
    void deviceLost() override { base::tell("the sound device is gone"); }

    void deviceBack() override { base::tell("the sound device is back"); }
};

void saveScreenshot(QWidget& window, const std::string& file, host::Closing& closing) {
    const bool saved = window.grab().save(QString::fromLocal8Bit(file.c_str()), "PNG");
    if (!saved) {
        base::tell("cannot write " + file);
    }
    closing.endProcess(saved ? EXIT_SUCCESS : EXIT_FAILURE);
}

/// The host of a start that nobody watches: every box is answered by itself, and no helper
/// program is started.
host::Host unattended(const host::Host& host, host::Dialogs& dialogs, host::Programs& programs,
                      host::MessengerWindows& messengers) {
    return {.clock = host.clock,
            .timers = host.timers,
            .watches = host.watches,
            .pump = host.pump,
            .dialogs = dialogs,
            .programs = programs,
            .random = host.random,
            .lock = host.lock,
            .messages = host.messages,
            .messengers = messengers,
            .dispatcher = host.dispatcher,
            .closing = host.closing,
            .paths = host.paths,
            .operatingSystem = host.operatingSystem};
}

} // namespace

int play(const host::CommandLine& line, const host::Environment& environment) {
    DeviceNews news;
    // A picture needs no sound, so it needs no device, either.
    const bool needsDevice = !line.screenshotFile || line.device;
    const std::optional<std::string> device =
        needsDevice ? line.device : std::string(host::kSilentDevice);
    sound::EngineOptions options{.observer = &news};
    if (!line.screenshotFile) {
        options.drives = sound::machineDrives(line.discImages);
        options.visualHost = sound::visualHost();
    }
    sound::Engine engine(makeOutput(device), options);
    // Opening the device and building the window take about as long: do both at once.
    engine.warmUp();

    choosePlatform();
    // The session knows its programs by the name that it gave them.
    std::string name = "tovik";
    std::string option = "-session";
    std::string sessionName = line.session.value_or("");
    std::array<char*, 4> argv = {name.data(), option.data(), sessionName.data(), nullptr};
    int argc = line.session ? 3 : 1;
    const QApplication application(argc, argv.data());
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setPalette(ui::skinPalette());
    QApplication::setWindowIcon(programIcon());

    DataPlace place = prepareDataFolder(line, environment);
    std::optional<PrivateCopy> copy;
    if (line.screenshotFile) {
        copy.emplace(place.folder);
        if (!copy->complete()) {
            return EXIT_FAILURE;
        }
    }
    host::RealHost realHost(copy ? copy->folder() : place.folder, environment.searchPath,
                            environment.runtimeFolder, [&place] { place.standIn.reset(); });
    host::UnattendedDialogs answers;
    host::UnattendedPrograms noHelpers(realHost.host().paths, environment.searchPath);
    host::NoMessengers nobody;
    const host::Host host = line.screenshotFile
                                ? unattended(realHost.host(), answers, noHelpers, nobody)
                                : realHost.host();

    player::TrackEvents events;
    MainWindow window(host);
    dialogs::DialogOpener dialogs(host.dispatcher);
    tray::DesktopShell shell(host.dispatcher, [&window] { return window.screen(); });
    frmPlayer player(
        host, engine, window, dialogs, events,
        {.commandLine = line.player.text,
         .activationToken = environment.activationToken,
         .checkInstance = !line.screenshotFile,
         .keepsList = !line.screenshotFile,
         .comfort = line.comfort,
         .shippedFolder = place.shippedFolder,
         .musicFolder =
             [&environment] {
                 return config::musicFolder(environment.home, environment.configHome);
             },
         .shippedVisuals = line.screenshotFile ? std::string() : sound::shippedVisuals(),
         .unkept = place.unkept,
         .program = line.screenshotFile ? "" : environment.executableFolder + "/tovik",
         .typePlaces = desktop::TypePlaces::of(environment, place.folder)},
        line.screenshotFile ? nullptr : &shell.shell());
    player.view().pictures.takeFineFrom(finePicture);
    window::giveWindowPictures(player.elements(), player.view().pictures, windowPicture);
    player.presence().mini.windowPicture = windowPicture;
    window.attach(player);
    dialogs.attach(player.dialogs(), window.widget());
    realHost.dialogs().prepareWith([&core = player.dialogs().core](QWidget& asking) {
        new dialogs::DialogPlace(asking, core);
    });
    host.dispatcher.reportTo(
        [&](const base::RuntimeError& error) { player.ground().errors.reportUnguarded(error); });
    host.closing.setLeave([&] {
        if (host.closing.unattended()) {
            player.ground().errors.showNoMoreBoxes();
        }
        player.kill_me();
    });
    const SessionEnd sessionEnd({.closing = host.closing,
                                 .dispatcher = host.dispatcher,
                                 .save = [&player] { player.saveSession(); },
                                 .again =
                                     [&](const std::string& session) {
                                         return restartCommand(environment.executableFolder +
                                                                   "/tovik",
                                                               line.dataFolder.value_or(""),
                                                               line.device.value_or(""), session);
                                     }});

    const auto shot = host.timers.makeTimer([&] {
        copy.reset();
        saveScreenshot(window.widget(), *line.screenshotFile, host.closing);
    });

    host.dispatcher.run([&] { player.Form_Initialize(); });
    host.dispatcher.run([&] { player.Form_Load(); });
    // A start that failed half way still leaves a window.
    window.show();
    if (line.screenshotFile) {
        // Once the event loop runs: what the start left to it is then in the picture.
        shot->setInterval(1);
        shot->setEnabled(true);
    }
    desktop::Mpris mpris(player.desktop().remote,
                         {.Raise = [&player] { player.presence().bringToFront({}); },
                          .Quit = [&player] { player.commands().run(commands::CommandId::exit); }},
                         host.dispatcher, desktop::coverFolder(environment));
    if (!line.screenshotFile) {
        mpris.begin();
    }
    const int status = QApplication::exec();
    window.detach();
    return status;
}

} // namespace tovik::app
