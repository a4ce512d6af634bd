// SPDX-License-Identifier: GPL-3.0-or-later
// The record of what is sounding and of the flags in force. The main window owns it; the parts of
// the player share it. Interface thread.
#pragma once

#include "base/Comfort.h"
#include "sound/api/Types.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tovik::player {

/// Which channel the clock and the seek commands read.
enum class ChannelSlot : std::int16_t { none = 0, primary = 1, secondary = 2 };

struct PlayerState {
    sound::Handle PrimaryChannel = sound::kNoHandle;   ///< plain starts, and one leg of a crossfade
    sound::Handle SecondaryChannel = sound::kNoHandle; ///< the other leg
    sound::Handle SpareChannelC = sound::kNoHandle;    ///< freed with the others, never made
    sound::Handle SpareChannelD = sound::kNoHandle;

    /// The leg that counts as the current one: 2 is the primary channel, 1 the secondary, 0
    /// neither.
    std::int16_t CrossfadeLeg = 0;

    bool IsPlaying = false; ///< a channel was started and not stopped; stays true while paused
    bool IsPaused = false;
    bool ShuffleOn = false;
    bool RepeatOn = false;
    bool CrossfadeOn = false;
    bool SilenceSkipOn = false;
    bool IsWmaStream = false;
    bool EqualizerOn = false;
    bool MiniModeOn = false;    ///< the mini window is in use in the place of the main one
    bool MiniModeShown = false; ///< and was shown since
    bool RippingNow = false;
    bool MessengerOn = false;
    bool StopAfterCurrent = false;      ///< the next end of a track stops instead of advancing
    std::int16_t CurrentVisPlugin = -1; ///< -1 none, 0 the built-in spectrum, else a plug-in
    std::int16_t CurrentVolume = 0;     ///< 0 to 100
    std::int16_t ShowInTaskbar = 0;
    std::int16_t BalanceValue = 0; ///< -100 to 100 in steps of 25
    std::int16_t MultipleInstances = 0;
    std::int16_t AlwaysOnTop = 0;
    std::int16_t AssociateAtStart = 0;
    std::int16_t CheckUpdates = 0;
    bool ShowSplash = false;
    bool DirAddIdle = false;
    std::string LanguageFile;
    std::string CurrentTitle; ///< the title shown for the playing row

    /// How many tracks were started since the count was last cleared; tells a plain start from a
    /// crossfade.
    std::int32_t TracksStarted = 0;

    ChannelSlot ActiveChannel = ChannelSlot::none;
    std::int16_t TimeDisplayMode = 0; ///< 0 elapsed, 1 remaining
    std::vector<std::string> CommandArgs;
    bool NoCommandLine = true;
    bool FirstRun = false;
    bool LoadFinished = false;
    bool BuiltinVisOn = false;
    bool VisOn = false;
    bool ClearCounterOnPlay = false; ///< the next play from the list starts plainly
    std::int16_t SilenceTicks = 0;

    std::string TrackInfoMode; ///< "Mono" or "Stereo"
    std::string TrackInfoText; ///< such as "128 kbps  44 KHZ"

    /// 0: the volume is set per channel; anything else: it goes to the whole output.
    std::int16_t GlobalVolumeMode = 0;

    /// Where the main window stood when the settings were read or stored, in twips.
    std::int32_t WindowLeft = 0;
    std::int32_t WindowTop = 0;

    /// The row and the second where the last session ended, "12 95"; empty: nothing is known.
    std::string ResumePlace;

    /// Where the other windows stood, by their names, in pixels: "mini 120 45;frmAbout 300 200".
    std::string WindowPlaces;

    base::Comfort comfort;            ///< kinder behaviour, all off at first
    std::optional<bool> ComfortOfRun; ///< all of it on or off, whatever the settings say

    std::int16_t CurrentPanel = 1;
    bool QuickListOpen = false;
    std::int16_t PanelLock = 0;    ///< other than 0: panels cannot be switched
    bool RadioPanelActive = false; ///< the radio's panel is shown

    bool RadioMode = false;       ///< a radio stream is the current source
    bool RadioPlaying = false;    ///< a station was started in this session
    std::int32_t HeardBefore = 0; ///< seconds heard of the station before it was opened again
    bool StreamRecording = false; ///< that stream is being written to a file
    bool RipRunning = false;
    bool RipSparesSound = false; ///< the job that runs has a device of its own

    /// A rip gives the sound library back again and again: what would start now ends with it. How
    /// the job began counts, not what the switch says by now.
    [[nodiscard]] bool ripHoldsSound() const { return RipRunning && !RipSparesSound; }

    /// A station has the primary channel, and no leg is set up.
    [[nodiscard]] bool playsStation() const { return RadioMode && CrossfadeLeg == 0; }

    /// The channel that the clock and the seek commands read, or none.
    [[nodiscard]] sound::Handle active() const {
        switch (ActiveChannel) {
        case ChannelSlot::primary:
            return PrimaryChannel;
        case ChannelSlot::secondary:
            return SecondaryChannel;
        case ChannelSlot::none:
            break;
        }
        return sound::kNoHandle;
    }
};

} // namespace tovik::player
