// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of the preferences, and of what the program tells about itself. Interface thread.
#pragma once

#include "commands/Commands.h"
#include "config/Version.h"
#include "host/Host.h"
#include "preferences/frmPreferences.h"
#include "window/frmAbout.h"
#include "window/WindowOpener.h"

#include <functional>

namespace tovik::app {

/// The parts are used as they are.
class Choices {
public:
    /// All of it outlives the wing.
    struct Needs {
        preferences::frmPreferences::Needs preferences;
        config::Version& version;
        const host::Host& host;
        std::function<void()> changeLanguage; ///< to that of the settings
    };

    explicit Choices(const Needs& needs);
    Choices(const Choices&) = delete;
    Choices& operator=(const Choices&) = delete;

    void bind(commands::Commands& commands);

    preferences::frmPreferences preferences;
    window::frmAbout about;

private:
    window::WindowOpener& windows_;
};

} // namespace tovik::app
