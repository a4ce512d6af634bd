// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the player with what they do. Whoever composes the player binds them. Interface
// thread.
#pragma once

#include "commands/CommandTable.h"

#include <functional>
#include <optional>
#include <vector>

namespace tovik::commands {

class Commands {
public:
    /// What a command does and shows; each asked for when it is needed.
    struct Target {
        std::function<void()> run;
        std::function<bool()> checked{}; ///< none: it is never checked
        std::function<bool()> enabled{}; ///< none: whenever it is bound
        std::function<bool()> shown{};   ///< whether menus have it; none: whoever made them knows
    };

    Commands();

    /// Gives a command its target, in place of the one it had. Raises 9 for `none`.
    void bind(CommandId id, Target target);

    void bind(CommandId id, std::function<void()> run) { bind(id, Target{std::move(run)}); }

    /// Whether the command has a target. False for `none`.
    [[nodiscard]] bool bound(CommandId id) const { return static_cast<bool>(target(id).run); }

    /// False for `none` and for a command without a target.
    [[nodiscard]] bool enabled(CommandId id) const;

    [[nodiscard]] bool checked(CommandId id) const;

    /// Whether menus have it; none for a command that does not say so.
    [[nodiscard]] std::optional<bool> shown(CommandId id) const;

    /// Runs a command that is enabled; another does nothing. Returns whether it ran. Raises what
    /// the operation raises.
    bool run(CommandId id) const;

private:
    [[nodiscard]] const Target& target(CommandId id) const;

    std::vector<Target> targets_; ///< by number
};

} // namespace tovik::commands
