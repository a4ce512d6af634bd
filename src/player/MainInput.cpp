// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/MainInput.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tovik::player {

using ui::MainElement;

const std::span<const MainInput::ButtonPair> MainInput::kButtons = [] {
    static constexpr std::array kTable = {
        ButtonPair{MainElement::backupIMG, MainElement::backdownIMG, Action::none},
        ButtonPair{MainElement::playup, MainElement::playdown, Action::play},
        ButtonPair{MainElement::pauseup, MainElement::pausedown, Action::pause},
        ButtonPair{MainElement::stopup, MainElement::stopdown, Action::stop},
        ButtonPair{MainElement::nextup, MainElement::nextdown, Action::none},
        ButtonPair{MainElement::fileup, MainElement::filedown, Action::none},
        ButtonPair{MainElement::closeup, MainElement::closedown, Action::close},
        ButtonPair{MainElement::minon, MainElement::minoff, Action::minimise},
        ButtonPair{MainElement::minmodeUP, MainElement::minmodeDown, Action::none},
    };
    return std::span<const ButtonPair>(kTable);
}();

MainInput::MainInput(ui::MainElements& elements, Transport& transport, std::function<void()> close,
                     std::function<void()> minimise)
    : elements_(elements), transport_(transport), close_(std::move(close)),
      minimise_(std::move(minimise)) {}

const MainInput::ButtonPair* MainInput::buttonUnder(const ui::PointerEvent& event) {
    const auto found = std::ranges::find_if(kButtons, [&](const ButtonPair& button) {
        return event.over(button.up) || event.over(button.down);
    });
    return event.button == ui::MouseButton::Left && found != kButtons.end() ? &*found : nullptr;
}

void MainInput::press(const ButtonPair& button, bool pressed) {
    elements_.touch(button.up).visible = !pressed;
    elements_.touch(button.down).visible = pressed;
}

void MainInput::mouseDown(const ui::PointerEvent& event) {
    if (const ButtonPair* button = buttonUnder(event); button != nullptr) {
        press(*button, true);
    }
}

void MainInput::mouseUp(const ui::PointerEvent& event) {
    if (const ButtonPair* button = buttonUnder(event); button != nullptr) {
        press(*button, false);
        act(button->action);
    }
}

void MainInput::act(Action action) {
    switch (action) {
    case Action::play:
        transport_.button_play();
        break;
    case Action::pause:
        transport_.button_pause();
        break;
    case Action::stop:
        transport_.button_stop();
        break;
    case Action::close:
        close_();
        break;
    case Action::minimise:
        minimise_();
        break;
    case Action::none:
        break;
    }
}

std::size_t QuickListRows::rows() const {
    return static_cast<std::size_t>(mirror_.ListCount());
}

std::string QuickListRows::text(std::size_t row) const {
    return std::string(mirror_.List(static_cast<std::int32_t>(row)));
}

bool QuickListRows::selected(std::size_t row) const {
    return mirror_.ListIndex() == static_cast<std::int32_t>(row);
}

bool QuickListRows::marked(std::size_t row) const {
    return list_.SelectedIndex == static_cast<playlist::Row>(row) + 1;
}

void QuickListRows::selectRow(std::size_t row, ui::Modifiers /*modifiers*/) {
    mirror_.ListIndex(static_cast<std::int32_t>(row));
}

void QuickListRows::activateRow(std::size_t row) {
    mirror_.ListIndex(static_cast<std::int32_t>(row));
    transport_.List1_DblClick();
}

} // namespace tovik::player
