// SPDX-License-Identifier: GPL-3.0-or-later
// Brings a dialog to the place and size that it had in the session before, and notes them.
// Interface thread.
#pragma once

#include "player/Core.h"

#include <QObject>
#include <QWidget>
#include <string>

namespace tovik::dialogs {

/// The dialog owns it. What a Wayland compositor keeps to itself, the place, is neither asked for
/// nor noted.
class DialogPlace final : public QObject {
public:
    /// Both belong to the dialog's object name; `core` outlives the dialog, which is not shown yet.
    DialogPlace(QWidget& dialog, const player::Core& core);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeSize();
    void takePlace();

    /// Whether the dialog's place and size are those that a hand, or the desktop, gives it.
    [[nodiscard]] bool isOnScreen() const;

    QWidget& dialog_;
    const player::Core& core_;
    const std::string name_;
    const bool hasPlaces_; ///< the desktop tells them
};

} // namespace tovik::dialogs
