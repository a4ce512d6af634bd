// SPDX-License-Identifier: GPL-3.0-or-later
// The files and stations that something dragged onto a window stands for. Any thread.
#pragma once

#include <QMimeData>
#include <string>
#include <vector>

namespace tovik::ui {

/// The paths of the local files among the addresses, in their order, byte for byte, and addresses
/// of the web ("http", "https") as they stand; those of other kinds or other machines are left out.
[[nodiscard]] std::vector<std::string> droppedPaths(const QMimeData& data);

/// Whether there is at least one such path.
[[nodiscard]] bool offersFiles(const QMimeData& data);

} // namespace tovik::ui
