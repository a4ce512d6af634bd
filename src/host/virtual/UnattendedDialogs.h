// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs where nobody sits at the screen. Interface thread.
#pragma once

#include "host/Dialogs.h"

namespace tovik::host {

/// Answers every box with its default and prints it to the standard error stream; file and folder
/// dialogs count as cancelled.
class UnattendedDialogs final : public Dialogs {
public:
    MessageAnswer showMessage(const MessageBox& box) override;
    [[nodiscard]] std::vector<std::string> openFiles(const FileDialog& dialog) override;
    [[nodiscard]] std::optional<std::string> saveFile(const FileDialog& dialog) override;
    [[nodiscard]] std::optional<std::string> chooseFolder(const FolderDialog& dialog) override;
};

} // namespace tovik::host
