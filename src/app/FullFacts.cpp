// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FullFacts.h"

#include "sound/engine/ModuleLength.h"

namespace tovik::app {

tags::FileFacts fullFactsOf(const std::string& path) {
    tags::FileFacts facts = tags::factsOfFile(path);
    if (facts.seconds <= 0 && !facts.nothing) {
        facts.seconds = sound::moduleSeconds(path);
    }
    return facts;
}

} // namespace tovik::app
