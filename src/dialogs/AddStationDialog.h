// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that adds a radio station, on the screen. It holds up the player until it is closed.
// Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "radio/frmaddst.h"
#include "ui/qt/DialogTexts.h"

#include <QLineEdit>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "Text1" (the name), "Text2"
/// (the address), "Label1", "Command1_0" (adds), "Command1_1".
class AddStationDialog final : public Dialog {
public:
    /// Logic, language and dispatcher outlive the dialog.
    AddStationDialog(radio::frmaddst& logic, config::MultiLNG& language,
                     const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

private:
    void add();

    radio::frmaddst& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    // The dialog's object tree owns them.
    QLineEdit* text1_;
    QLineEdit* text2_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmaddst, texts_};
};

} // namespace tovik::dialogs
