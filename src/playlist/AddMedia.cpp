// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/AddMedia.h"

#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/Url.h"
#include "host/BesideJob.h"
#include "host/DialogText.h"
#include "playlist/AudioExtensions.h"
#include "playlist/FileNames.h"
#include "playlist/ListForm.h"
#include "playlist/ListUndo.h"
#include "playlist/stdSS.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>
#include <vector>

namespace tovik::playlist {

namespace {

/// The label lists less than the patterns take in; it is the patterns that count.
constexpr std::string_view kFilter =
    "Audio files (*.mo3;*.xm;*.mod;*.s3m;*.it;*.mtm;*.umx;*.mp3;*.ogg;*.wav;*.flac;*.fla)|"
    "*.mo3;*.xm;*.mod;*.s3m;*.it;*.mtm;*.umx;*.mp?;*.ogg;*.wav;*.wma;*.flac;*.fla";

/// With what is opened rather than played.
constexpr std::string_view kFilterWithLists =
    "Audio files, playlists and cue sheets|"
    "*.mo3;*.xm;*.mod;*.s3m;*.it;*.mtm;*.umx;*.mp?;*.ogg;*.wav;*.wma;*.flac;*.fla;"
    "*.m3u;*.m3u8;*.pls;*.xspf;*.cue";

constexpr std::string_view kNoTime = "00:00";
constexpr std::string_view kFoundTime = "0:00"; ///< of what was found in a folder

/// Rows that come without giving way in between: some tenths of a millisecond.
constexpr std::size_t kRowsAtOnce = 200;

/// A single path and the two zeros behind it.
constexpr std::size_t kPartsOfOne = 3;

/// Of a file that is opened as a list whatever else is asked of lists.
ListForm formOf(const std::string& path) {
    base::Comfort anyForm;
    anyForm.opensMoreLists = true;
    return listFormOf(path, anyForm).value_or(ListForm::M3u);
}

std::vector<std::string> partsBetweenZeros(std::string_view text) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = text.find('\0');
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

} // namespace

std::string RPP(std::string_view Path) {
    std::string path(Path);
    if (!path.ends_with('/')) {
        path += '/';
    }
    return path;
}

void splitChosen(std::string_view text, const std::function<void(const std::string& path)>& add) {
    if (text.empty()) {
        return;
    }
    const std::vector<std::string> parts = partsBetweenZeros(text);
    if (parts.size() == kPartsOfOne) {
        add(parts.front());
        return;
    }
    const std::string folder = RPP(parts.front());
    for (const std::string& name : std::span(parts).subspan(1)) {
        if (!name.empty()) {
            add(folder + name);
        }
    }
}

void appendItem(stdSS& list, const MediaItem& item) {
    list.AddItem({}, item.path, titleOf(item),
                 item.kind == MediaItem::Kind::found ? kFoundTime : kNoTime, 0);
}

AddMedia::AddMedia(const Needs& needs, Title title) : p_(needs), title_(std::move(title)) {
    p_.list.addObserver(*this);
}

AddMedia::~AddMedia() {
    p_.list.removeObserver(*this);
    for (const auto& cancelled : running_) {
        *cancelled = true;
    }
}

void AddMedia::Add_file() {
    const bool lists = p_.list.comfort().opensDroppedLists;
    const std::vector<std::string> paths =
        p_.dialogs.openFiles({.title = title_(),
                              .filters = host::filtersOf(lists ? kFilterWithLists : kFilter),
                              .manyFiles = true});
    if (lists && looksAtDisk(paths)) {
        config::guard(p_.errors, config::player("list1_dragdrop"),
                      [&] { add(paths, {.opensFolders = false}); });
        return;
    }
    const ListUndo::Step step(p_.list);
    splitChosen(host::chosenText(paths), [this](const std::string& path) { addRow(path); });
}

void AddMedia::Stdss_OleDragDrop(std::span<const std::string> paths) {
    config::guard(p_.errors, config::player("list1_dragdrop"), [this, paths] {
        const base::Comfort comfort = p_.list.comfort();
        if ((comfort.scansDroppedFolders || comfort.opensDroppedLists) && looksAtDisk(paths)) {
            add(paths, {.opensFolders = comfort.scansDroppedFolders,
                        .opensLists = comfort.opensDroppedLists,
                        .takesAnyFile = false});
            return;
        }
        const ListUndo::Step step(p_.list);
        for (const std::string& path : paths) {
            if (base::isWebUrl(path)) {
                p_.list.AddItem({}, path, path, kNoTime, 0);
            } else if (isDropped(path)) {
                addRow(path);
            }
        }
    });
}

void AddMedia::addRow(const std::string& path) {
    p_.list.AddItem({}, path, GetLastBackSlash(path), kNoTime, 0);
}

/// What is music by its name becomes a row without anybody looking for it.
bool AddMedia::looksAtDisk(std::span<const std::string> paths) {
    return !std::ranges::all_of(paths, [](const std::string& path) {
        return base::isWebUrl(path) || isMusic(GetLastBackSlash(path));
    });
}

void AddMedia::add(std::span<const std::string> paths, const MediaSearch& search,
                   const Began& began) {
    MediaSearch wanted = search;
    wanted.folder.limits.byFolder = true;
    wanted.folder.limits.maxSize = std::numeric_limits<std::int64_t>::max();
    const auto cancelled = std::make_shared<std::atomic<bool>>(false);
    const auto found = std::make_shared<MediaToAdd>();
    running_.push_back(cancelled);
    const ListUndo::Step step(p_.list);
    const auto end = [this, &cancelled] { std::erase(running_, cancelled); };
    try {
        if (!host::runBeside(p_.pump, [found, cancelled, wanted,
                                       named = std::vector(paths.begin(), paths.end())] {
                *found = mediaToAdd(named, wanted, *cancelled);
            })) {
            end();
            return; // the program is ending; what looks is not done yet
        }
        append(*found, *cancelled, began);
    } catch (...) {
        end();
        throw;
    }
    end();
    if (found->failure) {
        throw base::withPlace(base::RuntimeError(base::errorNumberOf(found->failure)),
                              found->missing);
    }
}

/// Others may add rows whenever this one gives way: which row is the first is known while it comes.
void AddMedia::append(const MediaToAdd& found, const std::atomic<bool>& cancelled,
                      const Began& began) {
    Began tell = began;
    std::size_t sinceStep = 0;
    const auto goesOn = [&] {
        if (++sinceStep >= kRowsAtOnce) {
            sinceStep = 0;
            if (!p_.pump.Step()) {
                return false;
            }
        }
        return !cancelled;
    };
    const auto added = [&] {
        if (const Began first = std::exchange(tell, nullptr)) {
            first(p_.list.ListCount());
        }
    };
    for (const MediaItem& item : found.items) {
        if (item.kind != MediaItem::Kind::list) {
            if (!goesOn()) {
                return;
            }
            appendItem(p_.list, item);
            added();
            continue;
        }
        const ListRead read = readList(item.path);
        for (const ListEntry& entry : read.entries) {
            if (!goesOn()) {
                return;
            }
            p_.files.append({&entry, 1});
            added();
        }
        if (read.failure) {
            std::rethrow_exception(read.failure);
        }
    }
}

AddMedia::ListRead AddMedia::readList(const std::string& path) const {
    stdSS rows;
    std::exception_ptr failure;
    try {
        p_.files.open(path, formOf(path), rows);
    } catch (...) {
        failure = std::current_exception(); // raised behind the rows that come before it
    }
    return {entriesOf(rows), failure};
}

void AddMedia::rowsCleared() {
    for (const auto& cancelled : running_) {
        *cancelled = true;
    }
}

} // namespace tovik::playlist
