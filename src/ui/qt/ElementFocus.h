// SPDX-License-Identifier: GPL-3.0-or-later
// Which element of a window has the keyboard. Painted elements and widgets follow each other in one
// order. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/AccessInput.h"
#include "ui/AccessList.h"
#include "ui/qt/HostedControls.h"

#include <functional>
#include <optional>
#include <QKeyEvent>
#include <QWidget>

namespace tovik::ui {

/// A painted element has it while the window itself has the focus of the window system; a widget
/// has that by itself. Nothing that is seen may have it, too; the next step then goes on from where
/// it was last, or from where the mouse went down since.
class ElementFocus {
public:
    /// All but the places outlive it. `changed` is called when another element has the keyboard.
    ElementFocus(QWidget& window, const HostedControls& controls, AccessList places,
                 AccessInput& input, const host::Dispatcher& dispatcher,
                 std::function<void()> changed);

    [[nodiscard]] const AccessList& places() const noexcept { return places_; }

    [[nodiscard]] AccessInput& input() const noexcept { return input_; }

    /// The place that has the keyboard; one that is hidden has none.
    [[nodiscard]] std::optional<std::size_t> focused() const;

    /// Gives it to the next stop, or to the one before. False where there is none.
    bool step(bool forward);

    /// Gives it to a stop that is shown.
    void give(std::size_t place);

    /// The widget of that element got the focus of the window system.
    void entered(std::size_t slot);

    /// Something else got it.
    void left();

    /// The mouse went down on an element.
    void pressed(std::size_t slot);

    // What is done to an element, through the dispatcher ------------------------------------------

    void activate(std::size_t place);
    void adjust(std::size_t place, Adjustment adjustment);
    void setValue(std::size_t place, double value);

    /// Enter, Space and what moves sliders, with no other key held. Whether the key was used.
    bool key(const QKeyEvent& event);

    /// Whether a widget stands there.
    [[nodiscard]] bool isWidget(std::size_t place) const;

    /// That widget; null when it is not there.
    [[nodiscard]] QWidget* widgetOf(std::size_t place) const;

private:
    void set(std::optional<std::size_t> place);
    [[nodiscard]] bool willing(std::size_t place) const;

    QWidget& window_;
    const HostedControls& controls_;
    AccessList places_;
    AccessInput& input_;
    const host::Dispatcher& dispatcher_;
    std::function<void()> changed_;
    std::optional<std::size_t> focused_;
    std::optional<std::size_t> last_; ///< where a step goes on from
};

/// Whether letters and digits are text for that widget. Null: no.
[[nodiscard]] bool takesText(const QWidget* widget);

} // namespace tovik::ui
