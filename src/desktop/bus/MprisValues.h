// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of tracks as the bus has it. Any thread.
#pragma once

#include "desktop/RemoteState.h"

#include <QVariant>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::desktop {

[[nodiscard]] QString textOf(std::string_view text);

/// A track by its path.
[[nodiscard]] QVariant trackValue(const std::string& path);

[[nodiscard]] QVariant tracksValue(const std::vector<std::string>& paths);

/// A track as the bus has it.
[[nodiscard]] QVariantMap metadataOf(const RemoteTrack& track);

/// Whether two values of a property are the same one.
[[nodiscard]] bool sameValue(const QVariant& left, const QVariant& right);

} // namespace tovik::desktop
