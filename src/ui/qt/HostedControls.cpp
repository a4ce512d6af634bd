// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/HostedControls.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/ListWidget.h"

#include <algorithm>
#include <QLineEdit>
#include <QRegion>

namespace tovik::ui {

namespace {

void showCaption(QWidget& widget, const std::string& caption) {
    if (auto* const list = dynamic_cast<ListWidget*>(&widget)) {
        list->setHint(displayString(caption));
    }
    auto* const field = qobject_cast<QLineEdit*>(&widget);
    // Setting it anew would throw away cursor and selection.
    if (const QString text = displayString(caption); field != nullptr && field->text() != text) {
        field->setText(text);
    }
}

} // namespace

void HostedControls::host(std::size_t slot, QWidget* widget, const SkinScale& scale) {
    widget->setParent(&window_);
    widget->installEventFilter(&window_);
    controls_[slot] = widget;
    place(slot, scale);
}

void HostedControls::place(std::size_t slot, const SkinScale& scale) {
    const auto found = controls_.find(slot);
    if (found == controls_.end() || found->second.isNull()) {
        return;
    }
    QWidget& widget = *found->second;
    const Element& element = elements_.at(slot);
    widget.setGeometry(scale.pixels(element.box()));
    widget.setEnabled(element.enabled);
    widget.setToolTip(displayString(element.tooltip));
    QFont font = widget.font();
    font.setPixelSize(std::max(1, qRound(element.textHeight * scale.factor())));
    widget.setFont(font);
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Text, qtColour(element.textColour));
    if (element.backColour) {
        palette.setColor(QPalette::Base, qtColour(*element.backColour));
    }
    widget.setPalette(palette);
    showCaption(widget, element.caption);
    // Each call tells screen readers of another name.
    if (const QString name = displayString(element.name); widget.accessibleName() != name) {
        widget.setAccessibleName(name);
    }
    widget.setVisible(element.visible);
    cutOut(slot, widget, scale);
}

void HostedControls::cutOut(std::size_t slot, QWidget& widget, const SkinScale& scale) const {
    const QRect place = scale.pixels(elements_.at(slot).box());
    QRegion front;
    for (std::size_t other = slot + 1; other < elements_.size(); ++other) {
        const Element& element = elements_.at(other);
        if (element.visible && element.takesMouse && element.kind != ElementKind::Control) {
            front += scale.pixels(element.box()) & place;
        }
    }
    if (!front.isEmpty()) {
        widget.setMask(QRegion(place).subtracted(front).translated(-place.topLeft()));
    } else if (!widget.mask().isEmpty()) {
        widget.clearMask();
    }
}

void HostedControls::makeWay(const Box& box, const SkinScale& scale) {
    for (const auto& [slot, widget] : controls_) {
        const Element& element = elements_.at(slot);
        if (!widget.isNull() && element.visible &&
            scale.pixels(element.box()).intersects(scale.pixels(box))) {
            cutOut(slot, *widget, scale);
        }
    }
}

void HostedControls::placeAll(const SkinScale& scale) {
    for (const auto& control : controls_) {
        place(control.first, scale);
    }
}

QWidget* HostedControls::widgetOf(ElementAddress element) const {
    const auto found = controls_.find(elements_.slotOf(element));
    return found == controls_.end() ? nullptr : found->second.data();
}

std::optional<std::size_t> HostedControls::slotOf(const QObject* widget) const {
    const auto found =
        std::find_if(controls_.begin(), controls_.end(),
                     [widget](const auto& control) { return control.second == widget; });
    return found != controls_.end() ? std::optional(found->first) : std::nullopt;
}

} // namespace tovik::ui
