// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/OutputChoice.h"

#include "host/CommandLine.h"
#include "sound/output/FallbackOutput.h"
#include "sound/output/PulseOutput.h"
#include "sound/output/SdlOutput.h"
#include "sound/output/SilentOutput.h"

#include <cstdio>
#include <utility>

namespace tovik::app {

namespace {

/// SDL's name of what serves a machine without a sound server.
constexpr const char* kWithoutServer = "alsa";

} // namespace

std::unique_ptr<sound::OutputDevice> makeOutput(const std::optional<std::string>& asked) {
    if (asked == host::kSilentDevice) {
        return std::make_unique<sound::SilentOutput>();
    }
    const std::string name = asked.value_or(std::string());
    auto server = std::make_unique<sound::PulseOutput>(name);
    const sound::PulseOutput& asks = *server;
    return std::make_unique<sound::FallbackOutput>(
        std::move(server), [&asks, name]() -> std::unique_ptr<sound::OutputDevice> {
            // A server that does not work has the card all the same.
            return asks.serverFound() ? nullptr
                                      : std::make_unique<sound::SdlOutput>(name, kWithoutServer);
        });
}

bool listOutputs() {
    auto names = sound::PulseOutput::listDevices();
    if (names.empty()) {
        names = sound::SdlOutput::listDevices(kWithoutServer);
    }
    for (const std::string& name : names) {
        std::printf("%s\n", name.c_str());
    }
    return !names.empty();
}

} // namespace tovik::app
