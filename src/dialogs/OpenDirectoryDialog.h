// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that adds a folder, on the screen. It stays open beside the player until it is
// accepted or closed. Interface thread; folders are read on a thread of their own.
#pragma once

#include "config/MultiLNG.h"
#include "dialogs/Dialog.h"
#include "host/Dispatcher.h"
#include "player/frmOpenDirectory.h"
#include "ui/qt/DialogTexts.h"

#include <QCheckBox>
#include <QFileSystemModel>
#include <QListView>
#include <QTreeView>
#include <string>

namespace tovik::dialogs {

/// Its controls bear the names by which languages and tests know them: "FolderTreeview1", "File1",
/// "Check1", "Command1", "Command2".
class OpenDirectoryDialog final : public Dialog {
public:
    /// Logic, language and dispatcher outlive the dialog.
    OpenDirectoryDialog(player::frmOpenDirectory& logic, config::MultiLNG& language,
                        const host::Dispatcher& dispatcher, QWidget* parent);

    void load() override;

    /// Cancelled or closed.
    void reject() override;

    /// Selects a folder in the tree; one that is not there leaves it as it is.
    void choose(const std::string& folder);

private:
    void showFiles();
    void accept() override;
    [[nodiscard]] QString chosen() const;

    player::frmOpenDirectory& logic_;
    config::MultiLNG& language_;
    const host::Dispatcher& dispatcher_;
    QFileSystemModel* folders_; ///< the dialog's object tree owns it, like all that follow
    QFileSystemModel* files_;
    QTreeView* tree_;
    QListView* list_;
    QCheckBox* subfolders_;
    ui::DialogTexts texts_{*this};
    config::AttachedTexts attached_{language_, config::TextWindow::frmOpenDirectory, texts_};
};

} // namespace tovik::dialogs
