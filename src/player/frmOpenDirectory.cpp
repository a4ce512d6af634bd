// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmOpenDirectory.h"

#include "config/SettingText.h"
#include "host/BesideJob.h"
#include "player/LiveSetting.h"
#include "playlist/AddMedia.h"
#include "playlist/AudioExtensions.h"
#include "playlist/FileNames.h"
#include "playlist/FindFiles.h"
#include "playlist/ListUndo.h"
#include "playlist/MediaToAdd.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <system_error>
#include <utility>

namespace tovik::player {

namespace {

constexpr LiveKey kFolderKey = "CFLD";

/// The folder's own files, whatever they are, and then what the search finds there and below: a
/// deliberate oddity, unless `Comfort::addsFilesOnce` takes the music alone, and each file once.
std::vector<playlist::MediaItem> filesToAdd(const std::string& folder, bool subfolders,
                                            const base::Comfort& comfort,
                                            const std::atomic<bool>& stop) {
    playlist::FileLimits limits{.byFolder = comfort.ordersByFolder};
    if (comfort.findsLargeFiles || !subfolders) {
        limits.maxSize = std::numeric_limits<std::int64_t>::max();
    }
    if (comfort.addsFilesOnce) {
        limits.below = subfolders;
        return playlist::musicIn(
            folder, {.readsCueSheets = comfort.opensDroppedLists, .limits = limits}, stop);
    }
    std::vector<playlist::MediaItem> items;
    const auto take = [&items](std::string path) {
        items.push_back({.kind = playlist::MediaItem::Kind::found, .path = std::move(path)});
    };
    for (const std::string& name : playlist::filesIn(folder)) {
        take(playlist::RPP(folder) + name);
    }
    if (subfolders) {
        std::array<std::string, playlist::kScannedExtensions> patterns;
        for (std::size_t n = 0; n < patterns.size(); ++n) {
            patterns[n] = "." + std::string(playlist::AudioExtensions[n]);
        }
        std::ranges::for_each(FindFiles(folder, patterns, limits, stop), take);
    }
    return items;
}

bool hasFolders(const std::string& folder) {
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code unknown;
        if (entry->is_directory(unknown)) {
            return true;
        }
    }
    return false;
}

/// What the disk told.
struct Found {
    std::vector<playlist::MediaItem> items{};
    bool leftFolders = false; ///< nothing is there, and folders were not looked into
};

} // namespace

/// An add that runs, from the press of the button to its end, however it ends.
class frmOpenDirectory::Running final : private playlist::ListObserver {
public:
    explicit Running(frmOpenDirectory& dialog)
        : dialog_(dialog), cancelled_(std::exchange(dialog.opening_, nullptr)) {
        if (!cancelled_) {
            cancelled_ = std::make_shared<std::atomic<bool>>(false);
        }
        dialog_.running_.push_back(cancelled_);
        dialog_.core_.lists.stdSS.addObserver(*this);
    }

    ~Running() override {
        dialog_.core_.lists.stdSS.removeObserver(*this);
        std::erase(dialog_.running_, cancelled_);
        dialog_.core_.state.DirAddIdle = dialog_.running_.empty() && !dialog_.opening_;
    }

    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    [[nodiscard]] const Flag& cancelled() const { return cancelled_; }

private:
    /// Whatever takes the place of the rows; without comfort the button alone (`cancel`).
    void rowsCleared() override {
        *cancelled_ = *cancelled_ || dialog_.core_.state.comfort.clearsOnlyList;
    }

    frmOpenDirectory& dialog_;
    Flag cancelled_;
};

void frmOpenDirectory::Form_Load() {
    staysOnTop_ = readLive(core_.settings, "ASOT", config::settingToInt16) != 0;
    folder_ = readLive(core_.settings, kFolderKey);
    core_.state.DirAddIdle = false;
    opening_ = std::make_shared<std::atomic<bool>>(false);
}

void frmOpenDirectory::Command1_Click(const std::string& folder, bool subfolders) {
    const Running running(*this);
    keepFolder(folder);
    add(folder, subfolders, running.cancelled());
}

void frmOpenDirectory::Command2_Click() {
    opening_ = nullptr;
    core_.state.DirAddIdle = running_.empty();
}

/// A deliberate oddity: what is accepted from the open dialog afterwards adds nothing either,
/// unless `Comfort::clearsOnlyList` ends only what runs.
void frmOpenDirectory::cancel() {
    if (opening_ && !core_.state.comfort.clearsOnlyList) {
        *opening_ = true;
    }
    for (const Flag& cancelled : running_) {
        *cancelled = true;
    }
}

void frmOpenDirectory::keepFolder(const std::string& folder) {
    try {
        storeText(core_.settings, kFolderKey.key, folder);
        folder_ = folder;
    } catch (const base::RuntimeError& error) {
        core_.errors.reportUnguarded(error);
    }
}

void frmOpenDirectory::add(const std::string& folder, bool subfolders, const Flag& cancelled) {
    const auto found = std::make_shared<Found>();
    const base::Comfort comfort = core_.state.comfort;
    if (!host::runBeside(pump_, [found, folder, subfolders, comfort, cancelled] {
            found->items = filesToAdd(folder, subfolders, comfort, *cancelled);
            found->leftFolders = comfort.tellsEmptyFolder && !subfolders && found->items.empty() &&
                                 hasFolders(folder);
        })) {
        return;
    }
    if (!pump_.Step()) {
        return;
    }
    const playlist::ListUndo::Step step(core_.lists.stdSS);
    bool none = true;
    for (const playlist::MediaItem& item : found->items) {
        const std::int32_t rows = comfort.addsFilesOnce
                                      ? 1
                                      : playlist::scannedRows(playlist::get_extension(
                                            playlist::GetLastBackSlash(item.path)));
        if (!pump_.Step() || !addRows(item, rows, *cancelled)) {
            return;
        }
        none = none && rows == 0;
    }
    if (none && !*cancelled && comfort.tellsEmptyFolder && foundNothing) {
        foundNothing(folder, found->leftFolders);
    }
}

/// False when the add is over: it was cancelled, or the program is ending.
bool frmOpenDirectory::addRows(const playlist::MediaItem& item, std::int32_t rows,
                               const std::atomic<bool>& cancelled) {
    for (; rows > 0; --rows) {
        if (!pump_.Step() || cancelled) {
            return false;
        }
        playlist::appendItem(core_.lists.stdSS, item);
    }
    return true;
}

} // namespace tovik::player
