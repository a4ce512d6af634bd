// SPDX-License-Identifier: GPL-3.0-or-later
// Keys of accelerators as text, in the form "Ctrl+Alt+Shift+K", the same on every desktop and in
// every language. Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovik::ui {
struct KeyEvent;
}

namespace tovik::menus {

/// A key with its shift state.
struct AcceleratorKey {
    // The bits of a shift state.
    static constexpr int kShift = 1;
    static constexpr int kCtrl = 2;
    static constexpr int kAlt = 4;

    int keyCode = 0; ///< as the published virtual-key codes have it
    int shift = 0;

    friend constexpr bool operator==(const AcceleratorKey&, const AcceleratorKey&) = default;
};

/// The key that was pressed, as it would be an accelerator.
[[nodiscard]] AcceleratorKey acceleratorKeyOf(const ui::KeyEvent& event) noexcept;

/// Empty for a key that has no name: it cannot be an accelerator.
[[nodiscard]] std::string acceleratorText(const AcceleratorKey& key);

/// The key that a text means; ASCII case and the order of the modifiers do not count. Nothing when
/// it means none.
[[nodiscard]] std::optional<AcceleratorKey> acceleratorOf(std::string_view text);

/// Whether both mean the same key, or are the same text. An empty one is never the same as any.
[[nodiscard]] bool sameAccelerator(std::string_view one, std::string_view other);

} // namespace tovik::menus
