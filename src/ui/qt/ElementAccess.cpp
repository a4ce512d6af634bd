// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/ElementAccess.h"

#include "ui/qt/DisplayText.h"

#include <utility>

namespace tovik::ui {

namespace {

QAccessible::Role roleOf(ElementRole role) {
    switch (role) {
    case ElementRole::Button:
        return QAccessible::Button;
    case ElementRole::Toggle:
    case ElementRole::Lamp:
        return QAccessible::CheckBox;
    case ElementRole::Tab:
        return QAccessible::PageTab;
    case ElementRole::Slider:
        return QAccessible::Slider;
    case ElementRole::Picture:
        return QAccessible::Graphic;
    case ElementRole::Label:
    case ElementRole::Field:
        return QAccessible::StaticText;
    case ElementRole::Control:
    case ElementRole::KeyHolder:
        break;
    }
    return QAccessible::Client;
}

bool acts(ElementRole role) {
    return role == ElementRole::Lamp ||
           (isStop(role) && role != ElementRole::Slider && role != ElementRole::Control);
}

} // namespace

ElementAccess::ElementAccess(QWidget& window, ElementFocus& focus, std::size_t place,
                             OnScreen onScreen)
    : window_(window), alive_(&window), focus_(focus), place_(place),
      onScreen_(std::move(onScreen)) {}

bool ElementAccess::isValid() const {
    return !alive_.isNull();
}

QWindow* ElementAccess::window() const {
    return isValid() ? window_.windowHandle() : nullptr;
}

QAccessibleInterface* ElementAccess::parent() const {
    return isValid() ? QAccessible::queryAccessibleInterface(&window_) : nullptr;
}

ElementRole ElementAccess::elementRole() const {
    return isValid() ? focus_.places().at(place_).role : ElementRole::Label;
}

ElementFacts ElementAccess::facts() const {
    return isValid() ? focus_.input().factsOf(focus_.places().at(place_).element) : ElementFacts{};
}

QString ElementAccess::value() const {
    const ElementRole role = elementRole();
    // The caption of a button is a symbol or its name again, unless it is a digit of the clock.
    const bool reads =
        role == ElementRole::Field || role == ElementRole::Slider ||
        (role == ElementRole::Button && isValid() && focus_.places().at(place_).parts > 1);
    return reads ? displayString(facts().text).trimmed() : QString();
}

QString ElementAccess::text(QAccessible::Text kind) const {
    if (!isValid()) {
        return {};
    }
    switch (kind) {
    case QAccessible::Name:
        return displayString(focus_.places().name(place_));
    case QAccessible::Description: {
        const QString tip = displayString(focus_.places().element(place_).tooltip);
        return tip == text(QAccessible::Name) ? QString() : tip;
    }
    case QAccessible::Value:
        return value();
    default:
        return {};
    }
}

QRect ElementAccess::rect() const {
    return isValid() ? onScreen_(focus_.places().box(place_)) : QRect();
}

QAccessible::Role ElementAccess::role() const {
    return roleOf(elementRole());
}

QAccessible::State ElementAccess::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const ElementRole role = elementRole();
    const ElementFacts known = facts();
    // A label that says nothing now, such as the note of a stop, is not there.
    const bool says = role != ElementRole::Label || !text(QAccessible::Name).isEmpty();
    state.invisible = !window_.isVisible() || !focus_.places().shown(place_) || !says;
    if (isStop(role)) {
        state.disabled = !known.enabled || !focus_.places().enabled(place_);
        state.focusable = !state.disabled;
        state.focused = window_.hasFocus() && focus_.focused() == place_;
    }
    if (role == ElementRole::Toggle || role == ElementRole::Lamp) {
        state.checkable = true;
        state.checked = known.checked;
    }
    if (role == ElementRole::Tab) {
        state.selectable = true;
        state.selected = known.checked;
    }
    if (role == ElementRole::Lamp) {
        state.disabled = !known.enabled;
    }
    state.readOnly = role == ElementRole::Field;
    return state;
}

void* ElementAccess::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface && (isStop(elementRole()) || acts(elementRole()))) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    if (type == QAccessible::ValueInterface && facts().range) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    if (type == QAccessible::TextInterface && elementRole() != ElementRole::Slider &&
        (elementRole() == ElementRole::Field || !value().isEmpty())) {
        return static_cast<QAccessibleTextInterface*>(this);
    }
    return nullptr;
}

QStringList ElementAccess::actionNames() const {
    const ElementRole role = elementRole();
    QStringList names;
    if (role == ElementRole::Toggle || role == ElementRole::Lamp) {
        names << toggleAction();
    } else if (role == ElementRole::Slider) {
        names << increaseAction() << decreaseAction();
    } else if (acts(role)) {
        names << pressAction();
    }
    if (isStop(role)) {
        names << setFocusAction();
    }
    return names;
}

void ElementAccess::doAction(const QString& action) {
    if (!isValid() || state().disabled) {
        return;
    }
    if (!actionNames().contains(action)) {
        return;
    }
    if (action == setFocusAction()) {
        focus_.give(place_);
    } else if (action == increaseAction()) {
        focus_.adjust(place_, Adjustment::Up);
    } else if (action == decreaseAction()) {
        focus_.adjust(place_, Adjustment::Down);
    } else if (acts(elementRole())) {
        focus_.activate(place_);
    }
}

QVariant ElementAccess::currentValue() const {
    const ElementFacts known = facts();
    return known.range ? QVariant(known.range->value) : QVariant();
}

void ElementAccess::setCurrentValue(const QVariant& value) {
    if (isValid()) {
        focus_.setValue(place_, value.toDouble());
    }
}

QVariant ElementAccess::maximumValue() const {
    const ElementFacts known = facts();
    return known.range ? QVariant(known.range->most) : QVariant();
}

QVariant ElementAccess::minimumValue() const {
    const ElementFacts known = facts();
    return known.range ? QVariant(known.range->least) : QVariant();
}

QVariant ElementAccess::minimumStepSize() const {
    const ElementFacts known = facts();
    return known.range ? QVariant(known.range->step) : QVariant();
}

QString ElementAccess::text(int start, int end) const {
    const QString all = value();
    return all.mid(start, end < 0 ? -1 : end - start);
}

int ElementAccess::characterCount() const {
    return static_cast<int>(value().size());
}

QString ElementAccess::attributes(int /*offset*/, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

} // namespace tovik::ui
