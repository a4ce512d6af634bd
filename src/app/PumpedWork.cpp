// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PumpedWork.h"

#include <chrono>
#include <future>

namespace tovik::app {

void PumpedWork::run(const std::function<void()>& work) {
    using std::chrono::milliseconds;
    // Shorter than what a hand or an eye takes notice of.
    constexpr milliseconds kSoon{30};
    constexpr milliseconds kBetweenSteps{5};
    std::future<void> done = std::async(std::launch::async, work);
    for (milliseconds patience = kSoon; done.wait_for(patience) != std::future_status::ready;
         patience = kBetweenSteps) {
        if (!pump_.Step()) {
            break;
        }
    }
    done.get();
}

} // namespace tovik::app
