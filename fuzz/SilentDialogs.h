// SPDX-License-Identifier: GPL-3.0-or-later
// For fuzz targets of the tag classes. One thread.
#pragma once

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "host/Dialogs.h"

#include <cstdlib>
#include <string>

namespace tovik::fuzz {

/// Answers at once what each box proposes.
class SilentDialogs final : public host::Dialogs {
public:
    host::MessageAnswer showMessage(const host::MessageBox& box) override {
        return box.defaultAnswer;
    }

    [[nodiscard]] std::vector<std::string> openFiles(const host::FileDialog& /*dialog*/) override {
        return {};
    }

    [[nodiscard]] std::optional<std::string> saveFile(const host::FileDialog& /*dialog*/) override {
        return std::nullopt;
    }

    [[nodiscard]] std::optional<std::string>
    chooseFolder(const host::FolderDialog& /*dialog*/) override {
        return std::nullopt;
    }
};

inline void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

inline std::string content(const std::string& path) {
    std::string bytes;
    demand(!base::readWholeFile(path, bytes));
    return bytes;
}

} // namespace tovik::fuzz
