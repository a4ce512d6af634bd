// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/UnkeptNotice.h"

#include <utility>

namespace tovik::app {

UnkeptNotice::UnkeptNotice(const config::Errors& errors, const config::MultiLNG& language,
                           player::Screen& screen, std::optional<base::RuntimeError> why)
    : errors_(errors), language_(language), screen_(screen), why_(std::move(why)) {}

void UnkeptNotice::note(const base::RuntimeError& failure) {
    if (!why_) {
        why_ = failure;
    }
    if (!starting_) {
        tell();
    }
}

void UnkeptNotice::endStart() {
    starting_ = false;
    if (why_) {
        tell();
    }
}

void UnkeptNotice::tell() {
    if (!std::exchange(told_, true)) {
        show();
        errors_.reportAndTell(*why_, config::player("Load"));
    }
}

void UnkeptNotice::show() {
    if (told_) {
        screen_.playing.notice = language_.get_Notice_String(0);
        screen_.showNotice();
    }
}

} // namespace tovik::app
