// SPDX-License-Identifier: GPL-3.0-or-later
// A window of painted elements as a screen reader meets it: each element that acts or tells is a
// child, and so is each widget. Interface thread.
#pragma once

#include "ui/qt/ElementAccess.h"
#include "ui/qt/SkinWindow.h"

#include <map>
#include <QAccessibleWidget>
#include <vector>

namespace tovik::ui {

class WindowAccess final : public QAccessibleWidget {
public:
    explicit WindowAccess(SkinWindow& window);
    ~WindowAccess() override;
    WindowAccess(const WindowAccess&) = delete;
    WindowAccess& operator=(const WindowAccess&) = delete;

    /// Lets Qt make such objects for windows, and tables for lists. Once in a program, at any
    /// time before a screen reader asks; further calls do nothing.
    static void install();

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

    /// The child that stands for a place; null for none.
    [[nodiscard]] QAccessibleInterface* childOf(std::size_t place) const;

    /// Tells screen readers which element has the keyboard now.
    void announceFocus() const;

    /// Tells them what is different since the last call.
    void announceChanges();

private:
    /// What was told of an element last.
    struct Told {
        bool shown = false;
        std::string name;
        ElementFacts facts;

        friend bool operator==(const Told&, const Told&) = default;
    };

    [[nodiscard]] ElementFocus* focus() const;
    [[nodiscard]] std::vector<std::size_t> places() const;
    void announce(std::size_t place, const Told& before, const Told& now) const;

    SkinWindow& window_;
    mutable std::map<std::size_t, QAccessible::Id> elements_; ///< by place
    std::map<std::size_t, Told> told_;
};

} // namespace tovik::ui
