// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the rows of a list by their titles, at each key of whoever types. Interface thread.
#pragma once

#include "playlist/ListEvents.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::playlist {

class stdSS;

/// How a title is compared with the text that is looked for.
enum class TitleMatch : std::uint8_t { contains, containsExactCase, equals, equalsExactCase };

/// How the words of the text are taken. A deliberate oddity: as they were typed is what counts,
/// unless `Comfort::findsWordsInAnyOrder` says otherwise.
enum class TitleWords : std::uint8_t {
    asTyped,
    anyOrder, ///< a title holds each of them somewhere; accents make no difference
};

/// Titles count as they are seen: valid UTF-8, else Windows-1252. Of the list only the folded
/// letters are kept, made once for as long as the list stays as it is.
class TitleSearch final : private ListObserver {
public:
    /// The list outlives the search.
    explicit TitleSearch(stdSS& list);
    ~TitleSearch() override;
    TitleSearch(const TitleSearch&) = delete;
    TitleSearch& operator=(const TitleSearch&) = delete;

    /// Looks for a text. One that holds the last one is looked for among the last hits only.
    void find(std::string_view text, TitleMatch match, TitleWords words = TitleWords::asTyped);

    /// The rows found, ascending. They are those of the list as it was then.
    [[nodiscard]] const std::vector<Row>& hits() const noexcept { return hits_; }

    /// Whether rows came, went, moved or changed since the last `find`.
    [[nodiscard]] bool stale() const noexcept { return stale_; }

    /// Looks for the same text again, in the list as it is now.
    void refresh();

private:
    void rowsInserted(Row first, Row count) override;
    void rowsRemoved(std::span<const Row> rows) override;
    void rowMoved(Row from, Row to) override;
    void rowsCleared() override;
    void rowChanged(Row row) override;

    void foldTitles();
    void scan();
    [[nodiscard]] bool matches(Row row) const;
    void append(std::string& titles, std::string_view bytes) const;

    [[nodiscard]] std::size_t endOf(Row row) const {
        return ends_[static_cast<std::size_t>(row) - 1];
    }

    [[nodiscard]] std::string_view foldedTitle(Row row) const;

    stdSS& list_;
    std::string titles_;            ///< folded as `words_` asks, a zero behind each
    std::vector<std::size_t> ends_; ///< where the zero of each row is
    std::vector<Row> hits_;
    std::string text_;
    std::string foldedText_;
    std::vector<std::string> wordsOfText_; ///< folded; of a search in any order
    TitleMatch match_ = TitleMatch::contains;
    TitleWords words_ = TitleWords::asTyped;
    bool stale_ = true;
};

} // namespace tovik::playlist
