// SPDX-License-Identifier: GPL-3.0-or-later
// The fixed keyboard map, the same in every window of the program. Interface thread.
#pragma once

#include "commands/Commands.h"

#include <functional>
#include <span>

namespace tovik::commands {

class ClsShortcut {
public:
    // The bits of a shift state.
    static constexpr int kShift = 1;
    static constexpr int kCtrl = 2;
    static constexpr int kAlt = 4;

    struct Shortcut {
        int shift = 0;
        int keyCode = 0; ///< as the published virtual-key codes have it
        CommandId command{};
    };

    [[nodiscard]] static std::span<const Shortcut> map() noexcept;

    /// The commands outlive the object.
    explicit ClsShortcut(const Commands& commands) : commands_(commands) {}

    /// What the keys run.
    [[nodiscard]] const Commands& commands() const { return commands_; }

    /// A key went down, with that shift state and no other. Returns whether it is in the map,
    /// also when its command can do nothing just now. Raises what the command raises.
    // NOLINTNEXTLINE(bugprone-easily-swappable-parameters)
    [[nodiscard]] bool ShortCut(int keyCode, int shift) const;

    /// Runs `unload`, which closes a window, if the key is Escape. Returns whether it is.
    static bool UnloadShortCut(const std::function<void()>& unload, int keyCode);

private:
    const Commands& commands_;
};

} // namespace tovik::commands
