// SPDX-License-Identifier: GPL-3.0-or-later
// The widgets that stand for elements of a window. Interface thread.
#pragma once

#include "ui/ElementStore.h"
#include "ui/qt/SkinScale.h"

#include <map>
#include <optional>
#include <QPointer>
#include <QWidget>

namespace tovik::ui {

/// Each follows its record: place, visibility, state, tooltip, font height, colours (text and
/// base); what a text field holds, and what an empty list says, is the caption. One that is deleted is forgotten.
class HostedControls {
public:
    /// Both must outlive it.
    HostedControls(QWidget& window, const ElementStore& elements)
        : window_(window), elements_(elements) {}

    /// Makes the widget a child of the window.
    void host(std::size_t slot, QWidget* widget, const SkinScale& scale);

    /// Shows what the record of that element says; does nothing for one without a widget.
    void place(std::size_t slot, const SkinScale& scale);

    void placeAll(const SkinScale& scale);

    /// Something changed in `box`: visible elements that take the mouse and stand in front of a
    /// widget there are cut out of it, so that the window's picture and the mouse reach them.
    void makeWay(const Box& box, const SkinScale& scale);

    /// The element that a widget stands for.
    [[nodiscard]] std::optional<std::size_t> slotOf(const QObject* widget) const;

    /// The widget that stands for an element; null for one without.
    [[nodiscard]] QWidget* widgetOf(ElementAddress element) const;

private:
    void cutOut(std::size_t slot, QWidget& widget, const SkinScale& scale) const;

    QWidget& window_;
    const ElementStore& elements_;
    std::map<std::size_t, QPointer<QWidget>> controls_; ///< by slot
};

} // namespace tovik::ui
