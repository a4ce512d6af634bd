// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings say of comfort: the keys of `base/ComfortTable.h`. Interface thread.
#pragma once

#include "base/ComfortTable.h"
#include "config/Settings.h"

namespace tovik::player {

/// What the open document says. A missing or damaged one says nothing; no key is needed.
[[nodiscard]] base::ComfortChoices comfortIn(const config::clsXML& xml);

/// Puts the choices into the open document. A switch that follows the master gets no element.
void putComfort(config::clsXML& xml, const base::ComfortChoices& choices);

/// What the settings say, or what would take the place of a file that is missing or damaged; it is
/// only read.
[[nodiscard]] base::ComfortChoices readComfort(config::Settings& settings);

} // namespace tovik::player
