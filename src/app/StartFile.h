// SPDX-License-Identifier: GPL-3.0-or-later
// The file that the program was started with. Interface thread.
#pragma once

#include "base/CommandText.h"
#include "player/Core.h"
#include "player/Playback.h"
#include "playlist/AddMedia.h"
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

    /// Who adds files, and whether the list of this session is kept for the next one. To be called
    /// before the start.
    void attach(playlist::AddMedia& media, bool keepsList) {
        media_ = &media;
        keepsList_ = keepsList;
    }

    /// Whether the saved list is read in this session: a deliberate oddity leaves it out of one
    /// that began with a file, unless `Comfort::keepsListOfFileStart` says otherwise.
    [[nodiscard]] bool readsSavedList() const;

    // Steps of the start --------------------------------------------------------------------------

    void readCommandLine();

    /// Plays the file or the list; what cannot be read is told. Where the saved list is
    /// read, too, all files of the command line are added in front of it.
    void openArgument();

    // While the player runs -----------------------------------------------------------------------

    /// The file or the list takes the place of the list, and plays. Raises what reading it raises;
    /// the list is then empty, or as it was for a file that is not there if
    /// `Comfort::keepsListForMissing` says so.
    void playHandedOver(const std::string& path);

    /// Appends the files of a command line, and starts the first row that they bring unless they
    /// are only to be added. Raises as `AddMedia::add` does.
    void add(const base::CommandWords& words);

private:
    enum class From : std::uint8_t { start, otherInstance };

    void play(const std::string& path, From from);
    void playAddress(const std::string& address);
    void playList();
    void playFile(const std::string& path, From from);

    /// Artist and title of its tag, where they are to be read here.
    [[nodiscard]] std::optional<std::string> taggedTitle(const std::string& path);

    /// The same, or its name.
    [[nodiscard]] std::string titleOf(const std::string& path);

    const player::Core& core_;
    player::Playback& playback_;
    playlist::PlaylistFiles& files_;
    tags::cMP3ID3v1& tag_;
    const std::string& commandLine_;
    playlist::AddMedia* media_ = nullptr;
    bool keepsList_ = true;
};

} // namespace tovik::app
