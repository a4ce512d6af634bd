// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniInput.h"

#include "base/Numbers.h"
#include "window/WindowPlaces.h"

#include <algorithm>
#include <array>

namespace tovik::window {

namespace {

using N = MiniElement;

/// The window is taken by what has nothing else to do with the left button.
constexpr std::array kHandles = {N::picBackground, N::Picture1, N::musicinfo_img,
                                 N::shwchange,     N::songname, N::Stereo_img};

/// What acts when it is released with the pointer still on it.
constexpr std::array kButtons = {N::Image1,   N::Image4, N::Shuffle, N::ShuffleDown, N::loopImg,
                                 N::LoopImg2, N::CFD,    N::CFD2,    N::Sld,         N::sld2};

/// Each lamp and its dim twin are one thing.
struct Pair {
    N dim;
    N lit;
};

constexpr std::array kPairs = {Pair{N::ShuffleDown, N::Shuffle}, Pair{N::LoopImg2, N::loopImg},
                               Pair{N::CFD2, N::CFD}, Pair{N::sld2, N::Sld}};

constexpr double kWheelUnit = 120; ///< of a message, for one notch

bool isLeft(const ui::PointerEvent& event) {
    return event.button == ui::MouseButton::Left;
}

template <std::size_t Count>
bool overOneOf(const ui::PointerEvent& event, const std::array<N, Count>& names) {
    return std::ranges::any_of(names, [&](N name) { return event.over(name); });
}

bool overPosition(const ui::PointerEvent& event) {
    return event.over(N::posbar) || event.over(N::track);
}

/// What a click on an element is about.
ui::ElementAddress meant(ui::ElementAddress element) {
    const auto* const pair = std::ranges::find(kPairs, element.as<N>(), &Pair::dim);
    return pair == kPairs.end() ? element : ui::addressOf(pair->lit);
}

} // namespace

MiniInput::MiniInput(const MiniInputParts& parts)
    : p_(parts), faces_(parts.elements,
                        [](ui::ElementAddress element) { return element.as<N>() == N::Image4; }) {}

MiniInput::~MiniInput() {
    unhookWheel();
}

void MiniInput::hookWheel() {
    if (!superClass_.IsSubclassed()) {
        superClass_.AddMsg(ui::messages::kMouseWheel);
        superClass_.SubClass(lstPathList, *this, false);
    }
}

void MiniInput::unhookWheel() {
    superClass_.UnSubclass();
}

void MiniInput::Before(bool& handled, ui::MessageResult& /*result*/, ui::MessageWindow& /*window*/,
                       const ui::WindowMessage& message) {
    handled = true;
    p_.mainVolume.turn(static_cast<double>(message.wParam) / kWheelUnit);
}

double MiniInput::alongPosition(const ui::PointerEvent& event) const {
    return event.windowX - p_.elements.get(N::posbar).left;
}

/// As the slider sees it, wherever the pointer is.
ui::PointerEvent MiniInput::onVolume(ui::PointerEvent event) const {
    const ui::Box box = p_.elements.get(N::volbar).box();
    event.x = event.windowX - box.left;
    event.y = event.windowY - box.top;
    return event;
}

void MiniInput::mouseDown(const ui::PointerEvent& event) {
    config::guard(p_.core.errors, config::player("MouseDown"), [&] { pressAt(event); });
}

void MiniInput::mouseMove(const ui::PointerEvent& event) {
    config::guard(p_.core.errors, config::player("MouseMove"), [&] { moveTo(event); });
}

void MiniInput::mouseUp(const ui::PointerEvent& event) {
    config::guard(p_.core.errors, config::player("MouseUp"), [&] { releaseAt(event); });
}

void MiniInput::pressAt(const ui::PointerEvent& event) {
    faces_.mouseDown(event);
    if (event.button == ui::MouseButton::Right && p_.menus != nullptr) {
        if (event.over(N::picBackground)) {
            p_.menus->popUp(MenuRoot::mnuMain);
        } else if (event.over(N::Picture1)) {
            p_.menus->popUp(MenuRoot::vis);
        }
    }
    if (!isLeft(event)) {
        return;
    }
    if (p_.visual != nullptr && event.over(N::Picture1)) {
        p_.visual->clickVisual(static_cast<int>(event.x), static_cast<int>(event.y));
    } else if (overPosition(event)) {
        p_.position.Posbar_MouseDown(alongPosition(event));
    } else if (event.over(N::volbar)) {
        p_.volume.volbar.mouseDown(onVolume(event));
    }
}

void MiniInput::moveTo(const ui::PointerEvent& event) {
    faces_.mouseMove(event);
    if (event.over(N::picBackground)) {
        p_.skin.RestoreButtons();
    }
    if (!event.leftHeld) {
        return;
    }
    if (overOneOf(event, kHandles)) {
        p_.window.beginDrag();
    } else if (overPosition(event)) {
        p_.position.Posbar_MouseMove(alongPosition(event));
    } else if (event.over(N::volbar)) {
        p_.volume.volbar.mouseMove(onVolume(event));
    }
}

void MiniInput::releaseAt(const ui::PointerEvent& event) {
    faces_.mouseUp(event);
    if (!isLeft(event) || !event.element) {
        return;
    }
    if (overPosition(event)) {
        p_.position.Posbar_MouseUp(alongPosition(event));
    } else if (event.over(N::volbar)) {
        p_.volume.volbar.mouseUp(event);
    } else if (overOneOf(event, kButtons) && p_.elements.at(p_.elements.slotOf(*event.element))
                                                 .box()
                                                 .contains(event.windowX, event.windowY)) {
        p_.actions.activate(meant(*event.element));
    }
}

void MiniInput::doubleClick(const ui::PointerEvent& event) {
    if (isLeft(event) && event.over(N::timed)) {
        p_.actions.activate(ui::addressOf(N::timed, 1));
    } else if (isLeft(event) && event.over(N::Picture1) && p_.visual != nullptr) {
        p_.visual->doubleClickVisual();
    }
}

void MiniInput::wheel(const ui::PointerEvent& /*event*/, double notches) {
    lstPathList.send({ui::messages::kMouseWheel, base::toInt32(notches * kWheelUnit)});
}

void MiniInput::pointerEntered(ui::ElementAddress element) {
    faces_.pointerEntered(element);
    if (element.as<N>() == N::Image1) {
        p_.skin.showOver(element.index);
    }
}

void MiniInput::pointerLeft(ui::ElementAddress element) {
    faces_.pointerLeft(element);
    p_.skin.RestoreButtons();
}

bool MiniInput::keyDown(const ui::KeyEvent& event) {
    return p_.keys.keyDown(event, p_.elements.get(N::Image1).box());
}

bool MiniInput::claimsKey(const ui::KeyEvent& event) const {
    return p_.keys.claimsKey(event);
}

void MiniInput::windowMoved() {
    if (p_.core.state.MiniModeShown && p_.window.tellsPlace()) {
        notePlace(p_.core, kMiniWindow, {.left = p_.window.left(), .top = p_.window.top()});
    }
}

/// As the close button of the main window.
void MiniInput::closeRequested() {
    p_.keys.commands().run(commands::CommandId::exit);
}

} // namespace tovik::window
