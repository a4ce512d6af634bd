// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmJump2File.h"

#include "base/Text.h"
#include "config/SettingText.h"
#include "player/FadeTime.h"
#include "player/LiveSetting.h"

#include <algorithm>
#include <iterator>

namespace tovik::player {

namespace {

using playlist::Row;
using playlist::RowText;
using playlist::TitleMatch;

constexpr int kTimer1Ms = 100;
constexpr int kTimer2Ms = 250;

constexpr std::array<LiveKey, 2> kCheckSettings = {LiveKey("EM"), LiveKey("MC")};

/// How titles are compared, by the tick boxes: first exact match, then match case.
using Matches = std::array<std::array<TitleMatch, 2>, 2>;

/// A deliberate oddity: for exact matches the second box means the opposite.
constexpr Matches kInvertedCase = {{
    {TitleMatch::contains, TitleMatch::containsExactCase},
    {TitleMatch::equalsExactCase, TitleMatch::equals},
}};

/// With `Comfort::keepsMeaningOfCase` it means the same for both.
constexpr Matches kPlainCase = {{
    {TitleMatch::contains, TitleMatch::containsExactCase},
    {TitleMatch::equals, TitleMatch::equalsExactCase},
}};

} // namespace

frmJump2File::frmJump2File(const Core& core, Transport& transport, Crossfade& crossfade)
    : core_(core), transport_(transport), crossfade_(crossfade),
      Timer1_(core.timers.makeTimer([this] {
          Timer1_->setEnabled(false);
          if (view_ != nullptr) {
              view_->unload();
          }
      })),
      Timer2_(core.timers.makeTimer([this] {
          followList();
          view_->showCount();
      })) {
    Timer1_->setInterval(kTimer1Ms);
    Timer2_->setInterval(kTimer2Ms);
}

void frmJump2File::Form_Load(Jump2FileView& view) {
    Timer1_->setEnabled(false);
    if (view_ == &view) {
        return; // it is open, or about to close: it stays as it is
    }
    view_ = &view;
    Timer2_->setEnabled(true);
    if (!search_) {
        search_.emplace(core_.lists.stdSS);
    }
    staysOnTop_ = readLive(core_.settings, "ASOT", config::settingToInt16) != 0;
    for (std::size_t check = 0; check < checks_.size(); ++check) {
        checks_.at(check) =
            readLive(core_.settings, kCheckSettings.at(check), config::settingToFlag);
    }
    search();
}

void frmJump2File::Form_Unload() {
    Timer1_->setEnabled(false);
    Timer2_->setEnabled(false);
    view_ = nullptr;
    text_.clear();
    listIndex_ = kNone;
    search_.reset();
    for (std::size_t check = 0; check < checks_.size(); ++check) {
        storeText(core_.settings, kCheckSettings.at(check).key,
                  config::flagText(checks_.at(check)));
    }
}

void frmJump2File::Check1_Click(Check which, bool ticked) {
    bool& check = checks_.at(static_cast<std::size_t>(which));
    if (check != ticked) {
        check = ticked;
        search();
    }
}

void frmJump2File::SearchString(const std::string& text) {
    if (view_ != nullptr) {
        view_->showText(text);
    }
}

void frmJump2File::SearchString_Change(std::string_view text) {
    text_ = text;
    search();
}

void frmJump2File::search() {
    const base::Comfort& comfort = core_.state.comfort;
    const Matches& matches = comfort.keepsMeaningOfCase ? kPlainCase : kInvertedCase;
    search_->find(
        text_, matches.at(Check1(Check::exactMatch) ? 1 : 0).at(Check1(Check::matchCase) ? 1 : 0),
        comfort.findsWordsInAnyOrder ? playlist::TitleWords::anyOrder
                                     : playlist::TitleWords::asTyped);
    select(List1().empty() ? kNone : 0);
    view_->showHits();
    view_->showCount();
}

void frmJump2File::followList() {
    if (!search_->stale()) {
        return;
    }
    search_->refresh();
    const auto isPicked = [this](Row row) {
        return core_.lists.stdSS.text(row, RowText::FileName) == picked_;
    };
    const bool stays = core_.state.comfort.keepsRowOfHit && isPicked(pickedRow_);
    const auto picked =
        stays ? std::ranges::find(List1(), pickedRow_) : std::ranges::find_if(List1(), isPicked);
    if (picked != List1().end()) {
        listIndex_ = static_cast<std::int32_t>(std::distance(List1().begin(), picked));
        pickedRow_ = *picked;
    } else {
        select(List1().empty() ? kNone : 0);
    }
    view_->showHits();
}

void frmJump2File::select(std::int32_t hit) {
    listIndex_ = hit;
    pickedRow_ = hit == kNone ? 0 : List1().at(static_cast<std::size_t>(hit));
    picked_ = hit == kNone ? std::string()
                           : std::string(core_.lists.stdSS.text(
                                 List1().at(static_cast<std::size_t>(hit)), RowText::FileName));
}

void frmJump2File::ListIndex(std::int32_t hit) {
    if (hit >= 0 && static_cast<std::size_t>(hit) < List1().size() && hit != listIndex_) {
        select(hit);
    }
}

std::string_view frmJump2File::title(std::size_t hit) const {
    return core_.lists.stdSS.text(List1().at(hit), RowText::Title);
}

std::string frmJump2File::Label1(std::string_view pattern) const {
    return base::replaceAll(pattern, "[x]", std::to_string(List1().size()));
}

void frmJump2File::SearchString_KeyDown(Move move) {
    followList();
    const auto count = static_cast<std::int32_t>(List1().size());
    if (count == 0) {
        return;
    }
    switch (move) {
    case Move::down:
        select(listIndex_ + 1 < count ? listIndex_ + 1 : 0);
        break;
    case Move::up:
        select(listIndex_ > 0 ? listIndex_ - 1 : count - 1);
        break;
    case Move::pageDown:
        select(std::min(listIndex_ + kPage, count - 1));
        break;
    case Move::pageUp:
        select(std::max(listIndex_ - kPage, 0));
        break;
    }
    view_->showSelected();
}

void frmJump2File::SearchString_Enter() {
    if (listIndex_ == kNone) {
        return;
    }
    const Row row = rowOf(picked_);
    const TrackRef track{.path = picked_,
                         .title = std::string(core_.lists.stdSS.text(row, RowText::Title)),
                         .row = row};
    if (core_.state.CrossfadeOn) {
        crossfade_.CrossFade_BurnBaby(track, fadeMilliseconds(fadeSeconds(core_.settings)));
    } else {
        transport_.Burnbaby(track);
    }
    if (row != 0) {
        makeCurrent(row);
    }
    view_->hide();
    Timer1_->setEnabled(true);
}

/// The first row with that name; 0 where it has gone from the list. A deliberate oddity: also where
/// another one was picked, unless `Comfort::keepsRowOfHit` says otherwise.
Row frmJump2File::rowOf(std::string_view fileName) const {
    const playlist::stdSS& list = core_.lists.stdSS;
    if (core_.state.comfort.keepsRowOfHit && list.text(pickedRow_, RowText::FileName) == fileName) {
        return pickedRow_;
    }
    for (Row row = 1; row <= list.ListCount(); ++row) {
        if (list.text(row, RowText::FileName) == fileName) {
            return row;
        }
    }
    return 0;
}

void frmJump2File::makeCurrent(Row row) {
    playlist::stdSS& list = core_.lists.stdSS;
    list.GetData(row);
    list.SelectIndex(row);
    core_.screen.playing.caption = list.OutTitle;
    core_.screen.playing.scrollerText = list.OutTitle;
    core_.screen.showTitles();
}

} // namespace tovik::player
