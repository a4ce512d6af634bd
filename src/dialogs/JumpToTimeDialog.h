// SPDX-License-Identifier: GPL-3.0-or-later
// The jump to a time of the track on the screen. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "player/frmjump2time.h"
#include "ui/qt/DialogTexts.h"

#include <QLabel>
#include <QLineEdit>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "Text1", "lbldur",
/// "Label1", "Label2", "Command1", "Command2", "Frame1".
class JumpToTimeDialog final : public Dialog {
public:
    /// Logic, language and dispatcher outlive the dialog.
    JumpToTimeDialog(player::frmjump2time& logic, config::MultiLNG& language,
                     const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

private:
    void go();

    player::frmjump2time& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    // The dialog's object tree owns them.
    QLabel* lbldur_;
    QLineEdit* text1_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmjump2time, texts_};
};

} // namespace tovik::dialogs
