// SPDX-License-Identifier: GPL-3.0-or-later
// The player as a remote control has it. The operations do what the Media Player Remote Interfacing
// Specification 2.2 says of them, also where the player's own buttons do something else. Interface
// thread.
#pragma once

#include "commands/Commands.h"
#include "desktop/CoverFiles.h"
#include "desktop/RemoteState.h"
#include "desktop/RowIds.h"
#include "player/Core.h"
#include "player/Playback.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::desktop {

class Remote final : private player::NowPlayingView, private player::TrackEvents {
public:
    /// All of it outlives the object.
    struct Needs {
        const player::Core& core;
        player::Playback& playback;
        const commands::Commands& commands;
        /// May let other calls come meanwhile.
        std::function<bool(const std::string& path)> isThere;
        std::function<void(const std::string& path)> addFile; ///< to the end of the list
    };

    explicit Remote(Needs needs);
    ~Remote() override;
    Remote(const Remote&) = delete;
    Remote& operator=(const Remote&) = delete;

    /// Something of `state()` may be another. Not called for the position.
    std::function<void()> changed{};

    /// The position jumped; it is this one now, in microseconds.
    std::function<void(std::int64_t position)> seeked{};

    /// Another track sounds than before, whose path this is.
    std::function<void(const std::string& path)> started{};

    [[nodiscard]] RemoteState state() const;

    /// In microseconds; 0 while nothing plays.
    [[nodiscard]] std::int64_t Position() const;

    // What a remote control asks for --------------------------------------------------------------

    void Next();
    void Previous();
    void Pause();

    /// False where there is nothing to play or to pause.
    [[nodiscard]] bool PlayPause();

    void Stop();
    void Play();

    /// Takes the track so many microseconds on or back: before its beginning is its beginning,
    /// behind its end the next track.
    void Seek(std::int64_t offset);

    /// Nothing happens for another track than the one that sounds, or a place outside of it.
    void SetPosition(std::string_view trackId, std::int64_t position);

    /// Appends a file of music or an address of the web to the list and plays it. False for what is
    /// neither, a file that cannot be played, and while another one is being opened. An address
    /// that does not answer is known too late.
    [[nodiscard]] bool OpenUri(const std::string& uri);

    /// Whether `OpenUri` still waits for the disk.
    [[nodiscard]] bool opening() const { return opening_; }

    /// "None", "Track" or "Playlist". Repeating one track is not known: false, as for any other.
    [[nodiscard]] bool setLoopStatus(std::string_view status);
    void setShuffle(bool on);

    /// Held to 0 to 1.
    void setVolume(double volume);

    /// Of the track that was reported last; empty where nothing plays or it is a station.
    [[nodiscard]] const std::string& path() const { return report_.path; }

    /// Where the picture of a track may be looked for.
    [[nodiscard]] CoverTags coverTags() const {
        return p_.core.state.comfort.readsEveryFormat ? CoverTags::everyFormat : CoverTags::id3v2;
    }

    /// The picture of the track with this path, as a URL of a file; empty: none. Nothing happens if
    /// another one sounds by now.
    void setArt(const std::string& path, const std::string& url);

    // The list ------------------------------------------------------------------------------------

    /// At most so many rows, round the one that plays, are told.
    static constexpr playlist::Row kMostTracks = 200;

    RowIds rows;

    /// How rows are called outside.
    [[nodiscard]] static std::string pathOf(RowIds::Id row);

    /// The paths of the rows that are told.
    [[nodiscard]] std::vector<std::string> Tracks() const;

    /// The path of the row that plays; `kNoTrack` where none does.
    [[nodiscard]] std::string currentTrack() const;

    /// What is known of a row; without a path for one that is not there.
    [[nodiscard]] RemoteTrack trackOf(std::string_view trackId) const;

    void GoTo(std::string_view trackId);

private:
    void showMode(player::Mode /*mode*/) override { tell(); }

    void showVolumeLevel() override { tell(); }

    void showFacts(const player::NowPlaying& /*playing*/) override { tell(); }

    void showTitles(const player::NowPlaying& /*playing*/) override { tell(); }

    void showSource() override { tell(); }

    void reportTrack(const player::TrackReport& report) override;
    void reportFacts(const player::TrackReport& report) override;
    void reportUnknownTrack(const std::string& path) override;
    void reportNothing(const std::string& format, const std::string& word) override;

    void reportEndOfList() override { tell(); }

    void reportPause() override { tell(); }

    void reportSeek() override;

    /// Empty for what is neither an address nor an absolute path.
    [[nodiscard]] static std::string urlOf(const std::string& path);
    void tell() const;
    [[nodiscard]] bool playing() const;
    [[nodiscard]] std::int64_t length() const;
    [[nodiscard]] playlist::Row playingRow() const;
    [[nodiscard]] playlist::Row rowOfPath(std::string_view trackId) const;
    [[nodiscard]] RemoteTrack current() const;
    using Direction = player::TrackAdvance::Direction;

    void go(commands::CommandId command, Direction direction, bool possible);
    void moveTo(std::int64_t position);

    /// Asks the disk, and holds off whoever wants to open another one meanwhile.
    [[nodiscard]] bool isThere(const std::string& path);

    Needs p_;
    bool opening_ = false;
    player::TrackReport report_{};
    std::string art_;
    std::string known_; ///< the path of the track that was reported last
};

} // namespace tovik::desktop
