// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/PlaylistFiles.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "base/Unicode.h"
#include "host/BesideJob.h"
#include "playlist/FileNames.h"
#include "playlist/M3uList.h"
#include "playlist/PlsFormat.h"
#include "playlist/PlsList.h"
#include "playlist/stdSS.h"
#include "playlist/XspfList.h"

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

void read(const std::string& path, WholeText& into) {
    into.failure = base::readWholeFile(path, into.text);
    into.text = base::withoutByteOrderMark(std::move(into.text));
}

/// The text of a file; nothing when the program is ending. A disk that does not answer holds up
/// nobody but the list.
std::shared_ptr<const WholeText> readText(const std::string& path, host::MessagePump& pump) {
    const auto whole = std::make_shared<WholeText>();
    return host::runBeside(pump, [whole, path] { read(path, *whole); }) ? whole : nullptr;
}

/// A document is taken apart where it is read: what is long holds up nobody.
struct WholeList {
    WholeText whole{};
    ListForm form = ListForm::M3u;
    std::optional<std::vector<ListEntry>> tracks{}; ///< of an XSPF file
};

/// Of a read that no clear button ends.
constexpr bool kNeverStops = false;

} // namespace

std::vector<ListEntry> entriesOf(const stdSS& rows) {
    std::vector<ListEntry> entries;
    entries.reserve(static_cast<std::size_t>(rows.ListCount()));
    for (Row row = 1; row <= rows.ListCount(); ++row) {
        entries.push_back({.fileName = std::string(rows.text(row, RowText::FileName)),
                           .title = std::string(rows.text(row, RowText::Title)),
                           .timeText = std::string(rows.text(row, RowText::TimeText)),
                           .seconds = rows.seconds(row)});
    }
    return entries;
}

PlaylistFiles::PlaylistFiles(stdSS& list, host::MessagePump& pump, const host::Paths& paths)
    : list_(list), pump_(pump), paths_(paths) {}

ListManner PlaylistFiles::mannerOf(const std::string& path) const {
    return {.comfort = *comfort_, .folder = std::string(base::folderPart(path))};
}

const bool& PlaylistFiles::stopOfM3u() const noexcept {
    return comfort_->readsOnAfterStop ? kNeverStops : StopM3u;
}

int PlaylistFiles::open_m3u(const std::string& Path) {
    return readM3u(Path, mannerOf(Path), stopOfM3u(), list_);
}

int PlaylistFiles::readM3u(const std::string& path, const ListManner& manner, const bool& stop,
                           stdSS& into) {
    if (path.empty()) {
        return 0;
    }
    const auto read = readText(path, pump_);
    if (!read) {
        return 0;
    }
    base::raiseFailure(read->failure);
    return appendM3u(read->text, into, pump_, stop, manner) == ReadEnd::ProgramEnding ? 0 : kRead;
}

void PlaylistFiles::Openpls2(const std::string& Path) {
    open(Path, ListForm::Pls);
}

void PlaylistFiles::open(const std::string& path, ListForm form, stdSS& into) {
    switch (form) {
    case ListForm::M3u:
        readM3u(path, mannerOf(path), stopOfM3u(), into);
        break;
    case ListForm::Pls:
        if (const auto read = readText(path, pump_); read && !read->failure) {
            static_cast<void>(appendPls(read->text, into, pump_, mannerOf(path)));
        }
        break;
    case ListForm::Xspf:
        if (const auto content = readList(path)) {
            append(content->entries, into);
        }
        break;
    }
}

std::optional<ListContent> PlaylistFiles::readList(const std::string& path) {
    const ListManner manner = mannerOf(path);
    const auto list = std::make_shared<WholeList>();
    if (!host::runBeside(pump_, [list, path, manner] {
            read(path, list->whole);
            const ListForm named = listFormOf(path, manner.comfort).value_or(ListForm::M3u);
            list->form =
                manner.comfort.opensMoreLists ? listFormIn(list->whole.text, named) : named;
            if (list->form == ListForm::Xspf) {
                list->tracks = xspfEntries(list->whole.text, manner);
            }
        })) {
        return std::nullopt;
    }
    base::raiseFailure(list->whole.failure);
    if (list->form == ListForm::Xspf) {
        return ListContent{.entries = std::move(list->tracks).value_or(std::vector<ListEntry>()),
                           .isList = list->tracks.has_value()};
    }
    const std::string_view text = list->whole.text;
    stdSS rows;
    const ReadEnd end = list->form == ListForm::Pls
                            ? appendPls(text, rows, pump_, manner)
                            : appendM3u(text, rows, pump_, kNeverStops, manner);
    if (end == ReadEnd::ProgramEnding) {
        return std::nullopt;
    }
    return ListContent{.entries = entriesOf(rows),
                       .isList = rows.ListCount() > 0 || list->form == ListForm::M3u ||
                                 PlsKeys(text).isPlaylist()};
}

void PlaylistFiles::append(std::span<const ListEntry> entries, stdSS& into) {
    for (const ListEntry& entry : entries) {
        into.AddItem({}, entry.fileName, entry.title, entry.timeText, entry.seconds);
    }
}

void PlaylistFiles::stopAutoload() noexcept {
    if (AutosaveOnExit != kRead) {
        StopM3u = true;
        AutosaveOnExit = kRead;
    }
}

void PlaylistFiles::autoload_playlist() {
    const std::string unsaved = paths_.of(host::DataItem::UnsavedList);
    std::error_code failure; // what cannot be looked at is told by the read
    const bool brokenOff = std::filesystem::exists(unsaved, failure);
    autoloading_ = true;
    // The player's own list: every name in it is one, as it stands.
    ListManner manner;
    manner.comfort.takesBadLengths = comfort_->takesBadLengths;
    AutosaveOnExit = readM3u(brokenOff ? unsaved : paths_.of(host::DataItem::AutosaveList), manner,
                             StopM3u, list_);
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
