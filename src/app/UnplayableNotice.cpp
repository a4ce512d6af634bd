// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/UnplayableNotice.h"

#include "base/Text.h"

#include <string>

namespace tovik::app {

namespace {

constexpr int kWords = 12; ///< among the notices

} // namespace

UnplayableNotice::UnplayableNotice(const Needs& needs)
    : p_(needs), shown_(p_.timers.makeTimer([this] {
          shown_->setEnabled(false);
          files_ = 0;
          show("");
          p_.unkept.show();
      })) {
    shown_->setInterval(kShownMs);
    p_.news.add(*this);
}

UnplayableNotice::~UnplayableNotice() {
    p_.news.remove(*this);
}

void UnplayableNotice::reportUnplayable() {
    if (!p_.state.comfort.tellsUnplayable) {
        return;
    }
    ++files_;
    show(base::replaceAll(p_.language.get_Notice_String(kWords), "[x]", std::to_string(files_)));
    shown_->setEnabled(true); // from now on once more
}

void UnplayableNotice::show(const std::string& text) {
    p_.screen.playing.notice = text;
    p_.screen.showNotice();
}

} // namespace tovik::app
