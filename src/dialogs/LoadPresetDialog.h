// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog with the names of the presets on the screen. It holds up the player, whose sound goes
// on, so that a curve can be heard before it is kept. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "player/frmLoadPreset.h"
#include "ui/qt/DialogTexts.h"

#include <QListWidget>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "List1", "Command1_0" to
/// "Command1_2".
class LoadPresetDialog final : public Dialog {
public:
    /// Logic, language and dispatcher outlive the dialog.
    LoadPresetDialog(player::frmLoadPreset& logic, config::MultiLNG& language,
                     const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

private:
    void press(player::frmLoadPreset::Button button);

    player::frmLoadPreset& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    QListWidget* list_; ///< the dialog's object tree owns it
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmLoadPreset, texts_};
};

} // namespace tovik::dialogs
