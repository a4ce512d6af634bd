// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/stdSS.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tovik::playlist {

void stdSS::AddItem(std::string_view ItemData, std::string_view FileName, std::string_view Title,
                    std::string_view TimeText, std::int32_t Seconds) {
    if (rows_.size() >= static_cast<std::size_t>(std::numeric_limits<Row>::max())) {
        return;
    }
    rows_.push_back({.texts = RowTexts(ItemData, FileName, Title, TimeText), .seconds = Seconds});
    tell([this](ListObserver& observer) { observer.rowsInserted(ListCount(), 1); });
    addToTotal(Seconds);
}

void stdSS::Clear() {
    RemovedRows all{.records = std::exchange(rows_, {}),
                    .selected = SelectedIndex,
                    .played = playedIndex_,
                    .sounding = soundingRow_.value_or(0),
                    .starts = starts_};
    markedCount_ = 0;
    totalSeconds_ = 0;
    SelectedIndex = 0;
    playedIndex_ = 0;
    if (soundingRow_) {
        soundingRow_ = 0;
    }
    selectionAnchor_ = 0;
    multiActive_ = false;
    OutItemData.clear();
    OutFileName.clear();
    OutTitle.clear();
    OutTimeText = "0";
    OutSeconds = 0;
    tell([](ListObserver& observer) { observer.rowsCleared(); });
    keep(std::move(all));
    addToTotal(0);
}

void stdSS::setTitle(Row row, std::string_view Title) {
    if (has(row)) {
        at(row).texts.set(RowText::Title, Title);
    }
}

void stdSS::RefreshTitle(Row row, std::string_view Title) {
    if (has(row)) {
        setTitle(row, Title);
        tell([row](ListObserver& observer) { observer.rowChanged(row); });
    }
}

void stdSS::RefreshTime(Row row, std::int32_t Seconds, std::string_view TimeText) {
    if (!has(row) || at(row).seconds == Seconds) {
        return;
    }
    const std::int64_t difference = std::int64_t{Seconds} - at(row).seconds;
    at(row).texts.set(RowText::TimeText, TimeText);
    at(row).seconds = Seconds;
    tell([row](ListObserver& observer) { observer.rowChanged(row); });
    addToTotal(difference);
}

void stdSS::setUnplayable(Row row, bool unplayable) {
    if (has(row) && at(row).unplayable != unplayable) {
        at(row).unplayable = unplayable;
        looksChanged(row, row);
    }
}

void stdSS::setFactsTaken(Row row) {
    if (has(row)) {
        at(row).factsTaken = true;
    }
}

void stdSS::AddFileName2(Row row, std::string_view FileName) {
    if (has(row)) {
        at(row).texts.set(RowText::FileName, FileName);
        at(row).unplayable = false;
        at(row).factsTaken = false;
        tell([row](ListObserver& observer) { observer.rowChanged(row); });
    }
}

void stdSS::GetData(Row row) {
    if (row > ListCount()) {
        return;
    }
    OutItemData = text(row, RowText::ItemData);
    OutFileName = text(row, RowText::FileName);
    OutTitle = text(row, RowText::Title);
    OutTimeText = text(row, RowText::TimeText);
    OutSeconds = seconds(row);
}

void stdSS::addObserver(ListObserver& observer) {
    observers_.push_back(&observer);
}

void stdSS::removeObserver(ListObserver& observer) noexcept {
    std::erase(observers_, &observer);
}

std::string stdSS::numberText(Row row) const {
    return has(row) ? std::to_string(row) + ". " : std::string();
}

std::string_view stdSS::text(Row row, RowText which) const noexcept {
    return has(row) ? at(row).texts.get(which) : std::string_view();
}

std::int32_t stdSS::seconds(Row row) const noexcept {
    return has(row) ? at(row).seconds : 0;
}

bool stdSS::isMarked(Row row) const noexcept {
    return has(row) && at(row).marked;
}

bool stdSS::isUnplayable(Row row) const noexcept {
    return has(row) && at(row).unplayable;
}

bool stdSS::factsTaken(Row row) const noexcept {
    return has(row) && at(row).factsTaken;
}

bool stdSS::isPlayed(Row row) const noexcept {
    return has(row) && row == lookRow();
}

void stdSS::addToTotal(std::int64_t seconds) {
    const std::int64_t total = totalSeconds_ + seconds;
    if (std::in_range<std::int32_t>(total)) {
        totalSeconds_ = static_cast<std::int32_t>(total);
    }
    if (events_ != nullptr) {
        events_->TotalTimeChanged(totalSeconds_);
    }
}

void stdSS::looksChanged(Row first, Row last) const {
    const Row from = std::max(first, 1);
    const Row to = std::min(last, ListCount());
    if (from <= to) {
        tell([from, to](ListObserver& observer) { observer.looksChanged(from, to); });
    }
}

void stdSS::showRow(Row row) const {
    if (has(row)) {
        tell([row](ListObserver& observer) { observer.showRow(row); });
    }
}

} // namespace tovik::playlist
