// SPDX-License-Identifier: GPL-3.0-or-later
// Saves what a station sends as songs that begin and end with whole frames. The thread that the
// stream comes in on.
#pragma once

#include "base/Comfort.h"
#include "radio/OpenLimit.h"
#include "radio/SavedSong.h"
#include "radio/SoundUnits.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace tovik::radio {

/// How songs are saved, as it was when the button was pressed.
struct SavingWays {
    base::Comfort comfort{};
    std::string folder{};  ///< of the radio's songs
    std::string station{}; ///< its name, as people see it
};

/// A title of the stream, as people see it, that counts behind so many of its bytes.
struct TitleChange {
    std::string title;
    std::uint64_t after = 0;
};

/// A song that a stream that broke off has left.
struct OpenSong {
    std::string path{}; ///< empty: none
    std::string title{};
};

/// Each title begins a file; so does each stream that begins within the stream, where Ogg has them,
/// with the title that stands in it.
class SongSaver {
public:
    SongSaver() = default;

    /// Goes on with that song where the stream goes on with its title.
    explicit SongSaver(const OpenSong& interrupted)
        : interrupted_(interrupted), song_(interrupted) {}

    /// What a block does.
    struct Turn {
        bool recording = false;
        const SavingWays& ways;
        std::vector<TitleChange> titles{}; ///< told since the block before
    };

    struct Answer {
        std::error_code failure{}; ///< told once for a song
        bool ends = false;         ///< nothing else can be saved, either
    };

    /// A block came in; an empty one when the stream has ended.
    [[nodiscard]] Answer take(Bytes block, Turn turn);

    /// Whether what comes in is saved in these ways; true while its kind is not known.
    [[nodiscard]] bool saves(const base::Comfort& comfort) const;

    /// The song that goes on where the stream does: the one whose file was open when it ended.
    [[nodiscard]] const OpenSong& song() const { return song_; }

    /// Of the file that was opened last, or was to be.
    [[nodiscard]] const std::string& path() const { return file_.path(); }

private:
    void takeUnit(const SoundUnit& unit, const Turn& turn, Answer& answer);
    void takeHead(const SoundUnit& unit);
    void applyTitles(const SoundUnit& unit);
    void begin(const Turn& turn, Answer& answer);
    void flush(Answer& answer);

    SoundUnits units_;
    SavedSong file_;
    OpenLimit limit_;
    OpenSong interrupted_{};
    OpenSong song_{};
    std::deque<TitleChange> changes_;
    std::optional<std::string> title_; ///< of the units that come now
    std::string head_;
    bool headOver_ = false;  ///< sound came behind it
    bool headTells_ = false; ///< the title stands in it
    bool cut_ = true;        ///< what comes begins a file
    bool told_ = false;      ///< that what comes in is of no kind that is known
    std::string_view ending_;
    std::string tail_;
    std::vector<std::byte> ready_; ///< for the file
};

} // namespace tovik::radio
