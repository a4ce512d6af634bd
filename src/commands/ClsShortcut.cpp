// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/ClsShortcut.h"

#include <algorithm>
#include <array>

namespace tovik::commands {

namespace {

using Id = CommandId;
using Row = ClsShortcut::Shortcut;

constexpr int kNone = 0;
constexpr int kCtrl = ClsShortcut::kCtrl;
constexpr int kAlt = ClsShortcut::kAlt;

constexpr int kEscape = 27;
constexpr int kLeft = 0x25;
constexpr int kRight = 0x27;
constexpr int kNumeric1 = 0x61;
constexpr int kNumeric3 = 0x63;
constexpr int kF1 = 0x70;

constexpr auto kMap = std::to_array<Row>({
    {kNone, 'J', Id::musicSearch},
    {kNone, kF1, Id::about},
    {kNone, '1', Id::mainPanel},
    {kNone, '2', Id::equalizerPanel},
    {kNone, '3', Id::playlistPanel},
    {kNone, '4', Id::ripPanel},
    {kNone, '5', Id::radioPanel},
    {kNone, '6', Id::preferences},
    {kNone, 'Z', Id::previous},
    {kNone, 'X', Id::play},
    {kNone, 'C', Id::pause},
    {kNone, 'V', Id::stop},
    {kNone, 'B', Id::next},
    {kNone, kLeft, Id::backFiveSeconds},
    {kNone, kRight, Id::forwardFiveSeconds},
    {kNone, kNumeric1, Id::tenTracksBack},
    {kNone, kNumeric3, Id::tenTracksForward},
    {kCtrl, 'D', Id::addFolder},
    {kCtrl, 'F', Id::addFile},
    {kCtrl, 'P', Id::preferences},
    {kCtrl, 'W', Id::miniMode},
    {kCtrl, 'J', Id::jumpToTrack},
    {kCtrl, 'S', Id::loadPreset},
    {kCtrl, 'M', Id::stopAfterCurrent},
    {kAlt, 'X', Id::exit},
    {kAlt, '3', Id::editTag},
    {kAlt, 'A', Id::jumpToTime},
    {kCtrl, 'Z', Id::undoList},
});

} // namespace

std::span<const ClsShortcut::Shortcut> ClsShortcut::map() noexcept {
    return kMap;
}

bool ClsShortcut::ShortCut(int keyCode, int shift) const {
    const auto* const found = std::ranges::find_if(
        kMap, [&](const Row& row) { return row.keyCode == keyCode && row.shift == shift; });
    if (found == kMap.end()) {
        return false;
    }
    commands_.run(found->command);
    return true;
}

bool ClsShortcut::UnloadShortCut(const std::function<void()>& unload, int keyCode) {
    if (keyCode != kEscape) {
        return false;
    }
    unload();
    return true;
}

} // namespace tovik::commands
