// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Desktop.h"

#include "base/FileErrors.h"
#include "desktop/TypeExport.h"
#include "host/BesideJob.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace tovik::app {

namespace {

/// The picture of the files is the second one of the launcher.
constexpr const char* kIcon = "\\tkstart.exe,1";

/// Asked beside the interface thread: the disk may be slow.
bool isThere(host::MessagePump& pump, const std::string& path) {
    const auto there = std::make_shared<bool>(false);
    const bool asked = host::runBeside(pump, [there, path] {
        std::error_code failure;
        *there = std::filesystem::exists(path, failure);
    });
    return asked && *there;
}

} // namespace

Desktop::Desktop(const Needs& needs, const host::Host& host)
    : messenger(needs.core, host.messengers),
      remote(
          {.core = needs.core,
           .playback = needs.playback,
           .commands = needs.commands,
           .isThere = [&pump = host.pump](const std::string& path) { return isThere(pump, path); },
           .addFile =
               [&media = needs.media](const std::string& path) {
                   media.Stdss_OleDragDrop(std::vector<std::string>{path});
               }}),
      host_(host), options_(needs.options) {
    needs.core.news.add(messenger);
}

void Desktop::attach(preferences::PreferenceHooks& hooks) {
    if (!options_.program.empty()) {
        hooks.associate = [this](std::span<const std::string> extensions) {
            associate(extensions);
        };
    }
}

void Desktop::finishMessengers() {
    host_.messengers.finish();
}

void Desktop::associate(std::span<const std::string> extensions) {
    const auto failure = std::make_shared<std::error_code>();
    const bool done = host::runBeside(
        host_.pump, [failure, places = options_.typePlaces, program = options_.program,
                     chosen = std::vector<std::string>(extensions.begin(), extensions.end())] {
            const std::string folder = std::filesystem::path(program).parent_path().native();
            *failure = desktop::claimTypes(places, chosen, program, folder + kIcon);
        });
    if (!done) {
        return;
    }
    base::raiseFailure(*failure);
    desktop::tellOfEntries(host_.programs, options_.typePlaces);
}

} // namespace tovik::app
