// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogTable.h"

#include "dialogs/AboutDialog.h"
#include "dialogs/AddStationDialog.h"
#include "dialogs/DiscInfoDialog.h"
#include "dialogs/DiscMatchDialog.h"
#include "dialogs/JumpToTimeDialog.h"
#include "dialogs/JumpToTrackDialog.h"
#include "dialogs/LoadPresetDialog.h"
#include "dialogs/Mp3TagDialog.h"
#include "dialogs/MusicSearchDialog.h"
#include "dialogs/OpenDirectoryDialog.h"
#include "dialogs/PreferencesDialog.h"
#include "dialogs/RipDirDialog.h"

#include <array>

namespace tovik::dialogs {

namespace {

using window::WindowId;

constexpr std::array kTable = {
    DialogRow{WindowId::loadPreset, DialogKind::first,
              [](const DialogParts& parts) -> Dialog& {
                  return *new LoadPresetDialog(parts.logic.loadPreset, parts.logic.language,
                                               parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::openDirectory, DialogKind::beside,
              [](const DialogParts& parts) -> Dialog& {
                  return *new OpenDirectoryDialog(parts.logic.openDirectory, parts.logic.language,
                                                  parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::musicSearch, DialogKind::beside,
              [](const DialogParts& parts) -> Dialog& {
                  return *new MusicSearchDialog(parts.logic.jump2File, parts.logic.language,
                                                parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::jumpToTrack, DialogKind::beside,
              [](const DialogParts& parts) -> Dialog& {
                  return *new JumpToTrackDialog(parts.logic.jump2Track, parts.logic.language,
                                                parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::jumpToTime, DialogKind::beside,
              [](const DialogParts& parts) -> Dialog& {
                  return *new JumpToTimeDialog(parts.logic.jump2time, parts.logic.language,
                                               parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::mp3Tag, DialogKind::first,
              [](const DialogParts& parts) -> Dialog& {
                  return *new Mp3TagDialog(parts.logic.mp3Tag, parts.logic.language,
                                           parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::preferences, DialogKind::first,
              [](const DialogParts& parts) -> Dialog& {
                  return *new PreferencesDialog(parts.logic.preferences, parts.logic.language,
                                                parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::ripFolder, DialogKind::first,
              [](const DialogParts& parts) -> Dialog& {
                  return *new RipDirDialog(parts.logic.preferences.ripDir, parts.logic.language,
                                           parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::about, DialogKind::first,
              [](const DialogParts& parts) -> Dialog& {
                  return *new AboutDialog(parts.logic.about, parts.logic.language, parts.dispatcher,
                                          parts.parent);
              }},
    DialogRow{WindowId::addStation, DialogKind::first,
              [](const DialogParts& parts) -> Dialog& {
                  return *new AddStationDialog(parts.logic.addStation, parts.logic.language,
                                               parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::discInfo, DialogKind::first,
              [](const DialogParts& parts) -> Dialog& {
                  return *new DiscInfoDialog(parts.logic.discInfo, parts.logic.discForm,
                                             parts.logic.language, parts.dispatcher, parts.parent);
              }},
    DialogRow{WindowId::discMatch, DialogKind::first,
              [](const DialogParts& parts) -> Dialog& {
                  return *new DiscMatchDialog(parts.logic.discMatch, parts.logic.language,
                                              parts.dispatcher, parts.parent);
              }},
};

} // namespace

std::span<const DialogRow> dialogTable() noexcept {
    return kTable;
}

} // namespace tovik::dialogs
