// SPDX-License-Identifier: GPL-3.0-or-later
// ALSA reports to stderr, in eight lines, that a machine has no sound card. The player says that
// itself, in one. Any thread.
#pragma once

namespace tovik::sound {

/// Silences the messages of the ALSA library if it is loaded. Any thread; may be called again.
void silenceAlsaMessages() noexcept;

} // namespace tovik::sound
