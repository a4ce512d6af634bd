// SPDX-License-Identifier: GPL-3.0-or-later
// The wing of what sounds: the sound library from its check to its end, and the parts that make
// tracks play and follow each other. Interface thread.
#pragma once

#include "app/Process.h"
#include "commands/Commands.h"
#include "host/Host.h"
#include "player/Playback.h"
#include "player/TrackEvents.h"
#include "tags/cMP3ID3v1.h"
#include "tags/TagWarning.h"

#include <string>

namespace tovik::app {

/// The parts are used as they are.
class Music final : private playlist::ListEvents {
public:
    /// All of them outlive the wing.
    Music(const player::Core& core, player::StartEqualizer& equalizer,
          const player::PlayerHandle& window, const host::Host& host, Process& process);
    ~Music() override;
    Music(const Music&) = delete;
    Music& operator=(const Music&) = delete;

    /// Something is played that has not come to its end, or what follows it will be.
    [[nodiscard]] bool sounds() const;

    /// What plays does not end by itself.
    [[nodiscard]] bool playsForEver() const;

    void bind(commands::Commands& commands);

    // Steps of the start and the end --------------------------------------------------------------

    void checkSoundLibrary();
    void openSound();
    void openRecording();
    void applyBalance();
    void tellNothingPlays();
    void freeSound();

private:
    void bindPlaying(commands::Commands& commands);
    void bindAdvance(commands::Commands& commands);

    /// A row was started from the list.
    void Play(const std::string& itemData) override;

    const player::Core& core_;
    const player::PlayerHandle& window_;
    Process& process_;

public:
    tags::TagWarning tagWarning;
    tags::cMP3ID3v1 tag;
    player::Playback playback;
};

} // namespace tovik::app
