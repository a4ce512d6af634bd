// SPDX-License-Identifier: GPL-3.0-or-later
// A painted element as a screen reader meets it. Interface thread.
#pragma once

#include "ui/qt/ElementFocus.h"

#include <functional>
#include <QAccessible>
#include <QPointer>
#include <QRect>
#include <QWidget>

namespace tovik::ui {

class ElementAccess final : public QAccessibleInterface,
                            public QAccessibleActionInterface,
                            public QAccessibleValueInterface,
                            public QAccessibleTextInterface {
public:
    /// Where a box in skin pixels is on the screen.
    using OnScreen = std::function<QRect(const Box&)>;

    /// The focus belongs to the window: it is not asked once that is gone.
    ElementAccess(QWidget& window, ElementFocus& focus, std::size_t place, OnScreen onScreen);

    [[nodiscard]] std::size_t place() const noexcept { return place_; }

    [[nodiscard]] bool isValid() const override;

    [[nodiscard]] QObject* object() const override { return nullptr; }

    [[nodiscard]] QWindow* window() const override;

    [[nodiscard]] QAccessibleInterface* parent() const override;

    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }

    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
        return -1;
    }

    /// The value of a slider is told with its unit, that of a field is what it reads.
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    // Actions
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;

    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override {
        return {};
    }

    // The value
    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override;
    [[nodiscard]] QVariant minimumStepSize() const override;

    // The text, which nobody can change or select
    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;

    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }

    [[nodiscard]] int selectionCount() const override { return 0; }

    void addSelection(int /*start*/, int /*end*/) override {}

    void removeSelection(int /*index*/) override {}

    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}

    [[nodiscard]] int cursorPosition() const override { return 0; }

    void setCursorPosition(int /*position*/) override {}

    [[nodiscard]] QRect characterRect(int /*offset*/) const override { return rect(); }

    [[nodiscard]] int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }

    void scrollToSubstring(int /*start*/, int /*end*/) override {}

    [[nodiscard]] QString attributes(int /*offset*/, int* start, int* end) const override;

private:
    [[nodiscard]] ElementRole elementRole() const;
    [[nodiscard]] ElementFacts facts() const;
    [[nodiscard]] QString value() const;

    QWidget& window_;
    QPointer<QWidget> alive_; ///< null once the window is gone
    ElementFocus& focus_;
    std::size_t place_;
    OnScreen onScreen_;
};

} // namespace tovik::ui
