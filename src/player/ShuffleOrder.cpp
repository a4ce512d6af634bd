// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/ShuffleOrder.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tovik::player {

namespace {

constexpr char kSeparator = ' ';
constexpr std::string_view kPlayedOnly = "-"; ///< before the rows that had their turn

/// How far back the way is kept: some rounds of a long list would be without end.
constexpr std::size_t kLongestWay = 100'000;

std::string_view nextWord(std::string_view& text) {
    const std::size_t end = std::min(text.find(kSeparator), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return word;
}

std::optional<std::size_t> numberIn(std::string_view word) {
    std::size_t number = 0;
    const auto [end, failure] = std::from_chars(word.data(), word.data() + word.size(), number);
    return failure == std::errc() && end == word.data() + word.size() ? std::optional(number)
                                                                      : std::nullopt;
}

} // namespace

ShuffleOrder::ShuffleOrder(playlist::stdSS& list, host::RandomNumbers& random)
    : list_(list), random_(random) {
    list_.addObserver(*this);
    clear();
}

ShuffleOrder::~ShuffleOrder() {
    list_.removeObserver(*this);
}

void ShuffleOrder::clear() {
    way_.clear();
    drawn_.reset();
    place_ = 0;
    played_.assign(static_cast<std::size_t>(list_.ListCount()), false);
    playedRows_ = 0;
}

bool ShuffleOrder::has(Row row) const {
    return row > 0 && static_cast<std::size_t>(row) <= played_.size();
}

std::size_t ShuffleOrder::waiting() const {
    return played_.size() - playedRows_;
}

std::optional<ShuffleOrder::Row> ShuffleOrder::current() const {
    return place_ > 0 ? std::optional(way_.at(place_ - 1)) : std::nullopt;
}

void ShuffleOrder::markPlayed(Row row) {
    const std::size_t at = static_cast<std::size_t>(row) - 1;
    if (!played_.at(at)) {
        played_.at(at) = true;
        ++playedRows_;
    }
}

bool ShuffleOrder::hasNext(bool mayBeginAnew) const {
    return place_ < way_.size() || waiting() > 0 || (mayBeginAnew && !played_.empty());
}

std::optional<ShuffleOrder::Row> ShuffleOrder::upcoming(bool mayBeginAnew) {
    if (!hasNext(mayBeginAnew)) {
        return std::nullopt;
    }
    if (place_ < way_.size()) {
        return way_[place_];
    }
    if (!drawn_) {
        drawn_ = draw();
    }
    return drawn_;
}

std::optional<ShuffleOrder::Row> ShuffleOrder::next(bool mayBeginAnew) {
    const auto row = upcoming(mayBeginAnew);
    if (row) {
        noteStarted(*row);
    }
    return row;
}

/// Any of the rows that wait, or of all behind a round; then not the one before.
ShuffleOrder::Row ShuffleOrder::draw() const {
    const bool anew = waiting() == 0;
    const Row except = anew && played_.size() > 1 ? current().value_or(0) : 0;
    const auto waits = [&](std::size_t at) {
        return (anew || !played_[at]) && static_cast<Row>(at + 1) != except;
    };
    const std::size_t choices = anew ? played_.size() - (except != 0 ? 1 : 0) : waiting();
    const auto which = std::min(
        static_cast<std::size_t>(random_.next() * static_cast<double>(choices)), choices - 1);
    std::size_t at = 0;
    for (std::size_t seen = waits(0) ? 1 : 0; seen <= which; seen += waits(at) ? 1U : 0U) {
        ++at;
    }
    return static_cast<Row>(at + 1);
}

std::optional<ShuffleOrder::Row> ShuffleOrder::previous() {
    if (place_ <= 1) {
        return std::nullopt;
    }
    --place_;
    return current();
}

void ShuffleOrder::beginRound() {
    std::fill(played_.begin(), played_.end(), false);
    playedRows_ = 0;
}

void ShuffleOrder::noteStarted(Row row) {
    if (!has(row) || current() == row) {
        return;
    }
    if (place_ < way_.size() && way_[place_] == row) {
        ++place_; // forward again
        return;
    }
    if (waiting() == 0) {
        beginRound();
    }
    append(row);
}

void ShuffleOrder::append(Row row) {
    drawn_.reset();
    way_.resize(place_);
    if (way_.size() >= kLongestWay) {
        way_.erase(way_.begin(), way_.begin() + static_cast<std::ptrdiff_t>(kLongestWay / 2));
    }
    way_.push_back(row);
    place_ = way_.size();
    markPlayed(row);
}

void ShuffleOrder::rowsInserted(Row first, Row count) {
    drawn_.reset();
    const bool atEnd = static_cast<std::size_t>(first) == played_.size() + 1;
    played_.insert(played_.begin() + (first - 1), static_cast<std::size_t>(count), false);
    if (!atEnd) {
        for (Row& row : way_) {
            row += row >= first ? count : 0;
        }
    }
}

void ShuffleOrder::rowsRemoved(std::span<const Row> rows) {
    drawn_.reset();
    std::vector<Row> way;
    std::size_t place = 0;
    for (std::size_t i = 0; i < way_.size(); ++i) {
        const auto gone = std::ranges::lower_bound(rows, way_[i]);
        if (gone == rows.end() || *gone != way_[i]) {
            way.push_back(way_[i] - static_cast<Row>(gone - rows.begin()));
        }
        place = i + 1 == place_ ? way.size() : place;
    }
    way_ = std::move(way);
    place_ = place;
    std::vector<bool> played;
    played.reserve(played_.size() - rows.size());
    auto gone = rows.begin();
    for (std::size_t at = 0; at < played_.size(); ++at) {
        if (gone == rows.end() || static_cast<std::size_t>(*gone) != at + 1) {
            played.push_back(played_[at]);
            continue;
        }
        ++gone;
        playedRows_ -= played_[at] ? 1U : 0U;
    }
    played_ = std::move(played);
}

/// Rows that come back have their turn once more.
void ShuffleOrder::rowsPutBack(std::span<const Row> rows) {
    drawn_.reset();
    std::vector<Row> numbers; // that the rows have by now, by the old ones less one
    std::vector<bool> played;
    numbers.reserve(played_.size());
    played.reserve(played_.size() + rows.size());
    auto place = rows.begin();
    for (const bool had : played_) {
        for (; place != rows.end() && static_cast<std::size_t>(*place) == played.size() + 1;
             ++place) {
            played.push_back(false);
        }
        played.push_back(had);
        numbers.push_back(static_cast<Row>(played.size()));
    }
    played.resize(played_.size() + rows.size(), false);
    played_ = std::move(played);
    for (Row& row : way_) {
        row = numbers.at(static_cast<std::size_t>(row) - 1);
    }
}

void ShuffleOrder::rowMoved(Row from, Row to) {
    drawn_.reset();
    const bool played = played_.at(static_cast<std::size_t>(from) - 1);
    played_.erase(played_.begin() + (from - 1));
    played_.insert(played_.begin() + (to - 1), played);
    for (Row& row : way_) {
        if (row == from) {
            row = to;
        } else if (row > from && row <= to) {
            --row;
        } else if (row < from && row >= to) {
            ++row;
        }
    }
}

std::string ShuffleOrder::text() const {
    std::string text = std::to_string(played_.size());
    const auto put = [&text](std::string_view word) { text.append(1, kSeparator).append(word); };
    put(std::to_string(place_));
    for (const Row row : way_) {
        put(std::to_string(row));
    }
    put(kPlayedOnly);
    for (std::size_t row = 0; row < played_.size(); ++row) {
        if (played_[row]) {
            put(std::to_string(row + 1));
        }
    }
    return text;
}

void ShuffleOrder::restore(std::string_view text) {
    const auto count = numberIn(nextWord(text));
    const auto place = numberIn(nextWord(text));
    std::vector<Row> way;
    std::vector<Row> played;
    std::vector<Row>* rows = &way;
    while (!text.empty()) {
        const std::string_view word = nextWord(text);
        const auto row = numberIn(word);
        if (word == kPlayedOnly) {
            rows = &played;
        } else if (row && *row >= 1 && *row <= played_.size()) {
            rows->push_back(static_cast<Row>(*row));
        } else {
            return;
        }
    }
    if (count != played_.size() || !place || *place > way.size()) {
        return;
    }
    clear();
    way_ = std::move(way);
    place_ = *place;
    std::ranges::for_each(played, [this](Row row) { markPlayed(row); });
}

} // namespace tovik::player
