// SPDX-License-Identifier: GPL-3.0-or-later
// A menu on the screen: it shows what stands below an item of `cMenus`, asks it by messages how
// large its items are and to draw them, and tells it by messages what is chosen. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "menus/cMenus.h"
#include "ui/qt/MenuPictures.h"
#include "ui/qt/QtText.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <QMenu>
#include <QPoint>
#include <QPointer>
#include <QProxyStyle>

namespace tovik::ui {

class SkinMenus;

/// Somebody else on the desktop asks for a menu.
struct OutsidePlace {
    std::optional<QPoint> place; ///< on the screen; none: at the pointer
};

class SkinMenu final : public QMenu {
public:
    /// Shows what is below the item with that id. `menus` outlives the menu.
    SkinMenu(SkinMenus& menus, int parentId);

    [[nodiscard]] SkinMenus& menus() const { return menus_; }

    /// The item of the action that an option was made for; 0 for none.
    [[nodiscard]] static int idOf(const QStyleOption* option);

    /// Its text, for a style that draws it itself.
    [[nodiscard]] QString textOf(int id) const;

    /// Shows what is below the item now, if it is open.
    void follow();

    /// As a popup, which the mouse beside it ends.
    void popUpAt(const QPoint& place);

    /// As a window of its own, which ends when another one gets the keyboard: a Wayland compositor
    /// grants a popup only to a window that the mouse or a key was just used on.
    void showAsWindow();

protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

    /// Letters choose by mnemonic where there is one; others select what begins with them.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fill();
    void addItem(int index);

    SkinMenus& menus_;
    int parentId_;
};

/// The menus of one model. Made when the first is to be shown.
class SkinMenus final : public menus::MenuFacility {
public:
    struct Needs {
        const menus::cMenus& model;
        MessageWindow& window; ///< that the model listens to
        const host::Dispatcher& dispatcher;
        /// Where a box of the window that pops menus up is on the screen.
        std::function<QRect(const menus::MenuPlace&)> onScreen;
        /// Whether the next menu is asked for from outside of our windows, and where.
        std::function<std::optional<OutsidePlace>()> outside = nullptr;
    };

    /// What the needs name outlives the menus.
    explicit SkinMenus(Needs needs);
    ~SkinMenus() override;
    SkinMenus(const SkinMenus&) = delete;
    SkinMenus& operator=(const SkinMenus&) = delete;

    [[nodiscard]] menus::MenuHandle CreatePopupMenu(int parentId) override;
    void DestroyMenu(menus::MenuHandle menu) override;
    void TrackPopupMenu(menus::MenuHandle handle,
                        const std::optional<menus::MenuPlace>& place) override;
    void itemsChanged(menus::MenuHandle handle) override;

    /// Null for a handle that is none.
    [[nodiscard]] SkinMenu* menu(menus::MenuHandle menu) const;

    [[nodiscard]] const menus::cMenus& model() const { return needs_.model; }

    [[nodiscard]] const TextEngine& text() const { return text_; }

    [[nodiscard]] QStyle& style() const { return *style_; }

    /// Sends a message to the window, through the dispatcher.
    MessageResult send(const WindowMessage& message) const;

private:
    Needs needs_;
    QtText text_;
    std::unique_ptr<QStyle> style_;
    std::map<menus::MenuHandle, std::unique_ptr<SkinMenu>> menus_;
    menus::MenuHandle last_ = 0;
};

} // namespace tovik::ui
