// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/UnkeptNotice.h"

#include "ui/MainElements.h"

#include <string>
#include <utility>

namespace tovik::app {

namespace {

/// For a language that has no words for it.
constexpr const char* kEnglishWords = "Changes are not kept";

} // namespace

UnkeptNotice::UnkeptNotice(const config::Errors& errors, const config::MultiLNG& language,
                           window::TextFields& fields, std::optional<base::RuntimeError> why)
    : errors_(errors), language_(language), fields_(fields), why_(std::move(why)) {}

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
        const std::string words = language_.get_Notice_String(0);
        fields_.show(ui::MainElement::notice_img, 0, words.empty() ? kEnglishWords : words,
                     window::Strip::Bright);
    }
}

} // namespace tovik::app
