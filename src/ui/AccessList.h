// SPDX-License-Identifier: GPL-3.0-or-later
// The elements of a window as the keyboard and screen readers meet them: what each is, and in which
// order. Interface thread.
#pragma once

#include "ui/ElementStore.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace tovik::ui {

enum class ElementRole : std::uint8_t {
    Button,
    Toggle,    ///< a button with two states
    Tab,       ///< one of several, of which one is chosen
    Slider,    ///< a bar counts as one
    Label,     ///< words
    Field,     ///< a text that follows what happens, under a name
    Lamp,      ///< tells a state, and changes it for a screen reader; no stop of the keyboard
    Picture,   ///< tells something that has no words
    Control,   ///< a widget of its own, with a role of its own
    KeyHolder, ///< the widget that has the focus when nothing that is seen has it
};

/// Whether the keyboard comes to such an element.
[[nodiscard]] constexpr bool isStop(ElementRole role) noexcept {
    return role == ElementRole::Button || role == ElementRole::Toggle || role == ElementRole::Tab ||
           role == ElementRole::Slider || role == ElementRole::Control;
}

/// One thing that a user meets, though several elements may show it.
struct AccessPlace {
    ElementAddress element;               ///< bears its name and takes its calls
    std::size_t parts = 1;                ///< this element and the next ones of its name
    std::optional<ElementAddress> face{}; ///< stands beside or in its place, such as a pressed look
    ElementRole role{};
};

class AccessList {
public:
    /// The places in the order of sight. The elements must outlive the list; raises 9 for one that
    /// they do not have.
    AccessList(const ElementStore& elements, std::vector<AccessPlace> places);

    [[nodiscard]] std::size_t size() const noexcept { return places_.size(); }

    [[nodiscard]] const AccessPlace& at(std::size_t index) const { return places_.at(index); }

    /// The record that bears the name.
    [[nodiscard]] const Element& element(std::size_t index) const;

    /// What it is called: the record's name, else its tooltip, else its caption; bytes.
    [[nodiscard]] const std::string& name(std::size_t index) const;

    /// Any of its elements is visible.
    [[nodiscard]] bool shown(std::size_t index) const;

    /// None of its visible elements is disabled.
    [[nodiscard]] bool enabled(std::size_t index) const;

    /// Round its visible elements, in skin pixels; round its first element when none is.
    [[nodiscard]] Box box(std::size_t index) const;

    /// The place that an element belongs to.
    [[nodiscard]] std::optional<std::size_t> placeOf(std::size_t slot) const;

    /// The stop behind `from`, or in front of it, that is shown, enabled and willing; goes round
    /// at the ends. Without `from` the first, or the last. Nothing when there is none but `from`.
    [[nodiscard]] std::optional<std::size_t>
    nextStop(std::optional<std::size_t> from, bool forward,
             const std::function<bool(std::size_t)>& willing) const;

private:
    std::vector<std::size_t> slotsOf(const AccessPlace& place) const;

    const ElementStore& elements_;
    std::vector<AccessPlace> places_;
    std::vector<std::vector<std::size_t>> slots_; ///< by place
};

} // namespace tovik::ui
