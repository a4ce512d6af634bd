// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ElementFocus.h"

#include <algorithm>
#include <array>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <utility>

namespace tovik::ui {

namespace {

struct Key {
    int qtKey;
    Adjustment adjustment;
};

constexpr std::array kKeys = {
    Key{Qt::Key_Up, Adjustment::Up},         Key{Qt::Key_Down, Adjustment::Down},
    Key{Qt::Key_PageUp, Adjustment::PageUp}, Key{Qt::Key_PageDown, Adjustment::PageDown},
    Key{Qt::Key_Home, Adjustment::Least},    Key{Qt::Key_End, Adjustment::Most},
};

bool acts(int qtKey) {
    return qtKey == Qt::Key_Return || qtKey == Qt::Key_Enter || qtKey == Qt::Key_Space;
}

} // namespace

bool takesText(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
           qobject_cast<const QComboBox*>(widget) != nullptr ||
           qobject_cast<const QTextEdit*>(widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
}

ElementFocus::ElementFocus(QWidget& window, const HostedControls& controls, AccessList places,
                           AccessInput& input, const host::Dispatcher& dispatcher,
                           std::function<void()> changed)
    : window_(window), controls_(controls), places_(std::move(places)), input_(input),
      dispatcher_(dispatcher), changed_(std::move(changed)) {}

std::optional<std::size_t> ElementFocus::focused() const {
    return focused_ && places_.shown(*focused_) ? focused_ : std::nullopt;
}

QWidget* ElementFocus::widgetOf(std::size_t place) const {
    return controls_.widgetOf(places_.at(place).element);
}

bool ElementFocus::willing(std::size_t place) const {
    if (places_.at(place).role == ElementRole::Control) {
        return widgetOf(place) != nullptr;
    }
    return input_.factsOf(places_.at(place).element).enabled;
}

bool ElementFocus::step(bool forward) {
    const auto next =
        places_.nextStop(last_, forward, [this](std::size_t place) { return willing(place); });
    if (!next) {
        return false;
    }
    give(*next);
    return true;
}

void ElementFocus::give(std::size_t place) {
    if (places_.at(place).role == ElementRole::Control) {
        if (QWidget* const widget = widgetOf(place); widget != nullptr) {
            widget->setFocus(Qt::TabFocusReason);
        }
        return;
    }
    window_.setFocus(Qt::TabFocusReason);
    set(place);
}

void ElementFocus::entered(std::size_t slot) {
    const auto place = places_.placeOf(slot);
    set(place && isStop(places_.at(*place).role) ? place : std::nullopt);
}

void ElementFocus::left() {
    set(std::nullopt);
}

void ElementFocus::pressed(std::size_t slot) {
    left();
    if (const auto place = places_.placeOf(slot)) {
        last_ = place;
    }
}

void ElementFocus::set(std::optional<std::size_t> place) {
    if (place) {
        last_ = place;
    }
    if (std::exchange(focused_, place) != place) {
        changed_();
    }
}

bool ElementFocus::isWidget(std::size_t place) const {
    const ElementRole role = places_.at(place).role;
    return role == ElementRole::Control || role == ElementRole::KeyHolder;
}

void ElementFocus::activate(std::size_t place) {
    dispatcher_.run([&] { input_.activate(places_.at(place).element); });
}

void ElementFocus::adjust(std::size_t place, Adjustment adjustment) {
    dispatcher_.run([&] { input_.adjust(places_.at(place).element, adjustment); });
}

void ElementFocus::setValue(std::size_t place, double value) {
    dispatcher_.run([&] { input_.setValue(places_.at(place).element, value); });
}

bool ElementFocus::key(const QKeyEvent& event) {
    const auto place = focused();
    if (!place || places_.at(*place).role == ElementRole::Control ||
        (event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        return false;
    }
    const AccessPlace& at = places_.at(*place);
    if (at.role != ElementRole::Slider) {
        if (acts(event.key()) && !event.isAutoRepeat()) {
            activate(*place);
        }
        return acts(event.key());
    }
    const auto* const found = std::ranges::find(kKeys, event.key(), &Key::qtKey);
    if (found != kKeys.end()) {
        adjust(*place, found->adjustment);
    }
    return found != kKeys.end();
}

} // namespace tovik::ui
