// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/frmaddst.h"

#include "config/SettingText.h"
#include "player/LiveSetting.h"
#include "radio/StationList.h"

namespace tovik::radio {

void frmaddst::Form_Load(const std::function<void()>& words) {
    config::guard(core_.errors, config::procedureOf("AddStation", "Load"), [&] {
        staysOnTop_ = player::readLive(core_.settings, "ASOT", config::settingToInt16) != 0;
        words();
    });
}

void frmaddst::Command1_Click(std::string_view name, std::string_view address) {
    config::guard(core_.errors, config::procedureOf("AddStation", "Command1"),
                  [&] { addStation(RadioLst_, address, name); });
}

} // namespace tovik::radio
