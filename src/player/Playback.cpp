// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Playback.h"

namespace tovik::player {

Playback::Playback(const Core& core, tags::cMP3ID3v1& tag, StartEqualizer& equalizer,
                   const PlayerHandle& window, host::RandomNumbers& random)
    : time(core.sound), volume(core), balance(core),
      starter(core, volume, balance, equalizer, window), facts(core, tag), clock(core),
      silenceSkip(core, crossfade), crossfade(core, starter, facts, clock, fadeOut),
      fadeOut(core, [this] { transport.button_stop(); }),
      transport(core, starter, facts, clock, fadeOut), rows(core, transport, crossfade, facts),
      seamless(core, starter, facts), advance(core, transport, rows, fadeOut, seamless, random),
      seek(core, clock) {
    clock.setEnd(advance);
    silenceSkip.setEnd(advance);
}

void Playback::setAddresses(AddressPlayer& addresses) {
    transport.setAddresses(addresses);
    crossfade.setAddresses(addresses);
}

} // namespace tovik::player
