// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/PlaylistFiles.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/Unicode.h"
#include "host/BesideJob.h"
#include "playlist/M3uList.h"
#include "playlist/PlsList.h"

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace tovik::playlist {

namespace {

/// Read as a whole: a save of the same file during a pump step then changes nothing.
struct WholeText {
    std::error_code failure{};
    std::string text{};
};

/// The text of a file; nothing when the program is ending. A disk that does not answer holds up
/// nobody but the list.
std::shared_ptr<const WholeText> readText(const std::string& path, host::MessagePump& pump) {
    const auto read = std::make_shared<WholeText>();
    const bool done = host::runBeside(pump, [read, path] {
        read->failure = base::readWholeFile(path, read->text);
        read->text = base::withoutByteOrderMark(std::move(read->text));
    });
    return done ? read : nullptr;
}

} // namespace

PlaylistFiles::PlaylistFiles(stdSS& list, host::MessagePump& pump, const host::Paths& paths)
    : list_(list), pump_(pump), paths_(paths) {}

int PlaylistFiles::open_m3u(const std::string& Path) {
    if (Path.empty()) {
        return 0;
    }
    const auto read = readText(Path, pump_);
    if (!read) {
        return 0;
    }
    base::raiseFailure(read->failure);
    return appendM3u(read->text, list_, pump_, StopM3u) == ReadEnd::ProgramEnding ? 0 : kRead;
}

void PlaylistFiles::Openpls2(const std::string& Path) {
    const auto read = readText(Path, pump_);
    if (read && !read->failure) {
        static_cast<void>(appendPls(read->text, list_, pump_));
    }
}

void PlaylistFiles::autoload_playlist() {
    const std::string unsaved = paths_.of(host::DataItem::UnsavedList);
    std::error_code failure; // what cannot be looked at is told by the read
    const bool brokenOff = std::filesystem::exists(unsaved, failure);
    autoloading_ = true;
    AutosaveOnExit = open_m3u(brokenOff ? unsaved : paths_.of(host::DataItem::AutosaveList));
    autoloading_ = false;
}

void PlaylistFiles::autosave_playlist() const {
    base::raiseFailure(base::replaceFile(paths_.of(host::DataItem::AutosaveList), m3uText(list_),
                                         base::Flush::Yes));
}

bool PlaylistFiles::savesAtExit(bool DirAddIdle) const noexcept {
    return AutosaveOnExit == kRead || (DirAddIdle && !autoloading_);
}

} // namespace tovik::playlist
