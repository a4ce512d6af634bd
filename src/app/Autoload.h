// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the saved list shortly after the window is shown. Interface thread.
#pragma once

#include "app/LastSession.h"
#include "app/Lists.h"
#include "app/StartFile.h"
#include "host/Timer.h"
#include "player/Core.h"
#include "player/RowPlayer.h"

#include <memory>

namespace tovik::app {

class Autoload {
public:
    static constexpr int kTimer4Ms = 100;

    /// All of them outlive the object.
    Autoload(const LastSession::Needs& session, Lists& lists, const StartFile& startFile);

    /// A step of the end: what the next session goes on with.
    void keepSession() { lastSession_.keep(); }

    /// From now on it looks whether the start is over.
    void begin();

    /// Whether the list will still be read.
    [[nodiscard]] bool awaited() const { return core_.state.LoadFinished && Timer4_->enabled(); }

private:
    void Timer4();
    void autoload_playlist();

    const player::Core& core_;
    Lists& lists_;
    const StartFile& startFile_;
    player::RowPlayer& rows_;
    LastSession lastSession_;
    std::unique_ptr<host::Timer> Timer4_;
};

} // namespace tovik::app
