// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of a folder on the screen: its path, and the folders of the machine as a tree, which
// is read in the background. Interface thread.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "preferences/frmRipDir.h"
#include "ui/qt/DialogTexts.h"

#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them.
class RipDirDialog final : public Dialog {
public:
    /// Logic, language and dispatcher outlive the dialog.
    RipDirDialog(preferences::frmRipDir& logic, config::MultiLNG& language,
                 const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

private:
    void press(preferences::frmRipDir::Button button);
    void showPath(const QString& path);
    void scrollToPlace();

    preferences::frmRipDir& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    QLineEdit* path_; ///< the dialog's object tree owns these
    QTreeView* tree_;
    QFileSystemModel* folders_;
    QPushButton* ok_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmRipDir, texts_};
};

} // namespace tovik::dialogs
