// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainInput.h"

#include "ui/Twips.h"
#include "window/TimeDisplay.h"

#include <algorithm>

namespace tovik::window {

namespace {

constexpr int kEscape = 27;

bool isLeft(const ui::PointerEvent& event) {
    return event.button == ui::MouseButton::Left;
}

const PressButton* pressedOf(const ui::PointerEvent& event) {
    const auto found = std::ranges::find_if(pressButtons(), [&](const PressButton& button) {
        return event.over(button.up) || event.over(button.down);
    });
    return found == pressButtons().end() ? nullptr : &*found;
}

} // namespace

MainInput::MainInput(const MainInputParts& parts)
    : p_(parts), bars_(parts.elements, parts.grips), sliders_(parts.grips.sliders),
      keys_(parts.keys, parts.core.errors, parts.menus) {}

void MainInput::press(const PressButton& button, bool pressed) {
    p_.elements.touch(button.up).visible = !pressed;
    p_.elements.touch(button.down).visible = pressed;
}

void MainInput::mouseDown(const ui::PointerEvent& event) {
    config::guard(p_.core.errors, config::player("MouseDown"), [&] { pressAt(event); });
}

void MainInput::mouseMove(const ui::PointerEvent& event) {
    config::guard(p_.core.errors, config::player("MouseMove"), [&] { moveTo(event); });
}

void MainInput::mouseUp(const ui::PointerEvent& event) {
    const config::Procedure& procedure =
        event.over(MainElement::closeup) || event.over(MainElement::closedown)
            ? config::player("button_closeup")
            : config::player("MouseUp");
    config::guard(p_.core.errors, procedure, [&] { releaseAt(event); });
}

void MainInput::pressAt(const ui::PointerEvent& event) {
    if (sliders_.mouseDown(event)) {
        return;
    }
    if (event.button == ui::MouseButton::Right) {
        popUpMenu(event);
    }
    if (!isLeft(event)) {
        return;
    }
    bars_.mouseDown(event);
    if (visual_ != nullptr && event.over(MainElement::Picture1)) {
        visual_->clickVisual(static_cast<int>(event.x), static_cast<int>(event.y));
    }
    if (const PressButton* const button = pressedOf(event); button != nullptr) {
        press(*button, true);
    } else if (event.over(MainElement::prebt)) {
        p_.panels.pressPreferences(
            [this] { p_.keys.commands().run(commands::CommandId::preferences); });
        // Whatever closed the dialog, the button is up by then.
        p_.panels.releasePreferences();
    }
}

void MainInput::popUpMenu(const ui::PointerEvent& event) const {
    if (p_.menus == nullptr) {
        return;
    }
    if (event.over(MainElement::mainIMG) || event.over(MainElement::iconIMG)) {
        p_.menus->popUp(MenuRoot::mnuMain);
    } else if (event.over(MainElement::Picture1)) {
        p_.menus->popUp(MenuRoot::vis);
    }
}

void MainInput::moveTo(const ui::PointerEvent& event) {
    // There is no title bar: the window is taken by its bare background.
    if (event.leftHeld && event.over(MainElement::mainIMG)) {
        p_.window.beginDrag();
    }
    if (!sliders_.mouseMove(event)) {
        bars_.mouseMove(event);
    }
}

void MainInput::releaseAt(const ui::PointerEvent& event) {
    if (sliders_.mouseUp(event) || !isLeft(event)) {
        return;
    }
    bars_.mouseUp(event);
    if (const PressButton* const button = pressedOf(event); button != nullptr) {
        press(*button, false);
        p_.keys.commands().run(button->command);
    } else {
        click(event);
    }
}

void MainInput::click(const ui::PointerEvent& event) {
    const auto found = std::ranges::find_if(clickButtons(), [&](const ClickButton& button) {
        return event.element == ui::addressOf(button.name, button.index);
    });
    if (found != clickButtons().end() &&
        p_.elements.get(found->name, found->index).box().contains(event.windowX, event.windowY)) {
        p_.keys.commands().run(found->command);
    }
}

void MainInput::doubleClick(const ui::PointerEvent& event) {
    if (sliders_.doubleClick(event)) {
        return;
    }
    // Number 0 is the minus sign.
    if (isLeft(event) && event.over(MainElement::timed) && event.element->index > 0) {
        TimeDisplay(p_.core).flip();
    }
    if (isLeft(event) && event.over(MainElement::Picture1) && visual_ != nullptr) {
        visual_->doubleClickVisual();
    }
}

void MainInput::wheel(const ui::PointerEvent& event, double notches) {
    if (!sliders_.wheel(event, notches)) {
        p_.grips.volume.turn(notches);
    }
}

bool MainInput::keyDown(const ui::KeyEvent& event) {
    const bool used = keys_.keyDown(event, p_.elements.get(MainElement::iconIMG).box());
    if (!used && event.code == kEscape) {
        p_.window.takeFocus();
        return true;
    }
    return used;
}

bool MainInput::claimsKey(const ui::KeyEvent& event) const {
    return keys_.claimsKey(event);
}

/// Before the start has put it where the settings say, its place is nobody's choice.
void MainInput::windowMoved() {
    player::PlayerState& state = p_.core.state;
    if (!state.LoadFinished) {
        return;
    }
    const std::int32_t left = p_.window.left() * ui::kTwipsPerPixel;
    const std::int32_t top = p_.window.top() * ui::kTwipsPerPixel;
    if (left == state.WindowLeft && top == state.WindowTop) {
        return;
    }
    state.WindowLeft = left;
    state.WindowTop = top;
    p_.core.settings.changed("X");
    p_.core.settings.changed("Y");
}

void MainInput::closeRequested() {
    p_.keys.commands().run(commands::CommandId::exit);
}

} // namespace tovik::window
