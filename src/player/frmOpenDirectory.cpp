// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmOpenDirectory.h"

#include "config/SettingText.h"
#include "host/BesideJob.h"
#include "player/LiveSetting.h"
#include "playlist/AddMedia.h"
#include "playlist/AudioExtensions.h"
#include "playlist/FileNames.h"
#include "playlist/FindFiles.h"

#include <array>
#include <string_view>
#include <utility>

namespace tovik::player {

namespace {

constexpr LiveKey kFolderKey = "CFLD";
constexpr std::string_view kUnplayedTime = "0:00";

/// The folder's own files, whatever they are, and then what the search finds there and below.
std::vector<std::string> filesToAdd(const std::string& folder, bool subfolders,
                                    const std::atomic<bool>& stop) {
    std::vector<std::string> paths;
    for (const std::string& name : playlist::filesIn(folder)) {
        paths.push_back(playlist::RPP(folder) + name);
    }
    if (subfolders) {
        std::array<std::string, playlist::kScannedExtensions> patterns;
        for (std::size_t n = 0; n < patterns.size(); ++n) {
            patterns[n] = "." + std::string(playlist::AudioExtensions[n]);
        }
        std::vector<std::string> found = playlist::FindFiles(folder, patterns, {}, stop);
        paths.insert(paths.end(), std::move_iterator(found.begin()),
                     std::move_iterator(found.end()));
    }
    return paths;
}

} // namespace

/// An add that runs, from the press of the button to its end, however it ends.
class frmOpenDirectory::Running {
public:
    explicit Running(frmOpenDirectory& dialog)
        : dialog_(dialog), cancelled_(std::exchange(dialog.opening_, nullptr)) {
        if (!cancelled_) {
            cancelled_ = std::make_shared<std::atomic<bool>>(false);
        }
        dialog_.running_.push_back(cancelled_);
    }

    ~Running() {
        std::erase(dialog_.running_, cancelled_);
        dialog_.core_.state.DirAddIdle = dialog_.running_.empty() && !dialog_.opening_;
    }

    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    [[nodiscard]] const Flag& cancelled() const { return cancelled_; }

private:
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

void frmOpenDirectory::cancel() {
    if (opening_) {
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
    const auto paths = std::make_shared<std::vector<std::string>>();
    if (!host::runBeside(pump_, [paths, folder, subfolders, cancelled] {
            *paths = filesToAdd(folder, subfolders, *cancelled);
        })) {
        return;
    }
    if (!pump_.Step()) {
        return;
    }
    for (const std::string& path : *paths) {
        if (!pump_.Step() || !addFile(path, *cancelled)) {
            return;
        }
    }
}

/// False when the add is over: it was cancelled, or the program is ending.
bool frmOpenDirectory::addFile(const std::string& path, const std::atomic<bool>& cancelled) {
    std::string_view title = playlist::GetLastBackSlash(path);
    const std::string_view extension = playlist::get_extension(title);
    title.remove_suffix(extension.empty() ? 0 : extension.size() + 1);
    for (std::int32_t rows = playlist::scannedRows(extension); rows > 0; --rows) {
        if (!pump_.Step() || cancelled) {
            return false;
        }
        core_.lists.stdSS.AddItem({}, path, title, kUnplayedTime, 0);
    }
    return true;
}

} // namespace tovik::player
