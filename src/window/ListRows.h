// SPDX-License-Identifier: GPL-3.0-or-later
// A list of the player as a widget sees it: playlist, tracks of a disc, stations. Interface thread.
#pragma once

#include "base/Comfort.h"
#include "playlist/stdSS.h"
#include "ui/ListColours.h"
#include "ui/ListModel.h"
#include "window/MenuPopper.h"

#include <functional>
#include <utility>

namespace tovik::window {

/// The colours of all three lists. The ground is a tint of the window's cards, on which titles
/// stand out by 7 at least; other words stand out from what is behind them by 4.5.
inline constexpr ui::ListColours kListColours{
    .BackgroundColor = {214, 220, 236},
    .BackgroundTimeColor = ui::Colour{102, 102, 153},
    .TitleTextColor = {20, 50, 75},
    .TimeTextColor = {255, 255, 255},
    .SelectedTitleTextColor = {0, 0, 0},
    .SelectedTimeTextColor = {0, 0, 0},
    .PlayedTitleTextColor = {0, 0, 0},
    .PlayedTimeTextColor = {0, 0, 0},
    .SelectedTitleBackColor = ui::Colour{170, 179, 216},
    .SelectedTimeBackColor = ui::Colour{170, 179, 216},
    .PlayedTitleBackColor = ui::Colour{255, 214, 140},
    .PlayedTimeBackColor = ui::Colour{255, 166, 31},
    .SelectedBorderColor = ui::Colour{102, 102, 153},
    .PlayedBorderColor = ui::Colour{184, 98, 0},
};

/// Stands for the length of a row that cannot be played.
inline constexpr const char* kUnplayableMark = "\u2717";

class ListRows final : public ui::ListModel, public ui::ListInput {
public:
    /// The list must outlive it.
    /// `menus`, if it is there, pops up the menu of a row, and outlives it, too.
    /// `info` is the command that tells of a row.
    explicit ListRows(playlist::stdSS& list, MenuPopper* menus = nullptr,
                      commands::CommandId info = commands::CommandId::editTag)
        : list_(list), menus_(menus), info_(info) {}

    /// Which form times have, and whether a row that cannot be played is marked; outlives it.
    /// Without it each row tells what it was given.
    void obey(const base::Comfort& comfort) { comfort_ = &comfort; }

    /// Hears of each row that is drawn, before it is; it changes nothing at once.
    void tellSeen(std::function<void(playlist::Row)> seen) { seen_ = std::move(seen); }

    /// Where a menu that a key asks for appears; without it at the pointer.
    void showsRowsAt(RowPlace place) { place_ = std::move(place); }

    [[nodiscard]] std::size_t rows() const override;
    [[nodiscard]] std::string text(std::size_t row) const override;
    [[nodiscard]] std::string numberText(std::size_t row) const override;
    [[nodiscard]] std::string timeText(std::size_t row) const override;
    [[nodiscard]] std::optional<std::size_t> current() const override;
    [[nodiscard]] bool selected(std::size_t row) const override;
    [[nodiscard]] bool marked(std::size_t row) const override;

    /// With Shift a range, with Ctrl one row more or less, otherwise this row alone.
    void selectRow(std::size_t row, ui::Modifiers modifiers) override;

    void activateRow(std::size_t row) override;

    /// Starts the selected row, and it alone stays selected.
    void enterRow(std::size_t row) override;

    void contextRow(std::size_t row) override;
    void contextNowhere() override;
    void contextByKey(std::size_t row) override;
    void holdModifiers(ui::Modifiers modifiers) override;

    [[nodiscard]] bool movesRows() const override { return true; }

    void moveRow(std::size_t row, std::size_t before) override;
    bool removeRows() override;

private:
    void popUp(const std::optional<menus::MenuPlace>& place);

    playlist::stdSS& list_;
    MenuPopper* menus_;
    commands::CommandId info_;
    const base::Comfort* comfort_ = nullptr;
    std::function<void(playlist::Row)> seen_;
    RowPlace place_;
};

} // namespace tovik::window
