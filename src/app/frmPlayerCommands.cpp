// SPDX-License-Identifier: GPL-3.0-or-later
// What each command of the table does here. A command that nothing is bound to does nothing.
#include "app/frmPlayer.h"

#include <array>
#include <utility>

namespace tovik::app {

using commands::CommandId;
using window::TimeDisplay;

void frmPlayer::bindCommands() {
    bindPlaying();
    bindAdvance();
    bindPanels();
    bindModes();
    bindEqualizer();
    commands_.bind(CommandId::exit, [this] { host_.closing.request(); });
    commands_.bind(CommandId::minimise, [this] { window_.minimise(); });
    window::enableButtons(view_.elements, commands_);
}

void frmPlayer::bindPlaying() {
    commands_.bind(CommandId::play, [this] { playback_.rows.button_play(); });
    commands_.bind(CommandId::pause, [this] { playback_.transport.button_pause(); });
    commands_.bind(CommandId::stop, [this] { playback_.transport.button_stop(); });
    commands_.bind(CommandId::backFiveSeconds, [this] { playback_.transport.five_seconds_bck(); });
    commands_.bind(CommandId::forwardFiveSeconds,
                   [this] { playback_.transport.five_seconds_fwd(); });
    commands_.bind(CommandId::startOfList, [this] { playItem(0); });
    commands_.bind(CommandId::endOfList, [this] { playItem(List1_.ListCount() - 1); });
    commands_.bind(CommandId::stopAfterCurrent,
                   {.run =
                        [this] {
                            state_.StopAfterCurrent = !state_.StopAfterCurrent;
                            screen_.showStopNote();
                        },
                    .checked = [this] { return state_.StopAfterCurrent; }});
}

void frmPlayer::bindAdvance() {
    commands_.bind(CommandId::next, [this] { playback_.advance.Next_track(); });
    commands_.bind(CommandId::previous, [this] { playback_.advance.last_track(); });
    commands_.bind(CommandId::nextButton, [this] { playback_.advance.button_next(); });
    commands_.bind(CommandId::previousButton, [this] { playback_.advance.button_previous(); });
    commands_.bind(CommandId::tenTracksForward, [this] { playback_.advance.ten_tracks_fwd(); });
    commands_.bind(CommandId::tenTracksBack, [this] { playback_.advance.ten_track_bck(); });
    commands_.bind(CommandId::stopWithFadeout, [this] { playback_.fadeOut.FadeOutTrack(); });
    commands_.bind(CommandId::shuffle, {.run = [this] { playback_.advance.button_shuffle(); },
                                        .checked = [this] { return state_.ShuffleOn; }});
    commands_.bind(CommandId::repeat, {.run = [this] { playback_.advance.button_loop(); },
                                       .checked = [this] { return state_.RepeatOn; }});
    commands_.bind(CommandId::crossfade, {.run = [this] { playback_.crossfade.button_cfd(); },
                                          .checked = [this] { return state_.CrossfadeOn; }});
    commands_.bind(CommandId::silenceSkip, {.run = [this] { playback_.silenceSkip.button_sld(); },
                                            .checked = [this] { return state_.SilenceSkipOn; }});
}

void frmPlayer::playItem(std::int32_t item) {
    List1_.ListIndex(item);
    playback_.rows.List1_DblClick();
}

void frmPlayer::bindPanels() {
    static constexpr std::array<std::pair<CommandId, const char*>, 5> kPanels = {{
        {CommandId::mainPanel, "10000"},
        {CommandId::equalizerPanel, "01000"},
        {CommandId::playlistPanel, "00100"},
        {CommandId::ripPanel, "00010"},
        {CommandId::radioPanel, "00001"},
    }};
    for (const auto& [id, mask] : kPanels) {
        commands_.bind(id, [this, mask = mask] { view_.panels.Switch_Win(mask); });
    }
    commands_.bind(CommandId::foldQuickList, {.run = [this] { view_.panels.FlipQuickList(); },
                                              .checked = [this] { return state_.QuickListOpen; }});
}

void frmPlayer::bindModes() {
    commands_.bind(CommandId::alwaysOnTop,
                   {.run = [this] { mnuTop(); }, .checked = [this] { return staysOnTop(); }});
    for (const auto& [id, mode] : {std::pair(CommandId::timeElapsed, TimeDisplay::kElapsed),
                                   std::pair(CommandId::timeRemaining, TimeDisplay::kRemaining)}) {
        commands_.bind(id,
                       {.run = [this, mode = mode] { view_.timeDisplay.choose(mode); },
                        .checked = [this, mode = mode] { return state_.TimeDisplayMode == mode; }});
    }
}

void frmPlayer::bindEqualizer() {
    commands_.bind(CommandId::equalizer, {.run = [this] { equalizer_.flip(); },
                                          .checked = [this] { return state_.EqualizerOn; }});
    commands_.bind(CommandId::resetEqualizer, [this] { equalizer_.resetbt_Click(); });
    // The button's menu is not there yet: its first entry answers.
    for (const CommandId id : {CommandId::loadPreset, CommandId::presetMenu}) {
        commands_.bind(id, [this] { window_.showLoadPreset(loadPreset_); });
    }
    commands_.bind(CommandId::loadPresetFile, [this] { equalizerFiles_.load_teq(); });
    commands_.bind(CommandId::savePresetFile, [this] { equalizerFiles_.save_teq(); });
}

bool frmPlayer::staysOnTop() {
    stored_.read("ASOT");
    return state_.AlwaysOnTop == 1;
}

void frmPlayer::mnuTop() {
    // The setting is what is toggled, whatever the window does.
    const bool topmost = !staysOnTop();
    window_.setTopmost(topmost);
    state_.AlwaysOnTop = topmost ? 1 : 0;
    stored_.save("ASOT");
}

} // namespace tovik::app
