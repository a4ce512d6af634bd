// SPDX-License-Identifier: GPL-3.0-or-later
// A field that takes the next keys as they are pressed. Interface thread.
#pragma once

#include "menus/Accelerator.h"

#include <functional>
#include <QKeyEvent>
#include <QLineEdit>

namespace tovik::dialogs {

/// Tab leaves it, Escape goes on to the dialog, and modifiers alone are no keys.
class ShortcutEdit final : public QLineEdit {
public:
    explicit ShortcutEdit(QWidget* parent);

    /// Who hears of the keys.
    void onKeys(std::function<void(const menus::AcceleratorKey&)> keys) { keys_ = std::move(keys); }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::function<void(const menus::AcceleratorKey&)> keys_;
};

} // namespace tovik::dialogs
