// SPDX-License-Identifier: GPL-3.0-or-later
// The player's parts with a station player, over stations that a test lets fare as it wants.
#pragma once

#include "player/PlayerRig.h"
#include "radio/StationList.h"
#include "radio/StationPlayer.h"

namespace tovik::test {

class StationRig : public PlayerRig {
protected:
    StationRig();

    /// Starts a station that is not in the list yet; returns the handle of its stream.
    sound::Handle start(const std::string& address = "http://one.example/",
                        const std::string& name = "One");

    /// The stream that was opened last.
    [[nodiscard]] sound::Handle stream() const { return sound_.opened.back(); }

    FakeStations::Station& station() { return sound_.stations.at(stream()); }

    /// The headers come, then it sounds, and the player has seen both.
    void sounds(const std::vector<std::string>& headers = {"ICY 200 OK", "icy-name:Name"});

    /// The stream is over, and the player has seen it.
    void over(sound::StreamStage stage, sound::StreamTrouble trouble = sound::StreamTrouble::none);

    /// What is heard now belongs to that metadata, and the player has seen it.
    void heard(const std::string& metadata);

    /// A look of the player, however seldom it looks.
    void look() { advance(radio::StationPlayer::kPlayingMs); }

    config::MultiLNG language_{host_.paths};
    playlist::stdSS RadioLst_;
    radio::StationPlayer player_{core_, playback_, language_, RadioLst_, host_.folder.path()};
};

} // namespace tovik::test
