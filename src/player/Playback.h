// SPDX-License-Identifier: GPL-3.0-or-later
// The parts that make tracks sound and follow each other, put together. Interface thread.
#pragma once

#include "host/RandomNumbers.h"
#include "player/AddressPlayer.h"
#include "player/Balance.h"
#include "player/CBASS_TIME.h"
#include "player/Core.h"
#include "player/Crossfade.h"
#include "player/FadeOut.h"
#include "player/PlaybackClock.h"
#include "player/PlayerHandle.h"
#include "player/RowPlayer.h"
#include "player/SeamlessNext.h"
#include "player/SilenceSkip.h"
#include "player/TrackAdvance.h"
#include "player/TrackFacts.h"
#include "player/TrackSeek.h"
#include "player/TrackStarter.h"
#include "player/Transport.h"
#include "player/Volume.h"

namespace tovik::player {

/// The parts are used as they are; no timer ticks yet.
struct Playback {
    /// All of them outlive the parts.
    Playback(const Core& core, tags::cMP3ID3v1& tag, StartEqualizer& equalizer,
             const PlayerHandle& window, host::RandomNumbers& random);

    /// Who plays addresses of the web; before anything is started. Outlives the parts.
    void setAddresses(AddressPlayer& addresses);

    CBASS_TIME time;
    Volume volume;
    Balance balance;
    TrackStarter starter;
    TrackFacts facts;
    PlaybackClock clock;
    SilenceSkip silenceSkip; ///< ticks in front of a crossfade's end that is due at the same time
    Crossfade crossfade;
    FadeOut fadeOut;
    Transport transport;
    RowPlayer rows;
    SeamlessNext seamless;
    TrackAdvance advance;
    TrackSeek seek;
};

} // namespace tovik::player
