// SPDX-License-Identifier: GPL-3.0-or-later
// Brings a dialog to the place that it had in the session before, and notes where it is. Interface
// thread.
#pragma once

#include "player/Core.h"

#include <QObject>
#include <QWidget>

namespace tovik::dialogs {

/// The dialog owns it. What a Wayland compositor keeps to itself is neither asked for nor noted.
class DialogPlace final : public QObject {
public:
    /// The place belongs to the dialog's object name; `core` outlives the dialog, which is not
    /// shown yet.
    DialogPlace(QWidget& dialog, const player::Core& core);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& dialog_;
    const player::Core& core_;
};

} // namespace tovik::dialogs
