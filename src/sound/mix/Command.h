// SPDX-License-Identifier: GPL-3.0-or-later
// What the interface thread tells the mixer, and what the mixer gives back. Both travel by value
// through lock-free queues; the pointers stay owned by the interface thread, which deletes what
// they point to only after the mixer gave it back.
#pragma once

#include "sound/mix/PeakingFilter.h"

#include <cstdint>
#include <type_traits>
#include <variant>

namespace tovik::sound {

class Feed;
class FrameRing;
class Voice;

namespace command {

struct AddVoice {
    Voice* voice;
};

/// Fades the voice out and gives it back.
struct RemoveVoice {
    Voice* voice;
};

struct StartVoice {
    Voice* voice;
};

/// Starts the voice with the very frame behind the last one of `before`. Where that is stopped or
/// removed first, it does not start.
struct StartBehind {
    Voice* voice;
    Voice* before;
};

/// Fades the voice out and keeps it.
struct StopVoice {
    Voice* voice;
};

/// Goes on with another feed, across a short crossfade; the old one is given back.
struct SwitchFeed {
    Voice* voice;
    Feed* feed;
};

/// Volume 0 to 1, reached after `frames`.
struct SetVolume {
    Voice* voice;
    float volume;
    std::int32_t frames;
};

/// Pan -1 to 1, reached after `frames`.
struct SetPan {
    Voice* voice;
    float pan;
    std::int32_t frames;
};

/// Its share in a crossfade: from silence to all, or from where it stands to silence, in `frames`.
struct Blend {
    Voice* voice;
    bool in;
    std::int32_t frames;
};

struct SetBand {
    Voice* voice;
    std::int32_t band;
    BandCoefficients coefficients;
};

/// The volume of the whole mix, 0 to 1.
struct SetMaster {
    float volume;
};

struct PauseOutput {};

struct ResumeOutput {};

/// The mix is also written to `ring`, until told null.
struct SetCapture {
    FrameRing* ring;
};

/// Changes nothing. What is queued ahead is mixed once more, so that what is noted while somebody
/// looks begins soon.
struct LookAt {
    Voice* voice;
};

} // namespace command

using Command =
    std::variant<command::AddVoice, command::RemoveVoice, command::StartVoice, command::StartBehind,
                 command::StopVoice, command::SwitchFeed, command::SetVolume, command::SetPan, command::Blend,
                 command::SetBand, command::SetMaster, command::PauseOutput, command::ResumeOutput,
                 command::SetCapture, command::LookAt>;

static_assert(std::is_trivially_copyable_v<Command>);

/// What the mixer does not use any more; one of the two is set.
struct Returned {
    Voice* voice = nullptr;
    Feed* feed = nullptr;
};

} // namespace tovik::sound
