// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop offers beside windows, as the logic knows it: a place for a small icon, and a
// bar with words that shows for a moment. Interface thread.
#pragma once

#include "window/ScreenPlace.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tovik::window {

/// The bytes of a tooltip with the NUL behind it.
inline constexpr std::size_t kTipBytes = 64;

/// What the shell is told of an icon; the members and their numbers are those that it publishes.
struct NotifyIconData {
    static constexpr std::uint32_t kMessage = 1;
    static constexpr std::uint32_t kIcon = 2;
    static constexpr std::uint32_t kTip = 4;

    std::uint32_t cbSize = 88;
    std::uintptr_t hWnd = 0; ///< the owner
    std::uint32_t uID = 1;
    std::uint32_t uFlags = kMessage | kIcon | kTip;
    std::uint32_t uCallbackMessage = 0x0200;
    std::int16_t hIcon = 0; ///< the style, from 1
    std::array<char, kTipBytes> szTip{};
};

enum class NotifyCommand : std::uint8_t { add, modify, remove };

/// What happens to an icon that was added.
struct NotifyEvents {
    std::function<void(std::int32_t x)> callback; ///< a message number, times 15
    std::function<void(double notches)> wheel;    ///< positive away from the user
    std::function<void()> middleClick;
    /// `NotifyArea::taken` became another, but for what removing the icon did.
    std::function<void()> takenChanged;
};

/// As made it is a desktop without such a place.
class NotifyArea {
public:
    NotifyArea() = default;
    virtual ~NotifyArea() = default;
    NotifyArea(const NotifyArea&) = delete;
    NotifyArea& operator=(const NotifyArea&) = delete;

    /// Never waits for the desktop; whether the call could be made.
    virtual bool notify(NotifyCommand /*command*/, const NotifyIconData& /*data*/) { return false; }

    /// Somebody shows icons and took the one that was added: the user can click on it.
    [[nodiscard]] virtual bool taken() const { return false; }

    /// It is not known yet whether somebody takes the one that was added. When it is,
    /// `takenChanged` is told, unless `taken` is again what it was before the icon was removed and
    /// added.
    [[nodiscard]] virtual bool asking() const { return false; }

    /// Whom to tell; nobody any more with empty ones.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who keeps it moves it
    virtual void setEvents(NotifyEvents /*events*/) {}

    /// What the next activation by the desktop brought along for who shows a window; once.
    [[nodiscard]] virtual std::string takeToken() { return {}; }

    /// Where the desktop wants the menu that it asks for now; once, and none where it does not say.
    [[nodiscard]] virtual std::optional<ScreenPlace> takePlace() { return std::nullopt; }
};

/// Words on the screen that the player is on, across its top as made, or in a notification of the
/// desktop.
struct TitleBar {
    std::string text; ///< bytes: valid UTF-8, or else Windows-1252
    bool asNotification = false;
    bool small = false; ///< no wider than its words, in the corner of the screen near the tray
    int heightTwips = 560;
    int opacityPercent = 30;
};

/// As made it shows nothing.
class TitlePopup {
public:
    TitlePopup() = default;
    virtual ~TitlePopup() = default;
    TitlePopup(const TitlePopup&) = delete;
    TitlePopup& operator=(const TitlePopup&) = delete;

    /// Shows the bar, or other words on it; it never takes the keyboard.
    virtual void show(const TitleBar& /*bar*/) {}

    virtual void hide() {}

    /// Who is told the key codes that come to the bar all the same.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who keeps it moves it
    virtual void setKey(std::function<void(int keyCode)> /*key*/) {}
};

/// Both outlive who holds it.
struct Shell {
    NotifyArea& area;
    TitlePopup& popup;
};

} // namespace tovik::window
