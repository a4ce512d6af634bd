// SPDX-License-Identifier: GPL-3.0-or-later
// Saves what a station sends, one file a song. `DoMeta` and `download` belong to the thread of the
// engine that the stream comes in on, the rest to the interface thread.
#pragma once

#include "base/Mutex.h"
#include "radio/clsFileIo.h"
#include "radio/OpenLimit.h"
#include "radio/SongSaver.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tovik::radio {

/// One for each stream, shared with its routines, which outlive it. A change of title takes effect
/// at the block behind it.
class modNetRadio {
public:
    /// Why a song is not saved.
    struct Failure {
        std::error_code why;
        std::string path;
        bool ends; ///< saving ended by itself; else the next song may do better
    };

    /// Files go to `folder` and nowhere else.
    explicit modNetRadio(std::string folder);

    /// The same for the stream that takes the place of a broken one: saving goes on, in the file of
    /// the song that was interrupted, and `broken` saves no more.
    explicit modNetRadio(modNetRadio& broken);

    [[nodiscard]] const std::string& folder() const { return folder_; }

    /// Songs are saved in these ways from now on. With `Comfort::savesPlainSongs`, and for what is
    /// no MPEG audio with `Comfort::savesAnyFormat`, as `SongSaver` does it; else as they come.
    void setWays(SavingWays ways);

    /// Whether the record button is on. Off at first; the file is closed with the next block.
    void setStreamRecording(bool on);
    [[nodiscard]] bool StreamRecording() const;

    /// The full name of the current song's file; empty before the first title.
    [[nodiscard]] std::string StreamFileName() const;

    /// Blocks seen, up to 32767.
    [[nodiscard]] std::int16_t StreamBlocks() const;

    /// Why a song is not saved, once for each.
    [[nodiscard]] std::optional<Failure> takeFailure();

    /// A metadata string came in. The title it had already goes on in the file it has.
    void DoMeta(std::string_view metadata);

    /// A block came in; an empty one when the stream has ended.
    void download(std::span<const std::byte> block);

private:
    /// What a block does, taken from the flags at once.
    struct Turn {
        bool recording = false;
        bool opens = false;
        bool ok = false;
        bool synced = false;
        SongFile how = SongFile::anew;
        std::string name{};
    };

    [[nodiscard]] std::shared_ptr<const SavingWays> waysNow() const;
    [[nodiscard]] OpenSong interruptedSong() const;
    [[nodiscard]] bool saveSongs(std::span<const std::byte> block);
    [[nodiscard]] Turn takeTurn();
    void open(Turn& turn);
    void save(Turn& turn, std::span<const std::byte> block);
    void fail(const Turn& turn);
    void endSaving(const Failure& failure);
    void refuse(const Turn& turn);

    std::string folder_;
    clsFileIo StreamFile_; ///< of the engine's thread alone, as is the next one
    SongSaver songs_;

    mutable base::Mutex mutex_; ///< never held over a file or a call out
    bool StreamRecording_ TOVIK_GUARDED_BY(mutex_) = false;
    std::string StreamFileName_ TOVIK_GUARDED_BY(mutex_);
    bool StreamFileOpen_ TOVIK_GUARDED_BY(mutex_) = false;
    bool StreamFileOk_ TOVIK_GUARDED_BY(mutex_) = false;
    bool StreamSynced_ TOVIK_GUARDED_BY(mutex_) = false;
    std::int16_t StreamBlocks_ TOVIK_GUARDED_BY(mutex_) = 0;
    std::string interrupted_ TOVIK_GUARDED_BY(mutex_); ///< the file that goes on; empty: none
    std::string refused_ TOVIK_GUARDED_BY(mutex_); ///< the file that could not be made; empty: none
    std::optional<Failure> failure_ TOVIK_GUARDED_BY(mutex_);
    OpenLimit limit_ TOVIK_GUARDED_BY(mutex_);
    std::shared_ptr<const SavingWays>
        ways_ TOVIK_GUARDED_BY(mutex_) = std::make_shared<const SavingWays>();
    std::vector<TitleChange> titles_ TOVIK_GUARDED_BY(mutex_); ///< not taken yet
    std::uint64_t fed_ TOVIK_GUARDED_BY(mutex_) = 0;           ///< bytes that `songs_` was given
    OpenSong song_ TOVIK_GUARDED_BY(mutex_);                   ///< of `songs_`
};

} // namespace tovik::radio
