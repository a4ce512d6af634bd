// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of what instances hand over to each other: a later start gives its file to the one that
// runs, which plays it. Interface thread.
#pragma once

#include "app/Autoload.h"
#include "app/Process.h"
#include "app/StartFile.h"
#include "app/StartOptions.h"
#include "player/Core.h"
#include "window/PlayerWindow.h"

#include <functional>
#include <string>
#include <utility>

namespace tovik::app {

class HandOver {
public:
    /// Brings the window in use to the front, with the token of who asked.
    using Front = std::function<void(const std::string& token)>;

    /// All of them outlive the wing.
    HandOver(const player::Core& core, Process& process, const StartOptions& options,
             window::PlayerWindow& window, StartFile& startFile, const Autoload& autoload,
             Front front)
        : core_(core), process_(process), options_(options), window_(window), startFile_(startFile),
          autoload_(autoload), front_(std::move(front)) {}

    HandOver(const HandOver&) = delete;
    HandOver& operator=(const HandOver&) = delete;

    /// The start is over, whether it came to its end or not: what has arrived is carried out.
    void begin();

    // Steps of the start --------------------------------------------------------------------------

    /// Where one instance is all there may be, this one hands its file to the one that runs and
    /// ends; without a file that one comes to the front.
    void meetOtherInstance();

private:
    void carryOut(const host::InstanceMessage& message);
    void api_msg_change(const host::InstanceMessage& message);

    const player::Core& core_;
    Process& process_;
    const StartOptions& options_;
    window::PlayerWindow& window_;
    StartFile& startFile_;
    const Autoload& autoload_;
    Front front_;
};

} // namespace tovik::app
