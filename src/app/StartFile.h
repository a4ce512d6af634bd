// SPDX-License-Identifier: GPL-3.0-or-later
// The file that the program was started with. Interface thread.
#pragma once

#include "player/Core.h"
#include "player/Playback.h"
#include "playlist/PlaylistFiles.h"
#include "tags/cMP3ID3v1.h"

#include <cstdint>
#include <string>

namespace tovik::app {

class StartFile {
public:
    /// `commandLine` as `StartOptions` has it. All of them outlive the object.
    StartFile(const player::Core& core, player::Playback& playback, playlist::PlaylistFiles& files,
              tags::cMP3ID3v1& tag, const std::string& commandLine)
        : core_(core), playback_(playback), files_(files), tag_(tag), commandLine_(commandLine) {}

    // Steps of the start --------------------------------------------------------------------------

    void readCommandLine();

    /// Plays the file or the list; what cannot be read is told.
    void openArgument();

    // While the player runs -----------------------------------------------------------------------

    /// The file or the list takes the place of the list, and plays. Raises what reading it raises;
    /// the list is then empty.
    void playHandedOver(const std::string& path);

private:
    enum class From : std::uint8_t { start, otherInstance };

    void play(const std::string& path, From from);
    void playAddress(const std::string& address);
    void playList();
    void playFile(const std::string& path, From from);

    const player::Core& core_;
    player::Playback& playback_;
    playlist::PlaylistFiles& files_;
    tags::cMP3ID3v1& tag_;
    const std::string& commandLine_;
};

} // namespace tovik::app
