// SPDX-License-Identifier: GPL-3.0-or-later
// The children of the main window: what is a control and not drawn. Interface thread.
#pragma once

#include "app/frmPlayer.h"
#include "ui/qt/ListWidget.h"
#include "ui/qt/SkinWindow.h"
#include "window/ListRows.h"
#include "window/QuickListRows.h"

#include <memory>
#include <QComboBox>
#include <vector>

namespace tovik::app {

class ListWatch;

/// The window's object tree owns the widgets; what they show and ask is here.
class MainControls {
public:
    /// All three must outlive it.
    MainControls(frmPlayer& player, ui::SkinWindow& window, const host::Dispatcher& dispatcher);
    ~MainControls();
    MainControls(const MainControls&) = delete;
    MainControls& operator=(const MainControls&) = delete;

    /// Gives the keyboard to `Text4`, which lets all keys go on to the window.
    void takeFocus();

private:
    /// A list at the place of an element, whose own keys come after the accelerators of the menus.
    template <typename Rows>
    ui::ListWidget& makeList(window::MainElement element, const char* objectName, Rows& rows);

    ui::ListWidget& addList(window::MainElement element, const char* objectName,
                            playlist::stdSS& list);
    void addQuickList();
    void addSearchField();
    void addDrives();

    /// Files that are dropped on a list of the playlist are added to it.
    void takeFiles(ui::ListWidget& list);

    frmPlayer& player_;
    ui::SkinWindow& window_;
    const host::Dispatcher& dispatcher_;
    window::QuickListRows quickList_;
    std::vector<std::unique_ptr<window::ListRows>> rows_;
    std::vector<std::unique_ptr<ListWatch>> watches_;
    QWidget* text4_;
};

} // namespace tovik::app
