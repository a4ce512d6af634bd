// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/ProgramParts.h"

#include "base/ModuleFile.h"

namespace tovik::sound {

std::string visualHost() {
    return base::besideProgram("tovik-vis-host");
}

std::string shippedVisuals() {
    return base::besideProgram("Vis");
}

} // namespace tovik::sound
