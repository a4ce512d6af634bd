// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/modNetRadio.h"

#include "base/PathText.h"
#include "radio/StreamTitle.h"

#include <limits>
#include <utility>

namespace tovik::radio {

using base::MutexLock;

namespace {

/// Between two blocks.
constexpr std::size_t kMostTitles = 64;

} // namespace

modNetRadio::modNetRadio(std::string folder) : folder_(std::move(folder)) {}

modNetRadio::modNetRadio(modNetRadio& broken)
    : folder_(broken.folder_), songs_(broken.interruptedSong()) {
    const MutexLock lock(broken.mutex_);
    const MutexLock own(mutex_);
    StreamRecording_ = std::exchange(broken.StreamRecording_, false);
    StreamFileName_ = broken.StreamFileName_;
    const bool opened = StreamRecording_ && broken.StreamFileOpen_ && broken.StreamFileOk_;
    interrupted_ = opened ? broken.StreamFileName_ : broken.interrupted_;
    refused_ = broken.refused_;
    limit_ = broken.limit_;
    ways_ = broken.ways_;
    song_ = broken.song_;
    failure_ = std::exchange(broken.failure_, std::nullopt);
}

std::shared_ptr<const SavingWays> modNetRadio::waysNow() const {
    const MutexLock lock(mutex_);
    return ways_;
}

OpenSong modNetRadio::interruptedSong() const {
    const MutexLock lock(mutex_);
    return StreamRecording_ ? song_ : OpenSong();
}

void modNetRadio::setWays(SavingWays ways) {
    auto shared = std::make_shared<const SavingWays>(std::move(ways));
    const MutexLock lock(mutex_);
    ways_ = std::move(shared);
}

void modNetRadio::setStreamRecording(bool on) {
    const MutexLock lock(mutex_);
    StreamRecording_ = on;
    refused_.clear();
    if (!on) {
        interrupted_.clear();
        song_ = {};
    }
}

bool modNetRadio::StreamRecording() const {
    const MutexLock lock(mutex_);
    return StreamRecording_;
}

std::string modNetRadio::StreamFileName() const {
    const MutexLock lock(mutex_);
    return StreamFileName_;
}

std::int16_t modNetRadio::StreamBlocks() const {
    const MutexLock lock(mutex_);
    return StreamBlocks_;
}

std::optional<modNetRadio::Failure> modNetRadio::takeFailure() {
    const MutexLock lock(mutex_);
    return std::exchange(failure_, std::nullopt);
}

void modNetRadio::DoMeta(std::string_view metadata) {
    const bool whole = waysNow()->comfort.readsTitlesWhole;
    const StreamTitle title = streamTitle(metadata, whole);
    if (title.answer != TitleAnswer::title) {
        return;
    }
    std::string name = base::joinPath(folder_, songFileName(title.title));
    std::string shown = shownServerText(title.title);
    const MutexLock lock(mutex_);
    if (titles_.size() >= kMostTitles) {
        titles_.erase(titles_.begin());
    }
    titles_.push_back({std::move(shown), fed_});
    if (name == StreamFileName_) {
        // Servers repeat the title: what was saved of the song must not be replaced by its rest.
        return;
    }
    StreamSynced_ = false;
    StreamFileOpen_ = false;
    StreamFileName_ = std::move(name);
}

void modNetRadio::download(std::span<const std::byte> block) {
    if (saveSongs(block)) {
        StreamFile_.CloseFile();
        return;
    }
    Turn turn = takeTurn();
    if (!turn.recording) {
        StreamFile_.CloseFile();
        return;
    }
    if (turn.name.empty()) {
        return;
    }
    if (turn.opens) {
        open(turn);
    }
    if (turn.ok) {
        save(turn, block);
    } else {
        refuse(turn);
    }
}

/// False where the block is to be saved as it comes.
bool modNetRadio::saveSongs(std::span<const std::byte> block) {
    std::shared_ptr<const SavingWays> ways;
    std::vector<TitleChange> titles;
    bool recording = false;
    {
        const MutexLock lock(mutex_);
        if (StreamBlocks_ < std::numeric_limits<std::int16_t>::max()) {
            ++StreamBlocks_;
        }
        ways = ways_;
        recording = StreamRecording_;
        if (ways->comfort.savesPlainSongs || ways->comfort.savesAnyFormat) {
            titles = std::exchange(titles_, {});
            fed_ += block.size();
        }
    }
    const base::Comfort& comfort = ways->comfort;
    if (!comfort.savesPlainSongs && !comfort.savesAnyFormat) {
        return false;
    }
    const SongSaver::Answer answer =
        songs_.take(block, {.recording = recording, .ways = *ways, .titles = std::move(titles)});
    {
        const MutexLock lock(mutex_);
        if (StreamRecording_ && song_.path != songs_.song().path) {
            song_ = songs_.song();
        }
        if (answer.failure && !answer.ends) {
            failure_ = Failure{answer.failure, songs_.path(), false};
        }
    }
    if (answer.ends) {
        endSaving({answer.failure, songs_.path(), true});
    }
    return songs_.saves(comfort);
}

modNetRadio::Turn modNetRadio::takeTurn() {
    const MutexLock lock(mutex_);
    if (!StreamRecording_) {
        StreamFileOpen_ = false;
        return {};
    }
    Turn turn{
        .recording = true, .ok = StreamFileOk_, .synced = StreamSynced_, .name = StreamFileName_};
    if (!turn.name.empty() && !StreamFileOpen_ && !limit_.mayOpen()) {
        turn.name.clear();
    } else if (!turn.name.empty() && !StreamFileOpen_) {
        StreamFileOpen_ = true;
        turn.opens = true;
        turn.how =
            std::exchange(interrupted_, {}) == turn.name ? SongFile::goingOn : SongFile::anew;
    }
    return turn;
}

void modNetRadio::open(Turn& turn) {
    turn.ok = StreamFile_.OpenFile(turn.name, turn.how);
    const MutexLock lock(mutex_);
    StreamFileOk_ = turn.ok;
    if (turn.ok) {
        StreamSynced_ = false;
        turn.synced = false;
    }
}

void modNetRadio::save(Turn& turn, std::span<const std::byte> block) {
    if (block.empty()) {
        StreamFile_.CloseFile();
        turn.synced = false;
    } else if (!StreamFile_.WriteBytes(block, turn.synced)) {
        fail(turn);
        return;
    }
    const MutexLock lock(mutex_);
    StreamSynced_ = turn.synced;
}

/// The next block tries again, the next song may have a better name: only a full disk ends all.
void modNetRadio::refuse(const Turn& turn) {
    const std::error_code why = StreamFile_.failure();
    if (why == std::errc::no_space_on_device || why == std::errc::read_only_file_system) {
        fail(turn);
        return;
    }
    StreamFile_.CloseFile();
    const MutexLock lock(mutex_);
    StreamFileOpen_ = false;
    StreamSynced_ = false;
    if (refused_ != turn.name) {
        refused_ = turn.name;
        failure_ = Failure{why, turn.name, false};
    }
}

/// Whatever keeps a file from being written keeps the next block from it, too: saving ends.
void modNetRadio::fail(const Turn& turn) {
    const std::error_code why = StreamFile_.failure();
    StreamFile_.CloseFile();
    {
        const MutexLock lock(mutex_);
        StreamFileOpen_ = false;
        StreamSynced_ = false;
    }
    endSaving({why, turn.name, true});
}

void modNetRadio::endSaving(const Failure& failure) {
    const MutexLock lock(mutex_);
    if (StreamRecording_) {
        StreamRecording_ = false;
        failure_ = failure;
    }
}

} // namespace tovik::radio
