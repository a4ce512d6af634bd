// SPDX-License-Identifier: GPL-3.0-or-later
// How the program was started. Any thread.
#pragma once

#include "base/RuntimeError.h"
#include "desktop/TypeExport.h"

#include <functional>
#include <optional>
#include <string>

namespace tovik::app {

struct StartOptions {
    std::string commandLine;       ///< the player's part of it, as text
    std::string activationToken{}; ///< by which the desktop lets another window come to the front
    bool checkInstance = true;     ///< false: no other instance is looked for or made known
    bool keepsList = true;         ///< false: the list is not saved while the program runs
    std::optional<bool> comfort{}; ///< all of it on or off for this run; none: as the settings say
    std::string shippedFolder{};   ///< what came with the program; empty: nothing
    std::function<std::string()> musicFolder{}; ///< the user's; none: nobody knows
    std::string shippedVisuals{};               ///< the plug-ins among it; empty: none
    std::optional<base::RuntimeError> unkept{}; ///< why nothing of this session is kept, if so
    std::string
        program{}; ///< the path by which desktops start this one; empty: they are left alone
    desktop::TypePlaces typePlaces{}; ///< where desktops look for file types
};

} // namespace tovik::app
