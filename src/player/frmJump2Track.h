// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that plays the row of a number, as logic. Interface thread.
#pragma once

#include "player/Core.h"
#include "player/RowPlayer.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::player {

class frmJump2Track {
public:
    /// What the labels `Label1` are for, by index.
    enum class Label : std::uint8_t { list, count, playing, number, title, shownTitle };

    /// Both outlive the object.
    frmJump2Track(const Core& core, RowPlayer& rows) : core_(core), rows_(rows) {}

    /// The dialog opens, without a number.
    void Form_Load();

    /// A label's text: the words of the language, and behind those of `count` and `playing` what
    /// they are about. `shownTitle` has no words.
    [[nodiscard]] std::string Label1(Label which, std::string_view words) const;

    /// The number that was typed became another.
    void Text1_Change(std::string_view text);

    /// Whether the number is one of a row, so that one can go there.
    [[nodiscard]] bool canGo() const { return row_ != 0; }

    /// Plays the row; one that has gone meanwhile is not there any more. Raises what starting a
    /// track raises.
    void go();

private:
    const Core& core_;
    RowPlayer& rows_;
    playlist::Row ListCount_ = 0; ///< when the dialog opened
    std::string playing_;         ///< the title fetched last, then
    playlist::Row row_ = 0;       ///< what was typed, if it is a row
};

} // namespace tovik::player
