// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Closing.h"

#include <utility>

namespace tovik::host {

Closing::Closing(EndProcess end) : end_(std::move(end)) {}

void Closing::setLeave(Leave leave) {
    leave_ = std::move(leave);
}

void Closing::setWake(Wake wake) {
    wake_ = std::move(wake);
}

void Closing::request(ClosedBy by) {
    unattended_ = unattended_ || by == ClosedBy::System;
    if (std::exchange(requested_, true)) {
        return;
    }
    if (wake_) {
        wake_();
    }
}

bool Closing::leaveIfAsked() {
    if (requested_ && !ending_) {
        ending_ = true;
        if (leave_) {
            leave_();
        } else {
            endProcess(0);
        }
    }
    return ending_;
}

void Closing::endProcess(int status) {
    ending_ = true;
    end_(status);
}

} // namespace tovik::host
