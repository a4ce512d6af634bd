// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/ProgramParts.h"

#include "sound/decode/ModuleFile.h"

namespace tovik::sound {

std::string visualHost() {
    return besideProgram("tovik-vis-host");
}

std::string shippedVisuals() {
    return besideProgram("Vis");
}

} // namespace tovik::sound
