// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/UnplayableNotice.h"

#include "base/Text.h"

#include <string>

namespace tovik::app {

namespace {

constexpr int kWords = 12; ///< among the notices

} // namespace

UnplayableNotice::UnplayableNotice(const Needs& needs) : p_(needs) {
    p_.news.add(*this);
}

UnplayableNotice::~UnplayableNotice() {
    p_.news.remove(*this);
}

void UnplayableNotice::reportUnplayable() {
    if (!p_.state.comfort.tellsUnplayable) {
        return;
    }
    files_ = p_.line.shows(told_) ? files_ + 1 : 1;
    told_ = base::replaceAll(p_.language.get_Notice_String(kWords), "[x]", std::to_string(files_));
    p_.line.show(told_);
}

} // namespace tovik::app
