// SPDX-License-Identifier: GPL-3.0-or-later
// The player on the desktop's message bus, by the Media Player Remote Interfacing Specification 2.2
// (MPRIS). Interface thread.
#pragma once

#include "desktop/bus/MprisTables.h"
#include "host/Dispatcher.h"

#include <memory>
#include <string>

namespace tovik::desktop {

class Mpris {
public:
    /// Player and dispatcher outlive the object; pictures out of tags are kept in the folder
    /// `covers`.
    Mpris(Remote& remote, RemoteProgram program, host::Dispatcher& dispatcher, std::string covers);
    ~Mpris();
    Mpris(const Mpris&) = delete;
    Mpris& operator=(const Mpris&) = delete;

    /// Looks for the bus of the session, on a thread of its own, and is there once it has it. Where
    /// there is none, nothing happens.
    void begin();

private:
    class Service;

    std::unique_ptr<Service> service_;
};

} // namespace tovik::desktop
