// SPDX-License-Identifier: GPL-3.0-or-later
// What ripping is made of. Interface thread.
#pragma once

#include "cd/CdState.h"
#include "cd/RipProgress.h"
#include "config/MultiLNG.h"
#include "host/Host.h"
#include "player/Core.h"
#include "player/PlayerHandle.h"

#include <cstddef>
#include <functional>
#include <string>

namespace tovik::cd {

/// The words of the language that ripping uses.
struct RipWords {
    const config::MultiLNG& language;
    std::function<std::string(std::size_t)> Label4; ///< caption of one of the hidden labels

    [[nodiscard]] std::string progress() const { return Label4(kProgress); }

    [[nodiscard]] std::string unnamed() const { return Label4(kUnnamed); }

private:
    static constexpr std::size_t kUnnamed = 4;
    static constexpr std::size_t kProgress = 8;
};

/// All of it outlives the parts.
struct RipNeeds {
    const player::Core& core;
    CdState& disc;
    DiscForm& form;
    playlist::stdSS& lstTracks;
    const player::PlayerHandle& window;
    const host::Host& host;
    const RipWords& words;
    RipProgress& progress;
};

/// How the rip of a track ended.
enum class RipEnd {
    done,      ///< the file is there, whole or as much of it as the user wanted
    failed,    ///< the user was told
    hopeless,  ///< and no other track will fare better
    abandoned, ///< the program is ending
};

} // namespace tovik::cd
