// SPDX-License-Identifier: GPL-3.0-or-later
// A line of the display that stands for some seconds. Interface thread.
#pragma once

#include "app/UnkeptNotice.h"
#include "host/Timer.h"
#include "host/TimerFactory.h"
#include "player/Screen.h"

#include <memory>
#include <string>

namespace tovik::app {

/// Behind it the place is that of the notice that nothing is kept.
class PassingLine {
public:
    static constexpr int kShownMs = 5000;

    /// All of them outlive the object.
    PassingLine(player::Screen& screen, UnkeptNotice& unkept, host::TimerFactory& timers);
    PassingLine(const PassingLine&) = delete;
    PassingLine& operator=(const PassingLine&) = delete;

    /// In the place of what stood there, from now on for `kShownMs`.
    void show(const std::string& text);

    /// Whether this text stands there.
    [[nodiscard]] bool shows(const std::string& text) const;

private:
    void put(const std::string& text);

    player::Screen& screen_;
    UnkeptNotice& unkept_;
    std::unique_ptr<host::Timer> shown_;
};

} // namespace tovik::app
