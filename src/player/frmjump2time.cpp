// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmjump2time.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/TimeText.h"

#include <algorithm>

namespace tovik::player {

namespace {

/// The parts between colons, each at least two characters long, as `GetSeconds` counts them.
std::string inTwoDigits(std::string_view text) {
    std::string time;
    while (true) {
        const std::size_t end = std::min(text.find(':'), text.size());
        if (end == 1) {
            time += '0';
        }
        time += text.substr(0, end);
        if (end == text.size()) {
            return time;
        }
        time += ':';
        text.remove_prefix(end + 1);
    }
}

} // namespace

std::optional<std::int32_t> typedSeconds(std::string_view text) {
    const std::string_view typed = base::trimmed(text);
    std::string time = inTwoDigits(typed);
    if (std::ranges::count(time, ':') == 1) {
        time.insert(0, "00:");
    }
    try {
        return CBASS_TIME::GetSeconds(time);
    } catch (const base::RuntimeError&) {
        return std::nullopt;
    }
}

/// A deliberate oddity: without the hours it is another place.
std::string frmjump2time::shown(std::int32_t seconds) const {
    return core_.state.comfort.showsHours ? base::shortTime(seconds) : base::lastFive(seconds);
}

std::string frmjump2time::lbldur() const {
    return shown(time_.GetDuration(core_.state.active()));
}

std::string frmjump2time::Text1() const {
    return shown(core_.state.RadioMode ? 0 : time_.GetPlayingPos(core_.state.active()));
}

bool frmjump2time::Command1_Click(std::string_view text) const {
    const auto seconds = typedSeconds(text);
    if (!seconds) {
        return false;
    }
    const PlayerState& state = core_.state;
    if (state.RadioMode) {
        return true; // a stream has no other place to go to
    }
    time_.SetPlayingPos(state.active(), *seconds, false);
    if (crossfade_.runs()) {
        const bool primary = state.ActiveChannel == ChannelSlot::primary;
        time_.SetPlayingPos(primary ? state.SecondaryChannel : state.PrimaryChannel, *seconds,
                            false);
    }
    return true;
}

} // namespace tovik::player
