// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs on the screen. Interface thread.
#pragma once

#include "host/Dialogs.h"

#include <functional>
#include <QString>
#include <set>
#include <string>
#include <vector>

class QFileDialog;
class QWidget;

namespace tovik::host {

/// Modal dialogs over the active window. A box whose text is already on the screen is not shown
/// again: it is told to the log and has its default answer.
class QtDialogs final : public Dialogs {
public:
    using Log = std::function<void(const MessageBox&)>;

    /// Until this is called, boxes not shown are dropped.
    void logUnshownTo(Log log) { log_ = std::move(log); }

    /// Is given each window that asks for files or a folder, before it is shown; its object name
    /// tells which it is.
    using Prepare = std::function<void(QWidget&)>;

    void prepareWith(Prepare prepare) { prepare_ = std::move(prepare); }

    MessageAnswer showMessage(const MessageBox& box) override;
    [[nodiscard]] std::vector<std::string> openFiles(const FileDialog& dialog) override;
    [[nodiscard]] std::optional<std::string> saveFile(const FileDialog& dialog) override;
    [[nodiscard]] std::optional<std::string> chooseFolder(const FolderDialog& dialog) override;

private:
    /// Where a dialog opens that is wanted in this folder, or in none in particular.
    [[nodiscard]] QString startFolder(const std::string& wanted) const;

    void beforeShown(QFileDialog& window, const char* name);

    /// What the user chose; empty when the window was cancelled.
    [[nodiscard]] std::vector<std::string> choices(QFileDialog& window);

    Log log_;
    Prepare prepare_;
    std::set<std::string> openTexts_;
    std::string lastFolder_;
};

} // namespace tovik::host
