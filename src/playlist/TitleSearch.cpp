// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/TitleSearch.h"

#include "base/CaseFold.h"
#include "base/Windows1252.h"
#include "playlist/stdSS.h"

#include <algorithm>
#include <cstring>

namespace tovik::playlist {

namespace {

bool isContained(TitleMatch match) {
    return match == TitleMatch::contains || match == TitleMatch::containsExactCase;
}

/// As `find` of a text, by the C library, which is several times as fast.
std::size_t findIn(std::string_view text, std::string_view what, std::size_t from) {
    const std::string_view rest = text.substr(from);
    const void* const found = ::memmem(rest.data(), rest.size(), what.data(), what.size());
    return found == nullptr
               ? std::string_view::npos
               : static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

std::vector<std::string> wordsIn(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        if (end > 0) {
            words.emplace_back(text.substr(0, end));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

bool holdsAll(std::string_view title, const std::vector<std::string>& words) {
    return std::ranges::all_of(words, [title](const std::string& word) {
        return findIn(title, word, 0) != std::string_view::npos;
    });
}

} // namespace

TitleSearch::TitleSearch(stdSS& list) : list_(list) {
    list_.addObserver(*this);
}

TitleSearch::~TitleSearch() {
    list_.removeObserver(*this);
}

void TitleSearch::rowsInserted(Row /*first*/, Row /*count*/) {
    stale_ = true;
}

void TitleSearch::rowsRemoved(std::span<const Row> /*rows*/) {
    stale_ = true;
}

void TitleSearch::rowMoved(Row /*from*/, Row /*to*/) {
    stale_ = true;
}

void TitleSearch::rowsCleared() {
    stale_ = true;
}

void TitleSearch::rowChanged(Row /*row*/) {
    stale_ = true;
}

void TitleSearch::foldTitles() {
    const Row count = list_.ListCount();
    titles_.clear();
    ends_.clear();
    ends_.reserve(static_cast<std::size_t>(count));
    for (Row row = 1; row <= count; ++row) {
        append(titles_, list_.text(row, RowText::Title));
        ends_.push_back(titles_.size());
        titles_ += '\0';
    }
    stale_ = false;
}

std::string_view TitleSearch::foldedTitle(Row row) const {
    const std::size_t begin = row == 1 ? 0 : endOf(row - 1) + 1;
    return std::string_view(titles_).substr(begin, endOf(row) - begin);
}

void TitleSearch::append(std::string& titles, std::string_view bytes) const {
    if (words_ == TitleWords::anyOrder) {
        base::appendPlain(titles, bytes);
    } else {
        base::appendFolded(titles, bytes);
    }
}

void TitleSearch::find(std::string_view text, TitleMatch match, TitleWords words) {
    stale_ = stale_ || words != words_;
    const bool narrower = !stale_ && match == match_ && isContained(match) &&
                          text.find(text_) != std::string_view::npos;
    text_ = text;
    match_ = match;
    words_ = words;
    foldedText_.clear();
    append(foldedText_, text);
    wordsOfText_.clear();
    if (words == TitleWords::anyOrder && isContained(match)) {
        wordsOfText_ = wordsIn(match == TitleMatch::contains ? foldedText_ : text_);
    }
    if (narrower) {
        std::erase_if(hits_, [this](Row row) { return !matches(row); });
    } else {
        refresh();
    }
}

void TitleSearch::refresh() {
    if (stale_) {
        foldTitles();
    }
    scan();
}

/// Runs over all titles as over one text. An exact match is in the titles that hold it, too.
void TitleSearch::scan() {
    hits_.clear();
    Row row = 1;
    std::size_t from = 0;
    if (foldedText_.empty() || words_ == TitleWords::anyOrder) {
        for (; row <= static_cast<Row>(ends_.size()); ++row) {
            if (matches(row)) {
                hits_.push_back(row);
            }
        }
        return;
    }
    while (from < titles_.size()) {
        const std::size_t found = findIn(titles_, foldedText_, from);
        if (found == std::string_view::npos) {
            return;
        }
        while (endOf(row) < found) {
            ++row;
        }
        if (matches(row)) {
            hits_.push_back(row);
        }
        from = endOf(row) + 1;
    }
}

bool TitleSearch::matches(Row row) const {
    const std::string_view folded = foldedTitle(row);
    const auto seen = [&] { return base::displayText(list_.text(row, RowText::Title)); };
    if (words_ == TitleWords::anyOrder && isContained(match_)) {
        return holdsAll(match_ == TitleMatch::contains ? folded : seen(), wordsOfText_);
    }
    switch (match_) {
    case TitleMatch::contains:
        return findIn(folded, foldedText_, 0) != std::string_view::npos;
    case TitleMatch::containsExactCase:
        return findIn(folded, foldedText_, 0) != std::string_view::npos &&
               seen().find(text_) != std::string::npos;
    case TitleMatch::equals:
        return folded == foldedText_;
    case TitleMatch::equalsExactCase:
        return folded == foldedText_ && seen() == text_;
    }
    return false;
}

} // namespace tovik::playlist
