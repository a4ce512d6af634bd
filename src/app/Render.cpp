// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Render.h"

#include "app/DataPlace.h"
#include "app/frmPlayer.h"
#include "app/RenderLoop.h"
#include "base/ErrorStream.h"
#include "host/system/StopSignals.h"
#include "host/virtual/RenderHost.h"
#include "sound/engine/Engine.h"
#include "sound/engine/MachineDrives.h"
#include "sound/output/WavOutput.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace tovik::app {

namespace {

std::int64_t lastMillisecond(const host::CommandLine& line) {
    return line.renderSeconds ? std::llround(*line.renderSeconds * 1000.0)
                              : std::numeric_limits<std::int64_t>::max();
}

/// Creating the target would empty the file before it is played.
bool isAmong(const std::string& target, const std::vector<std::string>& files) {
    return std::ranges::any_of(files, [&](const std::string& file) {
        std::error_code failure; // a file that is not there is not the target
        return std::filesystem::equivalent(target, file, failure);
    });
}

/// The automatic playlist is read this soon, if at all.
constexpr std::int64_t kStartMs = 200;

/// What shells give for a program that a signal ended, less its number.
constexpr int kSignalStatus = 128;

/// What nobody sees need not move.
class NoWindow final : public window::PlayerWindow {
public:
    [[nodiscard]] bool visible() const override { return false; }
};

int fail(const std::string& text) {
    base::tell(text);
    return EXIT_FAILURE;
}

} // namespace

int render(const host::CommandLine& line, const host::Environment& environment) {
    if (isAmong(*line.renderFile, line.player.files)) {
        return fail("Cannot render \"" + *line.renderFile + "\" into itself");
    }
    const host::StopSignals stop; // the copy must not be left behind
    const DataPlace place = prepareDataFolder(line, environment);
    const PrivateCopy copy(place.folder);
    if (!copy.complete()) {
        return EXIT_FAILURE;
    }
    host::RenderHost renderHost(copy.folder(), host::OperatingSystem::current(),
                                environment.searchPath);
    const host::Host host = renderHost.host();

    auto wav = std::make_unique<sound::WavOutput>(*line.renderFile);
    sound::WavOutput& output = *wav;
    sound::EngineOptions options{.feeder = sound::FeederMode::inCaller};
    if (!line.discImages.empty()) {
        options.drives = sound::machineDrives(line.discImages);
    }
    sound::Engine engine(std::move(wav), options);
    NoWindow noWindow;
    player::TrackEvents events;
    window::WindowOpener noDialogs;
    frmPlayer player(host, engine, noWindow, noDialogs, events,
                     {.commandLine = line.player.text,
                      .checkInstance = false,
                      .keepsList = false,
                      .comfort = line.comfort,
                      .shippedFolder = place.shippedFolder});
    host.dispatcher.reportTo(
        [&](const base::RuntimeError& error) { player.ground().errors.reportUnguarded(error); });
    host.dispatcher.run([&] { player.Form_Initialize(); });
    host.dispatcher.run([&] { player.Form_Load(); });

    bool played = false;
    RenderLoop loop(renderHost.clock(), output);
    const std::int64_t last = lastMillisecond(line);
    const auto goesOn = [&] {
        const std::int64_t now = renderHost.clock().monotonicMs();
        return host::StopSignals::arrived() == 0 && !renderHost.endStatus() && output.ok() &&
               now < last && (player.music().sounds() || now < kStartMs);
    };
    while (goesOn()) {
        played = played || player.music().sounds();
        if (!line.renderSeconds && player.music().playsForEver()) {
            fail("What is rendered here does not end by itself: --seconds is needed");
            return host::kUsageStatus;
        }
        loop.step(last);
    }
    output.close();
    if (!output.ok()) {
        return fail(output.error());
    }
    if (host::StopSignals::arrived() != 0) {
        return kSignalStatus + host::StopSignals::arrived();
    }
    if (renderHost.endStatus()) {
        return *renderHost.endStatus();
    }
    return played ? EXIT_SUCCESS : fail("Nothing to render");
}

} // namespace tovik::app
