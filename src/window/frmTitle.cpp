// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/frmTitle.h"

#include "commands/ClsShortcut.h"

namespace tovik::window {

frmTitle::frmTitle(host::TimerFactory& timers, const config::Errors& errors, TitlePopup& popup)
    : errors_(errors), popup_(popup), Timer1_(timers.makeTimer([this] { Timer1(); })) {
    Timer1_->setInterval(kTimer1Ms);
}

frmTitle::~frmTitle() {
    popup_.setKey(nullptr);
}

void frmTitle::Load() {
    config::guard(errors_, config::procedureOf("OSD", "Load"), [this] {
        popup_.setKey([this](int keyCode) { static_cast<void>(KeyDown(keyCode)); });
    });
}

bool frmTitle::show_title(const TitleBar& bar) {
    return config::guard(errors_, config::procedureOf("OSD", "ShowTitle"), [&] {
        if (!shown()) {
            Load();
        }
        popup_.show(bar);
        Timer1_->setEnabled(false);
        Timer1_->setEnabled(true);
    });
}

bool frmTitle::KeyDown(int keyCode) {
    bool used = false;
    config::guard(errors_, config::procedureOf("Title", "keydown"), [&] {
        used = commands::ClsShortcut::UnloadShortCut([this] { unload(); }, keyCode);
    });
    return used;
}

void frmTitle::Timer1() {
    config::guard(errors_, config::procedureOf("OSD", "timer1"), [this] { unload(); });
}

void frmTitle::unload() {
    Timer1_->setEnabled(false);
    popup_.hide();
}

} // namespace tovik::window
