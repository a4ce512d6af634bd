// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/virtual/UnattendedDialogs.h"

#include "base/ErrorStream.h"

namespace tovik::host {

namespace {

void tell(const std::string& title, const std::string& text) {
    base::tell("[" + title + "] " + text);
}

} // namespace

MessageAnswer UnattendedDialogs::showMessage(const MessageBox& box) {
    tell(box.title, box.text);
    return box.defaultAnswer;
}

std::vector<std::string> UnattendedDialogs::openFiles(const FileDialog& dialog) {
    tell(dialog.title, "(cancelled)");
    return {};
}

std::optional<std::string> UnattendedDialogs::saveFile(const FileDialog& dialog) {
    tell(dialog.title, "(cancelled)");
    return std::nullopt;
}

std::optional<std::string> UnattendedDialogs::chooseFolder(const FolderDialog& dialog) {
    tell(dialog.title, "(cancelled)");
    return std::nullopt;
}

} // namespace tovik::host
