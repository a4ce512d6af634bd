// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that asks which of several discs it is, on the screen. It holds up what asked.
// Interface thread.
#pragma once

#include "cd/frmDiscMatch.h"
#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "ui/qt/DialogTexts.h"

#include <QListWidget>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "Label1", "List1",
/// "Command1_0" (takes the selected row, as does a double click on one), "Command1_1".
class DiscMatchDialog final : public Dialog {
public:
    /// Logic, language and dispatcher outlive the dialog.
    DiscMatchDialog(cd::frmDiscMatch& logic, config::MultiLNG& language,
                    const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

private:
    void take();

    cd::frmDiscMatch& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    QListWidget* list1_; // the dialog's object tree owns it
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmDiscMatch, texts_};
};

} // namespace tovik::dialogs
