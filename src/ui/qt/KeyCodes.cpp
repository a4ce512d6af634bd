// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/KeyCodes.h"

#include <algorithm>
#include <array>

namespace tovik::ui {

namespace {

struct KeyCode {
    int qtKey;
    int code;
};

constexpr auto kKeys = std::to_array<KeyCode>({
    {Qt::Key_Backspace, 0x08},  {Qt::Key_Tab, 0x09},
    {Qt::Key_Backtab, 0x09},    {Qt::Key_Return, 0x0D},
    {Qt::Key_Enter, 0x0D},      {Qt::Key_Pause, 0x13},
    {Qt::Key_Escape, 0x1B},     {Qt::Key_Space, 0x20},
    {Qt::Key_PageUp, 0x21},     {Qt::Key_PageDown, 0x22},
    {Qt::Key_End, 0x23},        {Qt::Key_Home, 0x24},
    {Qt::Key_Left, 0x25},       {Qt::Key_Up, 0x26},
    {Qt::Key_Right, 0x27},      {Qt::Key_Down, 0x28},
    {Qt::Key_Insert, 0x2D},     {Qt::Key_Delete, 0x2E},
    {Qt::Key_Menu, 0x5D},       {Qt::Key_VolumeMute, 0xAD},
    {Qt::Key_VolumeDown, 0xAE}, {Qt::Key_VolumeUp, 0xAF},
    {Qt::Key_MediaNext, 0xB0},  {Qt::Key_MediaPrevious, 0xB1},
    {Qt::Key_MediaStop, 0xB2},  {Qt::Key_MediaTogglePlayPause, 0xB3},
    {Qt::Key_MediaPlay, 0xB3},  {Qt::Key_MediaPause, 0xB3},
    {Qt::Key_Plus, 0xBB},       {Qt::Key_Minus, 0xBD},
});

constexpr auto kNumericPad = std::to_array<KeyCode>({
    {Qt::Key_Asterisk, 0x6A},
    {Qt::Key_Plus, 0x6B},
    {Qt::Key_Minus, 0x6D},
    {Qt::Key_Period, 0x6E},
    {Qt::Key_Comma, 0x6E},
    {Qt::Key_Slash, 0x6F},
});

constexpr int kNumericPadZero = 0x60;
constexpr int kF1 = 0x70;

template <typename Table>
int find(const Table& table, int qtKey) noexcept {
    const auto* const found = std::find_if(
        table.begin(), table.end(), [qtKey](const KeyCode& entry) { return entry.qtKey == qtKey; });
    return found == table.end() ? 0 : found->code;
}

} // namespace

int virtualKeyCode(int qtKey, bool onNumericPad) noexcept {
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) {
        return onNumericPad ? qtKey - Qt::Key_0 + kNumericPadZero : qtKey;
    }
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) {
        return qtKey;
    }
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) {
        return qtKey - Qt::Key_F1 + kF1;
    }
    if (onNumericPad) {
        if (const int code = find(kNumericPad, qtKey); code != 0) {
            return code;
        }
    }
    return find(kKeys, qtKey);
}

Modifiers modifiersOf(Qt::KeyboardModifiers modifiers) noexcept {
    return {.shift = modifiers.testFlag(Qt::ShiftModifier),
            .control = modifiers.testFlag(Qt::ControlModifier),
            .alt = modifiers.testFlag(Qt::AltModifier)};
}

MouseButton mouseButtonOf(Qt::MouseButton button) noexcept {
    switch (button) {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::RightButton:
        return MouseButton::Right;
    case Qt::MiddleButton:
        return MouseButton::Middle;
    default:
        return MouseButton::None;
    }
}

KeyEvent keyEventOf(const QKeyEvent& event) noexcept {
    // What is held with the key of the desktop is the desktop's.
    const bool ours = !event.modifiers().testFlag(Qt::MetaModifier);
    const bool onNumericPad = event.modifiers().testFlag(Qt::KeypadModifier);
    return {.code = ours ? virtualKeyCode(event.key(), onNumericPad) : 0,
            .modifiers = modifiersOf(event.modifiers()),
            .repeated = event.isAutoRepeat()};
}

} // namespace tovik::ui
