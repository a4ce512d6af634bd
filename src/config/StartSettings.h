// SPDX-License-Identifier: GPL-3.0-or-later
// The settings that the program keeps in memory from its start on. Interface thread.
#pragma once

#include <cstdint>
#include <string>

namespace tovik::config {

/// What `Settings::getSettings` reads in one pass, in its order.
struct StartSettings {
    std::int16_t allowMultipleInstances = 0; ///< MI
    bool autoPlay = false;                   ///< AP: the splash window is shown
    std::int16_t showInTaskbar = 0;          ///< SHI, its first digit
    std::int16_t volume = 0;                 ///< CVL, 0 to 100
    bool crossfadeOn = false;                ///< CFD
    bool silenceDetectionOn = false;         ///< SLD
    bool shuffleOn = false;                  ///< SHF
    bool equalizerOn = false;                ///< EQ
    std::int16_t balance = 0;                ///< BLV, -100 to 100
    bool repeatOn = false;                   ///< RPT
    std::int16_t visualisation = 0;          ///< CVP, -1 for none
    std::string language{};                  ///< CLNG
    std::int16_t alwaysOnTop = 0;            ///< ASOT
    std::int16_t associateFileTypes = 0;     ///< AFS
    std::int16_t checkForUpdates = 0;        ///< CHKU

    bool operator==(const StartSettings&) const = default;
};

} // namespace tovik::config
