// SPDX-License-Identifier: GPL-3.0-or-later
// The icon in a tray of the window system, which takes windows into its own. Interface thread.
#pragma once

#include "tray/TrayEvents.h"

#include <QSystemTrayIcon>

namespace tovik::tray {

class EmbeddedIcon final : public QSystemTrayIcon {
public:
    explicit EmbeddedIcon(TrayClicks clicks);

    void setLook(const TrayLook& look);

protected:
    bool event(QEvent* event) override;

private:
    void clicked(ActivationReason reason) const;

    TrayClicks clicks_;
    int style_ = 0;
};

} // namespace tovik::tray
