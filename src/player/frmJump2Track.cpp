// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmJump2Track.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

namespace tovik::player {

namespace {

/// The whole number that a text tells; 0 for what is none.
playlist::Row numberIn(std::string_view text) {
    try {
        return base::toInt32(base::textToNumber(text));
    } catch (const base::RuntimeError&) {
        return 0;
    }
}

} // namespace

void frmJump2Track::Form_Load() {
    ListCount_ = core_.lists.stdSS.ListCount();
    // A deliberate oddity: what was fetched last, by whomever, not what sounds.
    const playlist::stdSS& list = core_.lists.stdSS;
    playing_ = core_.state.comfort.namesSoundingTrack
                   ? std::string(list.text(list.SoundingRow(), playlist::RowText::Title))
                   : list.OutTitle;
    row_ = 0;
}

std::string frmJump2Track::Label1(Label which, std::string_view words) const {
    switch (which) {
    case Label::count:
        return std::string(words) + " " + std::to_string(ListCount_);
    case Label::playing:
        return std::string(words) + " " + playing_;
    case Label::shownTitle:
        return std::string(core_.lists.stdSS.text(row_, playlist::RowText::Title));
    case Label::list:
    case Label::number:
    case Label::title:
        break;
    }
    return std::string(words);
}

void frmJump2Track::Text1_Change(std::string_view text) {
    const playlist::Row number = numberIn(text);
    row_ = number >= 1 && number <= ListCount_ ? number : 0;
}

void frmJump2Track::go() {
    if (row_ == 0 || row_ > core_.lists.stdSS.ListCount()) {
        return;
    }
    core_.lists.List1.ListIndex(row_ - 1);
    rows_.List1_DblClick();
}

} // namespace tovik::player
