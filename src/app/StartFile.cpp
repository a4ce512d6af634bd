// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartFile.h"

#include "base/CommandText.h"
#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/Url.h"
#include "host/PlayerArguments.h"
#include "player/TrackOpener.h"
#include "playlist/FileNames.h"
#include "playlist/ListForm.h"
#include "tags/TagTitle.h"

#include <algorithm>
#include <optional>
#include <system_error>

namespace tovik::app {

namespace {

/// Why a file cannot be read.
std::optional<base::RuntimeError> problemOf(const std::string& path) {
    if (player::namesCdTrack(path) || base::isWebUrl(path)) {
        return std::nullopt;
    }
    const std::error_code failure =
        base::RegularFile(path, base::RegularFile::Access::Read).failure();
    return failure ? std::optional(
                         base::withPlace(base::RuntimeError(base::errorNumberOf(failure)), path))
                   : std::nullopt;
}

} // namespace

void StartFile::readCommandLine() {
    core_.state.NoCommandLine = commandLine_.empty();
    if (!core_.state.NoCommandLine) {
        core_.state.CommandArgs = base::commandArguments(commandLine_);
    }
}

void StartFile::openArgument() {
    if (core_.state.NoCommandLine) {
        return;
    }
    const std::string path = host::withQuotes(core_.state.CommandArgs.at(1));
    core_.lists.stdSS.Clear();
    if (const auto problem = problemOf(path)) {
        // Told; the start goes on without it.
        core_.errors.reportAndTell(*problem, config::player("Load"));
    } else {
        play(path, From::start);
    }
}

void StartFile::playHandedOver(const std::string& path) {
    // A deliberate oddity: emptied also for a file that is not there.
    core_.lists.stdSS.Clear();
    if (const auto problem = problemOf(path)) {
        throw *problem;
    }
    play(path, From::otherInstance);
}

void StartFile::play(const std::string& path, From from) {
    if (base::isWebUrl(path)) {
        playAddress(path);
        return;
    }
    if (const auto form = playlist::listFormOf(path, core_.state.comfort)) {
        files_.open(path, *form);
        playList();
    } else {
        playFile(path, from);
    }
}

void StartFile::playAddress(const std::string& address) {
    core_.lists.stdSS.AddItem("", address, address, "00:00", 0);
    core_.lists.stdSS.SelectedIndex = 1;
    playback_.rows.playItem(0);
}

void StartFile::playList() {
    // A pick may be no row: the list then begins with its first.
    const playlist::Row picked =
        core_.state.ShuffleOn ? playback_.advance.gen_shuffle(core_.lists.stdSS.ListCount()) : 0;
    playback_.advance.selectItem(std::max(picked, 1) - 1);
    playback_.rows.List1_DblClick();
}

void StartFile::playFile(const std::string& path, From from) {
    if (!player::namesCdTrack(path)) {
        tag_.MP3File(path);
    }
    const std::string title =
        tags::tagTitle(tag_).value_or(std::string(playlist::GetLastBackSlash(path)));
    core_.lists.stdSS.AddItem("", path, title, "00:00", 0);
    core_.lists.stdSS.SelectedIndex = 1;
    if (from == From::otherInstance) {
        // Whatever sounds ends at once, also where tracks fade into each other.
        core_.sound.BASS_Free();
        core_.state.ClearCounterOnPlay = true;
    }
    playback_.rows.playItem(0);
}

} // namespace tovik::app
