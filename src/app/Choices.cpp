// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Choices.h"

#include "app/BuiltWith.h"

namespace tovik::app {

using commands::CommandId;
using preferences::Page;

Choices::Choices(const Needs& needs)
    : preferences(needs.preferences), about({.version = needs.version,
                                             .errors = needs.preferences.core.errors,
                                             .programs = needs.host.programs},
                                            builtWith()),
      windows_(needs.preferences.windows) {
    preferences.hooks.changeLanguage = needs.changeLanguage;
}

void Choices::bind(commands::Commands& commands) {
    commands.bind(CommandId::preferences, [this] { preferences.openOn(Page::general); });
    commands.bind(CommandId::ripSettings, [this] { preferences.openOn(Page::ripper); });
    commands.bind(CommandId::about, [this] { windows_.open(window::WindowId::about); });
}

} // namespace tovik::app
