// SPDX-License-Identifier: GPL-3.0-or-later
// The title popup: a bar across the top of the screen that tells for two seconds what began to
// play. Interface thread.
#pragma once

#include "config/Errors.h"
#include "host/TimerFactory.h"
#include "window/NotifyArea.h"

#include <memory>
#include <string>

namespace tovik::window {

class frmTitle {
public:
    /// All of them outlive the popup.
    frmTitle(host::TimerFactory& timers, const config::Errors& errors, TitlePopup& popup);
    ~frmTitle();
    frmTitle(const frmTitle&) = delete;
    frmTitle& operator=(const frmTitle&) = delete;

    static constexpr int kTimer1Ms = 2000;

    /// Shows a text; one that is shown already has its whole time before it again. Whether it was
    /// shown.
    bool show_title(const TitleBar& bar);

    /// The same across the top of the screen.
    bool show_title(const std::string& text) { return show_title(TitleBar{.text = text}); }

    /// Escape ends it. Returns whether the key did.
    bool KeyDown(int keyCode);

    [[nodiscard]] bool shown() const { return Timer1_->enabled(); }

private:
    void Load();
    void Timer1();
    void unload();

    const config::Errors& errors_;
    TitlePopup& popup_;
    std::unique_ptr<host::Timer> Timer1_;
};

} // namespace tovik::window
