// SPDX-License-Identifier: GPL-3.0-or-later
// What this program is, on the screen. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "ui/qt/DialogTexts.h"
#include "window/frmAbout.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them.
class AboutDialog final : public Dialog {
public:
    /// Logic, language and dispatcher outlive the dialog.
    AboutDialog(window::frmAbout& logic, config::MultiLNG& language,
                const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

private:
    window::frmAbout& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    QLabel* version_; ///< the dialog's object tree owns these
    QPlainTextEdit* libraries_;
    QPushButton* close_;
    QPushButton* update_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmAbout, texts_};
};

} // namespace tovik::dialogs
