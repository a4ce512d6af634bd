// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/PlaylistFiles.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/Unicode.h"
#include "playlist/M3uList.h"
#include "playlist/PlsList.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace tovik::playlist {

namespace {

/// Read as a whole: a save of the same file during a pump step then changes nothing.
std::error_code readText(const std::string& path, std::string& text) {
    const std::error_code failure = base::readWholeFile(path, text);
    text = base::withoutByteOrderMark(std::move(text));
    return failure;
}

} // namespace

PlaylistFiles::PlaylistFiles(stdSS& list, host::MessagePump& pump, const host::Paths& paths)
    : list_(list), pump_(pump), paths_(paths) {}

int PlaylistFiles::open_m3u(const std::string& Path) {
    if (Path.empty()) {
        return 0;
    }
    std::string text;
    base::raiseFailure(readText(Path, text));
    return appendM3u(text, list_, pump_, StopM3u) == ReadEnd::ProgramEnding ? 0 : kRead;
}

void PlaylistFiles::Openpls2(const std::string& Path) {
    std::string text;
    if (!readText(Path, text)) {
        static_cast<void>(appendPls(text, list_, pump_));
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
