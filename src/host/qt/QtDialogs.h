// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs on the screen. Interface thread.
#pragma once

#include "host/Dialogs.h"

#include <functional>
#include <QString>
#include <set>
#include <string>
#include <vector>

namespace tovik::host {

/// Modal dialogs over the active window. A box whose text is already on the screen is not shown
/// again: it is told to the log and has its default answer.
class QtDialogs final : public Dialogs {
public:
    using Log = std::function<void(const MessageBox&)>;

    /// Until this is called, boxes not shown are dropped.
    void logUnshownTo(Log log) { log_ = std::move(log); }

    MessageAnswer showMessage(const MessageBox& box) override;
    [[nodiscard]] std::vector<std::string> openFiles(const FileDialog& dialog) override;
    [[nodiscard]] std::optional<std::string> saveFile(const FileDialog& dialog) override;
    [[nodiscard]] std::optional<std::string> chooseFolder(const FolderDialog& dialog) override;

private:
    /// Where a dialog opens that is wanted in this folder, or in none in particular.
    [[nodiscard]] QString startFolder(const std::string& wanted) const;

    Log log_;
    std::set<std::string> openTexts_;
    std::string lastFolder_;
};

} // namespace tovik::host
