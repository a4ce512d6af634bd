// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/PositionGrip.h"

namespace tovik::window {

void PositionGrip::Posbar_MouseDown(double x) {
    config::guard(core_.errors, config::player("posbar_mousedown"), [&] {
        if (seek_.take()) {
            moveMark(x);
        }
    });
}

void PositionGrip::Posbar_MouseMove(double x) {
    if (seek_.drag()) {
        moveMark(x);
        seek_.preview(percentAt(x));
    }
}

void PositionGrip::Posbar_MouseUp(double x) {
    if (seek_.sounds()) {
        moveMark(x);
        seek_.seek(percentAt(x));
    } else if (!seek_.taken()) {
        return;
    }
    seek_.letGo();
    window_.takeFocus();
}

} // namespace tovik::window
