// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/WindowAccess.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/ListAccess.h"

#include <algorithm>
#include <utility>

namespace tovik::ui {

namespace {

QAccessibleInterface* make(const QString& /*className*/, QObject* object) {
    if (auto* const window = dynamic_cast<SkinWindow*>(object); window != nullptr) {
        return new WindowAccess(*window);
    }
    if (auto* const list = dynamic_cast<ListWidget*>(object); list != nullptr) {
        return new ListAccess(*list);
    }
    return nullptr;
}

} // namespace

void WindowAccess::install() {
    static const bool installed = [] {
        QAccessible::installFactory(make);
        return true;
    }();
    static_cast<void>(installed);
}

WindowAccess::WindowAccess(SkinWindow& window)
    : QAccessibleWidget(&window, QAccessible::Window), window_(window) {}

WindowAccess::~WindowAccess() {
    for (const auto& [place, id] : elements_) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

ElementFocus* WindowAccess::focus() const {
    return isValid() ? window_.elementFocus() : nullptr;
}

std::vector<std::size_t> WindowAccess::places() const {
    std::vector<std::size_t> all;
    if (const ElementFocus* const known = focus(); known != nullptr) {
        for (std::size_t place = 0; place < known->places().size(); ++place) {
            if (!known->isWidget(place) || known->widgetOf(place) != nullptr) {
                all.push_back(place);
            }
        }
    }
    return all;
}

int WindowAccess::childCount() const {
    return static_cast<int>(places().size());
}

QAccessibleInterface* WindowAccess::child(int index) const {
    const std::vector<std::size_t> all = places();
    return index >= 0 && static_cast<std::size_t>(index) < all.size()
               ? childOf(all[static_cast<std::size_t>(index)])
               : nullptr;
}

QAccessibleInterface* WindowAccess::childOf(std::size_t place) const {
    ElementFocus* const known = focus();
    if (known == nullptr) {
        return nullptr;
    }
    if (known->isWidget(place)) {
        return QAccessible::queryAccessibleInterface(known->widgetOf(place));
    }
    const auto found = elements_.find(place);
    if (found != elements_.end()) {
        return QAccessible::accessibleInterface(found->second);
    }
    auto* const made = new ElementAccess(window_, *known, place,
                                         [this](const Box& box) { return window_.onScreen(box); });
    // The register of interfaces owns it, which clang-tidy does not see (NOLINT below).
    elements_[place] = QAccessible::registerAccessibleInterface(made);
    return made;
}

int WindowAccess::indexOfChild(const QAccessibleInterface* child) const {
    const std::vector<std::size_t> all = places();
    const auto found = std::ranges::find_if(
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
        all, [&](std::size_t place) { return child != nullptr && childOf(place) == child; });
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

QAccessibleInterface* WindowAccess::childAt(int x, int y) const {
    QAccessibleInterface* best = nullptr;
    for (const std::size_t place : places()) {
        QAccessibleInterface* const one = childOf(place);
        if (one == nullptr || one->state().invisible || !one->rect().contains(x, y)) {
            continue;
        }
        // Areas lie over each other: the smallest is meant.
        const auto size = [](const QRect& rect) { return rect.width() * rect.height(); };
        if (best == nullptr || size(one->rect()) < size(best->rect())) {
            best = one;
        }
    }
    return best;
}

QAccessibleInterface* WindowAccess::focusChild() const {
    const ElementFocus* const known = focus();
    if (const auto place = known != nullptr ? known->focused() : std::nullopt) {
        return childOf(*place);
    }
    return QAccessibleWidget::focusChild();
}

void WindowAccess::announceFocus() const {
    const ElementFocus* const known = focus();
    const auto place = known != nullptr ? known->focused() : std::nullopt;
    // Widgets tell it themselves.
    if (place && !known->isWidget(*place)) {
        QAccessibleEvent event(childOf(*place), QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void WindowAccess::announceChanges() {
    const ElementFocus* const known = focus();
    for (const std::size_t place : places()) {
        if (known->isWidget(place)) {
            continue;
        }
        const Told now{.shown = known->places().shown(place),
                       .name = known->places().name(place),
                       .facts = known->input().factsOf(known->places().at(place).element)};
        const auto before = told_.find(place);
        if (before != told_.end() && !(before->second == now)) {
            announce(place, before->second, now);
        }
        told_.insert_or_assign(place, now);
    }
}

void WindowAccess::announce(std::size_t place, const Told& before, const Told& now) const {
    QAccessibleInterface* const element = childOf(place);
    if (before.name != now.name) {
        QAccessibleEvent event(element, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
    if (now.facts.range && before.facts.range != now.facts.range) {
        QAccessibleValueChangeEvent event(element, now.facts.range->value);
        QAccessible::updateAccessibility(&event);
    } else if (before.facts.text != now.facts.text && element->textInterface() != nullptr) {
        QAccessibleTextUpdateEvent event(element, 0, displayString(before.facts.text),
                                         displayString(now.facts.text));
        QAccessible::updateAccessibility(&event);
    }
    QAccessible::State changed;
    changed.invisible = before.shown != now.shown;
    changed.disabled = before.facts.enabled != now.facts.enabled;
    changed.checked = before.facts.checked != now.facts.checked;
    changed.selected = changed.checked;
    if (changed.invisible || changed.disabled || changed.checked) {
        QAccessibleStateChangeEvent event(element, changed);
        QAccessible::updateAccessibility(&event);
    }
} // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)

} // namespace tovik::ui
