// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartFile.h"

#include "base/CommandText.h"
#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/Url.h"
#include "host/PlayerArguments.h"
#include "player/FadeTime.h"
#include "player/TrackOpener.h"
#include "playlist/FileNames.h"
#include "playlist/ListForm.h"
#include "playlist/ListUndo.h"
#include "tags/TagTitle.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <system_error>
#include <vector>

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
    base::CommandWords words = base::commandWords(commandLine_);
    // A deliberate oddity: no switch is obeyed.
    words.adds = words.adds && core_.state.comfort.obeysEarlySwitches;
    if (readsSavedList() || words.adds) {
        try {
            add(words);
        } catch (const base::RuntimeError& problem) {
            // Told; the start goes on without it.
            core_.errors.reportAndTell(problem, config::player("Load"));
        }
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

bool StartFile::readsSavedList() const {
    return core_.state.NoCommandLine ||
           (core_.state.comfort.keepsListOfFileStart && keepsList_ && media_ != nullptr);
}

void StartFile::playHandedOver(const std::string& path) {
    const playlist::ListUndo::Step step(core_.lists.stdSS);
    const auto problem = problemOf(path);
    // A deliberate oddity: emptied also for a file that is not there.
    if (!problem || !core_.state.comfort.keepsListForMissing) {
        core_.lists.stdSS.Clear();
    }
    if (problem) {
        throw base::RuntimeError(*problem);
    }
    play(path, From::otherInstance);
}

void StartFile::add(const base::CommandWords& words) {
    std::vector<std::string> files;
    std::ranges::transform(words.files, std::back_inserter(files),
                           [](const std::string& file) { return host::withQuotes(file); });
    // Of a list there are several, too.
    const bool several =
        files.size() > 1 ||
        (files.size() == 1 && playlist::listFormOf(files.front(), core_.state.comfort));
    const auto start = [this, several](playlist::Row first) {
        playlist::stdSS& list = core_.lists.stdSS;
        const std::string path(list.text(first, playlist::RowText::FileName));
        if (playlist::isNamedAfter(list.text(first, playlist::RowText::Title), path)) {
            if (const auto title = taggedTitle(path)) {
                list.RefreshTitle(first, *title);
            }
        }
        playback_.advance.selectItem(first - 1); // the quick list shows it, too
        if (several) {
            playback_.advance.playFrom(first);
        } else {
            playback_.rows.PlayRow(first, player::fadeSeconds(core_.settings));
        }
    };
    if (media_ != nullptr) {
        media_->add(files, {}, words.adds ? playlist::AddMedia::Began() : start);
    }
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

std::optional<std::string> StartFile::taggedTitle(const std::string& path) {
    if (core_.state.comfort.readsEveryFormat) {
        return std::nullopt; // the facts of the row bring it, whole and without a wait
    }
    if (!player::namesCdTrack(path)) {
        tag_.MP3File(path);
    }
    return tags::tagTitle(tag_);
}

std::string StartFile::titleOf(const std::string& path) {
    return taggedTitle(path).value_or(std::string(playlist::GetLastBackSlash(path)));
}

void StartFile::playFile(const std::string& path, From from) {
    core_.lists.stdSS.AddItem("", path, titleOf(path), "00:00", 0);
    core_.lists.stdSS.SelectedIndex = 1;
    if (from == From::otherInstance) {
        // Whatever sounds ends at once, also where tracks fade into each other; but not with a rip,
        // which has its stream and its encoder there.
        if (!core_.state.RipRunning) {
            core_.sound.BASS_Free();
        }
        core_.state.ClearCounterOnPlay = true;
    }
    playback_.rows.playItem(0);
}

} // namespace tovik::app
