// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/frmSysTray.h"

#include "config/SettingText.h"
#include "player/LiveSetting.h"

#include <algorithm>
#include <utility>

namespace tovik::window {

namespace {

constexpr const char* kDigits = "0123456789";
constexpr const char* kAbout = "Tovik version ";
constexpr int kLeft = 1;
constexpr int kRight = 2;

} // namespace

std::string yearOf(const std::string& date) {
    const std::size_t last = date.find_last_of(kDigits);
    if (last == std::string::npos) {
        return {};
    }
    const std::size_t before = date.find_last_not_of(kDigits, last);
    const std::size_t first = before == std::string::npos ? 0 : before + 1;
    return date.substr(first, last + 1 - first);
}

frmSysTray::frmSysTray(const player::Core& core, config::Version& version, NotifyArea& area,
                       Actions actions)
    : core_(core), version_(version), area_(area), actions_(std::move(actions)) {}

void frmSysTray::ShowTrayIcon() {
    icon_ = std::make_unique<TrayIcon>(area_);
    icon_->Mouse = [this](int button, bool twice) {
        if (button == kLeft) {
            actions_.left(twice);
        } else if (button == kRight) {
            actions_.menu();
        }
    };
    takeIcon();
    icon_->Add();
}

void frmSysTray::HideTrayIcon() {
    if (icon_) {
        icon_->Remove();
        icon_.reset();
    }
}

void frmSysTray::RefreshTrayIcon() {
    if (icon_) {
        takeIcon();
        icon_->Modify();
    }
}

void frmSysTray::tellTitle(const std::string& title) {
    title_ = title;
    if (!icon_) {
        return;
    }
    const std::string text = tooltip();
    if (icon_->Tooltip() != text) {
        icon_->Tooltip(text);
        icon_->Modify();
    }
}

void frmSysTray::takeIcon() {
    const std::int16_t style = player::readLive(core_.settings, "STI", config::settingToInt16);
    icon_->Icon(std::clamp<std::int16_t>(style, 1, kStyles));
    icon_->Tooltip(tooltip());
}

std::string frmSysTray::tooltip() {
    if (!title_.empty()) {
        return title_;
    }
    if (about_.empty()) {
        about_ = kAbout + version_.getTovikversion() + " " + yearOf(version_.buildDate());
    }
    return about_;
}

} // namespace tovik::window
