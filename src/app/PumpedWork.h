// SPDX-License-Identifier: GPL-3.0-or-later
// Work on files in a thread of its own. Interface thread.
#pragma once

#include "host/MessagePump.h"
#include "tags/TagWork.h"

namespace tovik::app {

/// What is done soon is waited for; while the rest goes on the program stays alive.
class PumpedWork final : public tags::TagWork {
public:
    /// The pump outlives the object.
    explicit PumpedWork(host::MessagePump& pump) : pump_(pump) {}

    /// When the program ends meanwhile, the work is done to its end all the same.
    void run(const std::function<void()>& work) override;

private:
    host::MessagePump& pump_;
};

} // namespace tovik::app
