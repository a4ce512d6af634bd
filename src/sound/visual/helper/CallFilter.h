// SPDX-License-Identifier: GPL-3.0-or-later
// Which calls of the kernel the process of a plug-in may not make. The one thread of that process.
#pragma once

namespace tovik::visual {

/// From here on they are refused: whatever reaches another process, starts one, changes a file or
/// goes to the network. False where this machine or kernel cannot do that.
[[nodiscard]] bool filterCalls();

} // namespace tovik::visual
