// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that adds a radio station, as logic. Interface thread.
#pragma once

#include "player/Core.h"

#include <functional>
#include <string>
#include <string_view>

namespace tovik::radio {

class frmaddst {
public:
    /// Both outlive the object.
    frmaddst(const player::Core& core, playlist::stdSS& RadioLst)
        : core_(core), RadioLst_(RadioLst) {}

    /// The dialog opens: reads whether it stays in front of other windows, and runs `words`, which
    /// gives it the words of the language. What goes wrong is logged.
    void Form_Load(const std::function<void()>& words);

    /// Where the next address goes: to the stations (null), or as a row to this playlist, which
    /// outlives the object.
    void addTo(playlist::stdSS* playlist) { playlist_ = playlist; }

    /// Add was pressed: appends the station, whatever the texts are. A playlist gets no row without
    /// an address, "http://" in front of one without a scheme, and the address for a name.
    void Command1_Click(std::string_view name, std::string_view address);

    [[nodiscard]] bool staysOnTop() const { return staysOnTop_; }

private:
    void addRow(std::string_view name, std::string_view address);

    const player::Core& core_;
    playlist::stdSS& RadioLst_;
    playlist::stdSS* playlist_ = nullptr;
    bool staysOnTop_ = false;
};

} // namespace tovik::radio
