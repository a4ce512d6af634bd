// SPDX-License-Identifier: GPL-3.0-or-later
// The file that the program was started with.
#include "app/frmPlayer.h"

#include "base/CommandText.h"
#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "host/PlayerArguments.h"
#include "player/TrackOpener.h"
#include "playlist/FileNames.h"
#include "tags/ShownField.h"

#include <algorithm>

namespace tovik::app {

void frmPlayer::readCommandLine() {
    state_.NoCommandLine = options_.commandLine.empty();
    if (!state_.NoCommandLine) {
        state_.CommandArgs = base::commandArguments(options_.commandLine);
    }
}

void frmPlayer::openArgument() {
    if (state_.NoCommandLine) {
        return;
    }
    const std::string path = host::withQuotes(state_.CommandArgs.at(1));
    stdSS_.Clear();
    if (!player::namesCdTrack(path) && !canReadArgument(path)) {
        return;
    }
    const std::string extension = base::toUpperAscii(playlist::get_extension(path));
    if (extension == "M3U") {
        files_.open_m3u(path);
        playList();
    } else if (extension == "PLS") {
        // Read as soon as this kind of list is known.
        playList();
    } else {
        openFileArgument(path);
    }
}

/// Says so when it cannot: the start goes on without it.
bool frmPlayer::canReadArgument(const std::string& path) {
    const std::error_code failure =
        base::RegularFile(path, base::RegularFile::Access::Read).failure();
    if (!failure) {
        return true;
    }
    errors_.reportAndTell(base::withPlace(base::RuntimeError(base::errorNumberOf(failure)), path),
                          config::player("Load"));
    return false;
}

void frmPlayer::playList() {
    // A pick may be no row: the list then begins with its first.
    const playlist::Row picked =
        state_.ShuffleOn ? playback_.advance.gen_shuffle(stdSS_.ListCount()) : 0;
    playback_.advance.selectItem(std::max(picked, 1) - 1);
    playback_.rows.List1_DblClick();
}

void frmPlayer::openFileArgument(const std::string& path) {
    if (!player::namesCdTrack(path)) {
        tag_.MP3File(path);
    }
    const std::string_view artist = tags::shownField(tag_.Artist());
    const std::string_view title = tags::shownField(tag_.Title());
    const std::string shown = !artist.empty() && !title.empty()
                                  ? std::string(artist) + "-" + std::string(title)
                                  : std::string(playlist::GetLastBackSlash(path));
    stdSS_.AddItem("", path, shown, "00:00", 0);
    stdSS_.SelectedIndex = 1;
    playItem(0);
}

} // namespace tovik::app
