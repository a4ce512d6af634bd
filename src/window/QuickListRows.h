// SPDX-License-Identifier: GPL-3.0-or-later
// The quick list as a widget sees it. Interface thread.
#pragma once

#include "base/Comfort.h"
#include "player/RowPlayer.h"
#include "playlist/ListMirror.h"
#include "playlist/stdSS.h"
#include "ui/ListModel.h"
#include "window/MenuPopper.h"

#include <utility>

namespace tovik::window {

/// Titles with the selection of `List1`.
class QuickListRows final : public ui::ListModel, public ui::ListInput {
public:
    /// `menus`, if it is there, pops up the menu of a row. All of them outlive it.
    QuickListRows(playlist::ListMirror& mirror, playlist::stdSS& list, player::RowPlayer& player,
                  MenuPopper* menus = nullptr)
        : mirror_(mirror), list_(list), player_(player), menus_(menus) {}

    /// Whether a row that cannot be played is marked; outlives it. Without it none is.
    void obey(const base::Comfort& comfort) { comfort_ = &comfort; }

    /// Where a menu that a key asks for appears; without it at the pointer.
    void showsRowsAt(RowPlace place) { place_ = std::move(place); }

    [[nodiscard]] std::size_t rows() const override;
    [[nodiscard]] std::string text(std::size_t row) const override;

    /// The mark of a row that cannot be played, in front of its title: there is no column of times.
    [[nodiscard]] std::string numberText(std::size_t row) const override;
    [[nodiscard]] std::optional<std::size_t> current() const override;
    [[nodiscard]] bool selected(std::size_t row) const override;
    [[nodiscard]] bool marked(std::size_t row) const override;

    /// Also selects the row of the playlist, which is the one that Play starts.
    void selectRow(std::size_t row, ui::Modifiers modifiers) override;
    void activateRow(std::size_t row) override;
    void contextRow(std::size_t row) override;
    void contextNowhere() override;
    void contextByKey(std::size_t row) override;

    [[nodiscard]] bool movesRows() const override { return true; }

    /// Of the playlist; the selection goes along.
    void moveRow(std::size_t row, std::size_t before) override;

    /// Removes the selected row of the playlist.
    bool removeRows() override;

private:
    void popUp(const std::optional<menus::MenuPlace>& place);

    playlist::ListMirror& mirror_;
    playlist::stdSS& list_;
    player::RowPlayer& player_;
    MenuPopper* menus_;
    const base::Comfort* comfort_ = nullptr;
    RowPlace place_;
};

} // namespace tovik::window
