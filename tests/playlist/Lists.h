// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of lists share: filling, reading back and listening.
#pragma once

#include "playlist/stdSS.h"

#include <string>
#include <utility>
#include <vector>

namespace tovik::playlist {

/// Appends rows with these titles; row n has file name "/<title>", length n and no other text.
inline void fill(stdSS& list, const std::vector<std::string>& titles) {
    for (const std::string& title : titles) {
        list.AddItem("", "/" + title, title, "", list.ListCount() + 1);
    }
}

/// All titles from the first row on.
inline std::vector<std::string> titlesOf(const stdSS& list) {
    std::vector<std::string> titles;
    for (Row row = 1; row <= list.ListCount(); ++row) {
        titles.emplace_back(list.text(row, RowText::Title));
    }
    return titles;
}

/// Each row as "data|file name|title|time text|seconds".
inline std::vector<std::string> rowsOf(const stdSS& list) {
    std::vector<std::string> rows;
    for (Row row = 1; row <= list.ListCount(); ++row) {
        std::string& line = rows.emplace_back();
        for (const RowText which :
             {RowText::ItemData, RowText::FileName, RowText::Title, RowText::TimeText}) {
            line += std::string(list.text(row, which)) + "|";
        }
        line += std::to_string(list.seconds(row));
    }
    return rows;
}

/// The numbers of all marked rows.
inline std::vector<Row> markedRows(const stdSS& list) {
    std::vector<Row> rows;
    for (Row row = 1; row <= list.ListCount(); ++row) {
        if (list.isMarked(row)) {
            rows.push_back(row);
        }
    }
    return rows;
}

/// The row with the played mark; 0 for none.
inline Row playedRow(const stdSS& list) {
    Row row = list.ListCount();
    while (row > 0 && !list.isPlayed(row)) {
        --row;
    }
    return row;
}

/// Toggles the marks of these rows, as with Ctrl held.
inline void toggle(stdSS& list, const std::vector<Row>& rows) {
    list.ModifierMask = 2;
    for (const Row row : rows) {
        list.MS(row);
    }
    list.ModifierMask = 0;
}

/// Notes every event as a line of text.
class NotedEvents final : public ListEvents {
public:
    explicit NotedEvents(stdSS& list) : list_(list) { list_.setEvents(this); }

    ~NotedEvents() override { list_.setEvents(nullptr); }

    NotedEvents(const NotedEvents&) = delete;
    NotedEvents& operator=(const NotedEvents&) = delete;

    /// The lines since the last call.
    [[nodiscard]] std::vector<std::string> taken() { return std::exchange(lines_, {}); }

    void Play(const std::string& ItemData) override { lines_.push_back("Play " + ItemData); }

    void PlayedAgain() override { lines_.emplace_back("PlayedAgain"); }

    void TotalTimeChanged(std::int32_t TotalSeconds) override {
        lines_.push_back("Total " + std::to_string(TotalSeconds));
    }

private:
    stdSS& list_;
    std::vector<std::string> lines_;
};

/// Notes every change as a line of text.
class NotedChanges final : public ListObserver {
public:
    explicit NotedChanges(stdSS& list) : list_(list) { list_.addObserver(*this); }

    ~NotedChanges() override { list_.removeObserver(*this); }

    NotedChanges(const NotedChanges&) = delete;
    NotedChanges& operator=(const NotedChanges&) = delete;

    [[nodiscard]] std::vector<std::string> taken() { return std::exchange(lines_, {}); }

    void rowsInserted(Row first, Row count) override { note("inserted", {first, count}); }

    void rowsRemoved(std::span<const Row> rows) override {
        note("removed", {rows.begin(), rows.end()});
    }

    void rowMoved(Row from, Row to) override { note("moved", {from, to}); }

    void rowsCleared() override { note("cleared", {}); }

    void rowChanged(Row row) override { note("changed", {row}); }

    void looksChanged(Row first, Row last) override { note("looks", {first, last}); }

    void showRow(Row row) override { note("show", {row}); }

private:
    void note(std::string line, const std::vector<Row>& numbers) {
        for (const Row number : numbers) {
            line += " " + std::to_string(number);
        }
        lines_.push_back(std::move(line));
    }

    stdSS& list_;
    std::vector<std::string> lines_;
};

} // namespace tovik::playlist
