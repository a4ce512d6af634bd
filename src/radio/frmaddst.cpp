// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/frmaddst.h"

#include "base/Url.h"
#include "config/SettingText.h"
#include "player/LiveSetting.h"
#include "radio/StationList.h"

namespace tovik::radio {

namespace {

constexpr std::string_view kNoLength = "00:00";

} // namespace

void frmaddst::Form_Load(const std::function<void()>& words) {
    config::guard(core_.errors, config::procedureOf("AddStation", "Load"), [&] {
        staysOnTop_ = player::readLive(core_.settings, "ASOT", config::settingToInt16) != 0;
        words();
    });
}

void frmaddst::Command1_Click(std::string_view name, std::string_view address) {
    config::guard(core_.errors, config::procedureOf("AddStation", "Command1"), [&] {
        if (playlist_ != nullptr) {
            addRow(name, address);
        } else {
            addStation(RadioLst_, address, name);
        }
    });
}

void frmaddst::addRow(std::string_view name, std::string_view address) {
    if (address.empty()) {
        return;
    }
    const std::string whole =
        base::isUrl(address) ? std::string(address) : "http://" + std::string(address);
    playlist_->AddItem({}, whole, name.empty() ? whole : name, kNoLength, 0);
}

} // namespace tovik::radio
