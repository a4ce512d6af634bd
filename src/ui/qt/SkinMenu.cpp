// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SkinMenu.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/SkinMenuStyle.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QStyleOptionMenuItem>
#include <utility>

namespace tovik::ui {

SkinMenu::SkinMenu(SkinMenus& menus, int parentId) : menus_(menus), parentId_(parentId) {
    setStyle(&menus.style());
    connect(this, &QMenu::aboutToShow, this, &SkinMenu::fill);
    connect(this, &QMenu::hovered, this, [this](const QAction* action) {
        menus_.send({messages::kMenuSelect, action->data().toInt()});
    });
    connect(this, &QMenu::aboutToHide, this, [this] { menus_.send({messages::kMenuSelect}); });
}

int SkinMenu::idOf(const QStyleOption* option) {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    return item != nullptr ? item->text.toInt() : 0;
}

QString SkinMenu::textOf(int id) const {
    const int index = menus_.model().IndexForID(id);
    return index != 0 ? displayString(menus_.model().ItemCaption(index)) : QString();
}

void SkinMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    // An option has no place for an item; its text is asked of the model.
    option->text = action != nullptr ? action->data().toString() : QString();
}

void SkinMenu::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const char letter = text.size() == 1 && !event->modifiers().testFlag(Qt::ControlModifier)
                            ? text[0].toLatin1()
                            : '\0';
    const menus::cMenus& model = menus_.model();
    const int parent = model.IndexForID(parentId_);
    const int index = letter != '\0' && parent != 0 ? model.AccelPressed(letter, parent) : 0;
    for (QAction* const action : actions()) {
        if (index != 0 && action->data().toInt() == model.ItemID(index)) {
            setActiveAction(action);
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QMenu::keyPressEvent(&enter);
            return;
        }
    }
    QMenu::keyPressEvent(event);
}

void SkinMenu::fill() {
    menus_.send({messages::kInitMenuPopup, parentId_});
    clear();
    const menus::cMenus& model = menus_.model();
    setLayoutDirection(model.RightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    const int parent = model.IndexForID(parentId_);
    if (parent == 0) {
        return;
    }
    setAccessibleName(displayString(model.ItemDescription(parent)));
    for (const int index : model.itemsBelow(parent)) {
        if (model.ItemVisible(index)) {
            addItem(index);
        }
    }
}

void SkinMenu::follow() {
    if (isVisible()) {
        fill();
        adjustSize();
    }
}

void SkinMenu::popUpAt(const QPoint& place) {
    setWindowFlags(Qt::Popup);
    popup(place);
}

void SkinMenu::showAsWindow() {
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    popup(QCursor::pos());
    activateWindow();
    setFocus();
}

bool SkinMenu::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate && windowType() == Qt::Tool &&
        QApplication::activePopupWidget() == nullptr) {
        close();
    }
    return QMenu::event(event);
}

void SkinMenu::addItem(int index) {
    const menus::clsStoreMenu& item = menus_.model().item(index);
    SkinMenu* const below = menus_.menu(item.subMenu);
    QAction* action = nullptr;
    if (below != nullptr) {
        action = below->menuAction();
        addAction(action);
    } else {
        action = new QAction(this);
        addAction(action);
        // The command may take the menu with it: it runs when the menu is done.
        connect(
            action, &QAction::triggered, this,
            [this, id = item.id] {
                menus_.send({messages::kCommand, id});
            },
            Qt::QueuedConnection);
    }
    action->setData(item.id);
    action->setSeparator(item.separator);
    action->setText(displayString(item.caption));
    action->setStatusTip(displayString(item.helpText));
    action->setEnabled(item.enabled && !item.separator);
    action->setCheckable(item.checkable || item.checked);
    action->setChecked(item.checked);
}

SkinMenus::SkinMenus(Needs needs)
    : needs_(std::move(needs)), style_(std::make_unique<SkinMenuStyle>()) {}

SkinMenus::~SkinMenus() = default;

menus::MenuHandle SkinMenus::CreatePopupMenu(int parentId) {
    menus_.emplace(++last_, std::make_unique<SkinMenu>(*this, parentId));
    return last_;
}

void SkinMenus::DestroyMenu(menus::MenuHandle menu) {
    menus_.erase(menu);
}

SkinMenu* SkinMenus::menu(menus::MenuHandle menu) const {
    const auto found = menus_.find(menu);
    return found == menus_.end() ? nullptr : found->second.get();
}

void SkinMenus::itemsChanged(menus::MenuHandle handle) {
    if (SkinMenu* const changed = menu(handle); changed != nullptr) {
        changed->follow();
    }
}

MessageResult SkinMenus::send(const WindowMessage& message) const {
    MessageResult result = 0;
    needs_.dispatcher.run([&] { result = needs_.window.send(message); });
    return result;
}

void SkinMenus::TrackPopupMenu(menus::MenuHandle handle,
                               const std::optional<menus::MenuPlace>& place) {
    SkinMenu* const shown = menu(handle);
    if (shown == nullptr) {
        return;
    }
    const std::optional<OutsidePlace> outside = needs_.outside ? needs_.outside() : std::nullopt;
    if (place) {
        shown->popUpAt(needs_.onScreen(*place).bottomLeft() + QPoint(0, 1));
    } else if (outside && QGuiApplication::platformName().startsWith(u"wayland")) {
        shown->showAsWindow();
    } else {
        shown->popUpAt(outside && outside->place ? *outside->place : QCursor::pos());
    }
}

} // namespace tovik::ui
