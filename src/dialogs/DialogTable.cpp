// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogTable.h"

#include "dialogs/LoadPresetDialog.h"
#include "dialogs/OpenDirectoryDialog.h"

#include <array>

namespace tovik::dialogs {

namespace {

using window::WindowId;

constexpr std::array kTable = {
    DialogRow{WindowId::loadPreset, DialogKind::beside,
              [](const DialogParts& parts) -> Dialog& {
                  return *new LoadPresetDialog(parts.logic.loadPreset, parts.logic.language,
                                               parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::openDirectory, DialogKind::beside,
              [](const DialogParts& parts) -> Dialog& {
                  return *new OpenDirectoryDialog(parts.logic.openDirectory, parts.logic.language,
                                                  parts.dispatcher, parts.parent);
              }},
};

} // namespace

std::span<const DialogRow> dialogTable() noexcept {
    return kTable;
}

} // namespace tovik::dialogs
