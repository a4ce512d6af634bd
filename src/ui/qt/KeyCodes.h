// SPDX-License-Identifier: GPL-3.0-or-later
// Keys and mouse events of Qt in the terms of `WindowInput`. Any thread.
#pragma once

#include "ui/WindowInput.h"

#include <QKeyEvent>

namespace tovik::ui {

/// The virtual-key code of a key, 0 when it has none. Digits of the numeric pad have their own.
[[nodiscard]] int virtualKeyCode(int qtKey, bool onNumericPad) noexcept;

[[nodiscard]] Modifiers modifiersOf(Qt::KeyboardModifiers modifiers) noexcept;

[[nodiscard]] MouseButton mouseButtonOf(Qt::MouseButton button) noexcept;

[[nodiscard]] KeyEvent keyEventOf(const QKeyEvent& event) noexcept;

} // namespace tovik::ui
