// SPDX-License-Identifier: GPL-3.0-or-later
// Opens the dialogs on the screen. Interface thread.
#pragma once

#include "dialogs/DialogTable.h"

#include <map>
#include <optional>
#include <QPointer>

namespace tovik::dialogs {

/// Dialogs are made when they are first asked for; there is never more than one of a kind.
class DialogOpener final : public window::WindowOpener {
public:
    /// Both outlive the object.
    explicit DialogOpener(const host::Dispatcher& dispatcher,
                          std::span<const DialogRow> table = dialogTable())
        : dispatcher_(dispatcher), table_(table) {}

    /// From here on there is something to show: before, `open` does nothing. The dialogs go with
    /// `parent`, at the latest.
    void attach(const DialogLogic& logic, QWidget& parent);

    void open(window::WindowId window) override;

private:
    const host::Dispatcher& dispatcher_;
    std::span<const DialogRow> table_;
    std::optional<DialogLogic> logic_;
    QPointer<QWidget> parent_;
    std::map<window::WindowId, QPointer<Dialog>> made_; ///< the parent's object tree owns them
};

} // namespace tovik::dialogs
