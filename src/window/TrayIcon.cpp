// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/TrayIcon.h"

#include "base/Text.h"
#include "ui/MessageWindow.h"
#include "ui/Twips.h"

#include <algorithm>

namespace tovik::window {

namespace {

struct Row {
    std::uint32_t message;
    int button;
    bool twice;
};

constexpr std::array kRows = {
    Row{ui::messages::kLeftDown, 1, false},  Row{ui::messages::kLeftUp, 1, false},
    Row{ui::messages::kLeftDouble, 1, true}, Row{ui::messages::kRightDown, 3, false},
    Row{ui::messages::kRightUp, 2, false},   Row{ui::messages::kRightDouble, 2, true},
};

/// The guard falls however the handler ends.
class Busy {
public:
    explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }

    ~Busy() { flag_ = false; }

    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    bool& flag_;
};

} // namespace

TrayIcon::TrayIcon(NotifyArea& area, std::uintptr_t owner) : area_(area), owner_(owner) {}

void TrayIcon::call(NotifyCommand command) {
    NotifyIconData data;
    data.hWnd = owner_;
    data.uCallbackMessage = ui::messages::kMouseMove;
    data.hIcon = icon_;
    const std::string tip = Tooltip();
    std::ranges::copy(base::cutToWidth(tip, kTipBytes - 1), data.szTip.begin());
    state_ = area_.notify(command, data);
    added_ = command != NotifyCommand::remove;
}

void TrayIcon::MouseMove(std::int32_t x) {
    const auto* const row =
        std::ranges::find(kRows, static_cast<std::uint32_t>(x / ui::kTwipsPerPixel), &Row::message);
    if (busy_ || row == kRows.end() || !Mouse) {
        return;
    }
    const Busy guard(busy_);
    Mouse(row->button, row->twice);
}

} // namespace tovik::window
