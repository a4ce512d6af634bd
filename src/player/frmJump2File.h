// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that searches the list by title and plays a hit, as logic. Interface thread.
#pragma once

#include "player/Core.h"
#include "player/Crossfade.h"
#include "player/Transport.h"
#include "playlist/TitleSearch.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::player {

/// Shows the dialog.
class Jump2FileView {
public:
    virtual ~Jump2FileView() = default;

    /// That text is to stand in the box for the words that are looked for, the caret behind it.
    virtual void showText(const std::string& text) = 0;

    /// The hits are others, and perhaps the selected one of them.
    virtual void showHits() = 0;

    /// Another hit is selected.
    virtual void showSelected() = 0;

    /// The number of hits may be another.
    virtual void showCount() = 0;

    virtual void hide() = 0;

    /// Closes the dialog, which ends with `Form_Unload`.
    virtual void unload() = 0;
};

class frmJump2File {
public:
    static constexpr std::int32_t kNone = -1;
    static constexpr std::int32_t kPage = 17; ///< hits that Page Up and Page Down move

    /// The tick boxes, by index.
    enum class Check : std::uint8_t { exactMatch, matchCase };

    /// Keys that move the selection.
    enum class Move : std::uint8_t { down, up, pageDown, pageUp };

    /// All of them outlive the object.
    frmJump2File(const Core& core, Transport& transport, Crossfade& crossfade);

    /// The dialog opens for a view, which outlives the time until `Form_Unload`. Raises 94 or 13
    /// for a setting that is missing or bad: the dialog is open all the same.
    void Form_Load(Jump2FileView& view);

    /// The dialog closes: keeps the tick boxes. Raises what saving raises.
    void Form_Unload();

    [[nodiscard]] bool isOpen() const { return view_ != nullptr; }

    /// Whether the dialog stays on top, as the setting "ASOT" has it.
    [[nodiscard]] bool staysOnTop() const { return staysOnTop_; }

    [[nodiscard]] bool Check1(Check which) const {
        return checks_.at(static_cast<std::size_t>(which));
    }

    /// A tick box was set: the search is done anew.
    void Check1_Click(Check which, bool ticked);

    /// Puts a text into the box, as if it were typed there. Nothing happens while the dialog is not
    /// open.
    void SearchString(const std::string& text);

    /// The text that is looked for became another: the first hit is selected.
    void SearchString_Change(std::string_view text);

    /// Moves past an end go to the other one, page moves to the same one.
    void SearchString_KeyDown(Move move);

    /// The Enter key: plays the selected hit and hides the dialog, which closes soon after. Without
    /// a hit nothing happens. Raises what starting a track raises.
    void SearchString_Enter();

    /// The rows of the list that are shown as hits.
    [[nodiscard]] const std::vector<playlist::Row>& List1() const { return search_->hits(); }

    /// The selected hit, counted from 0.
    [[nodiscard]] std::int32_t ListIndex() const { return listIndex_; }

    /// A hit was chosen by mouse.
    void ListIndex(std::int32_t hit);

    /// The title of a hit; empty for one whose row has gone.
    [[nodiscard]] std::string_view title(std::size_t hit) const;

    /// The count in words: `pattern` with "[x]" replaced.
    [[nodiscard]] std::string Label1(std::string_view pattern) const;

private:
    void search();
    void followList();
    void select(std::int32_t hit);
    void makeCurrent(playlist::Row row);
    [[nodiscard]] playlist::Row rowOf(std::string_view fileName) const;

    const Core& core_;
    Transport& transport_;
    Crossfade& crossfade_;
    std::optional<playlist::TitleSearch> search_; ///< as long as the dialog is open
    Jump2FileView* view_ = nullptr;
    std::string text_;
    std::array<bool, 2> checks_{};
    bool staysOnTop_ = false;
    std::int32_t listIndex_ = kNone;
    std::string picked_;                  ///< the file name of the selected hit
    playlist::Row pickedRow_ = 0;         ///< its row, when it was selected
    std::unique_ptr<host::Timer> Timer1_; ///< closes the dialog after a pick
    std::unique_ptr<host::Timer> Timer2_; ///< keeps hits and count up to date
};

} // namespace tovik::player
