// SPDX-License-Identifier: GPL-3.0-or-later
// Watches in the desktop's event loop. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "host/Watches.h"

namespace tovik::host {

class QtWatches final : public Watches {
public:
    /// The dispatcher outlives the watches.
    explicit QtWatches(const Dispatcher& dispatcher) : dispatcher_(dispatcher) {}

    [[nodiscard]] std::unique_ptr<Watch> watch(int descriptor,
                                               std::function<void()> readable) override;

private:
    const Dispatcher& dispatcher_;
};

} // namespace tovik::host
