// SPDX-License-Identifier: GPL-3.0-or-later
// The list of the player as a remote control has it.
#include "base/Url.h"
#include "base/Windows1252.h"
#include "desktop/Remote.h"
#include "player/FadeTime.h"
#include "playlist/AudioExtensions.h"
#include "playlist/ListUndo.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tovik::desktop {

using playlist::Row;
using playlist::RowText;

namespace {

constexpr std::int64_t kMicroseconds = 1'000'000; ///< of a second

} // namespace

std::string Remote::pathOf(RowIds::Id row) {
    return kTrackPath + std::to_string(row);
}

bool Remote::isThere(const std::string& path) {
    struct While {
        explicit While(bool& it) : flag(it) { flag = true; }

        ~While() { flag = false; }

        While(const While&) = delete;
        While& operator=(const While&) = delete;
        bool& flag;
    };

    const While asked(opening_);
    return p_.isThere(path);
}

bool Remote::OpenUri(const std::string& uri) {
    if (opening_) {
        return false;
    }
    const bool web = base::isWebUrl(uri);
    const auto path = web ? std::nullopt : base::pathFromFileUrl(uri);
    if (path && (!playlist::isMusic(*path) || !isThere(*path))) {
        return false;
    }
    // Whatever happened to the list while the disk was asked has happened by now.
    playlist::stdSS& list = p_.core.lists.stdSS;
    const Row before = list.ListCount();
    const playlist::ListUndo::Step step(list);
    if (web) {
        list.AddItem(uri, uri, uri, "", 0);
    } else if (path) {
        p_.addFile(*path);
    }
    if (list.ListCount() == before) {
        return false;
    }
    p_.playback.rows.PlayRow(before + 1, player::fadeSeconds(p_.core.settings));
    return !list.isUnplayable(before + 1);
}

std::vector<std::string> Remote::Tracks() const {
    const Row count = p_.core.lists.stdSS.ListCount();
    const Row middle = std::max<Row>(playingRow(), 1);
    const Row first =
        std::clamp<Row>(middle - kMostTracks / 2, 1, std::max<Row>(1, count - kMostTracks + 1));
    std::vector<std::string> tracks;
    for (Row row = first; row <= std::min<Row>(count, first + kMostTracks - 1); ++row) {
        tracks.push_back(pathOf(rows.idOf(row)));
    }
    return tracks;
}

std::string Remote::currentTrack() const {
    if (const auto place = p_.playback.rows.waiting()) {
        return pathOf(rows.idOf(place->row));
    }
    if (!playing()) {
        return kNoTrack;
    }
    // What sounds without a row, such as a station, has the number that no row has.
    return pathOf(rows.idOf(playingRow()));
}

Row Remote::rowOfPath(std::string_view trackId) const {
    const std::string_view begin = kTrackPath;
    if (!trackId.starts_with(begin)) {
        return 0;
    }
    trackId.remove_prefix(begin.size());
    RowIds::Id id = 0;
    const char* const end = trackId.data() + trackId.size();
    const auto read = std::from_chars(trackId.data(), end, id);
    return read.ec == std::errc() && read.ptr == end ? rows.rowOf(id) : 0;
}

RemoteTrack Remote::trackOf(std::string_view trackId) const {
    const Row row = rowOfPath(trackId);
    if (row == 0) {
        return {};
    }
    if (row == playingRow()) {
        return current();
    }
    const playlist::stdSS& list = p_.core.lists.stdSS;
    return {.trackId = std::string(trackId),
            .length = std::int64_t{std::max(list.seconds(row), 0)} * kMicroseconds,
            .title = base::displayText(list.text(row, RowText::Title)),
            .url = urlOf(std::string(list.text(row, RowText::FileName)))};
}

void Remote::GoTo(std::string_view trackId) {
    if (const Row row = rowOfPath(trackId); row != 0) {
        p_.playback.rows.PlayRow(row, player::fadeSeconds(p_.core.settings));
    }
}

} // namespace tovik::desktop
