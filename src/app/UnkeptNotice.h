// SPDX-License-Identifier: GPL-3.0-or-later
// Tells the user that nothing of this session is kept. Interface thread.
#pragma once

#include "base/RuntimeError.h"
#include "config/Errors.h"
#include "config/MultiLNG.h"
#include "player/Screen.h"

#include <optional>

namespace tovik::app {

/// The first failure is told once, in a box and the log; from then on a line stands in the display.
class UnkeptNotice {
public:
    /// `why` is what was known before the start. The others are kept by reference.
    UnkeptNotice(const config::Errors& errors, const config::MultiLNG& language,
                 player::Screen& screen, std::optional<base::RuntimeError> why);

    /// Something could not be written. It is told at once, but for a start that is not over yet.
    void note(const base::RuntimeError& failure);

    /// The start is over: what it noted is told now, while the music plays.
    void endStart();

    /// Shows the line, if there is anything to say; to be called again after a change of the
    /// language.
    void show();

private:
    void tell();

    const config::Errors& errors_;
    const config::MultiLNG& language_;
    player::Screen& screen_;
    std::optional<base::RuntimeError> why_;
    bool starting_ = true;
    bool told_ = false;
};

} // namespace tovik::app
