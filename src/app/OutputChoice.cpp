// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/OutputChoice.h"

#include "host/CommandLine.h"
#include "sound/output/SdlOutput.h"
#include "sound/output/SilentOutput.h"

#include <cstdio>

namespace tovik::app {

std::unique_ptr<sound::OutputDevice> makeOutput(const std::optional<std::string>& asked) {
    if (asked == host::kSilentDevice) {
        return std::make_unique<sound::SilentOutput>();
    }
    return std::make_unique<sound::SdlOutput>(asked.value_or(std::string()));
}

bool listOutputs() {
    const auto names = sound::SdlOutput::listDevices();
    for (const std::string& name : names) {
        std::printf("%s\n", name.c_str());
    }
    return !names.empty();
}

} // namespace tovik::app
