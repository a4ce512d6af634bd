// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/Commands.h"

#include <utility>

namespace tovik::commands {

Commands::Commands() : targets_(commandTable().size() + 1) {}

void Commands::bind(CommandId id, Target target) {
    targets_.at(static_cast<std::size_t>(commandOf(id).id)) = std::move(target);
}

const Commands::Target& Commands::target(CommandId id) const {
    return targets_.at(static_cast<std::size_t>(id));
}

bool Commands::enabled(CommandId id) const {
    const Target& found = target(id);
    return found.run && (!found.enabled || found.enabled());
}

bool Commands::checked(CommandId id) const {
    const Target& found = target(id);
    return found.checked && found.checked();
}

std::optional<bool> Commands::shown(CommandId id) const {
    const Target& found = target(id);
    return found.shown ? std::optional(found.shown()) : std::nullopt;
}

bool Commands::run(CommandId id) const {
    if (!enabled(id)) {
        return false;
    }
    target(id).run();
    return true;
}

} // namespace tovik::commands
