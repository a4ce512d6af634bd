// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/MediaToAdd.h"

#include "base/PathText.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "base/Unicode.h"
#include "base/Url.h"
#include "playlist/AudioExtensions.h"
#include "playlist/CueSheet.h"
#include "playlist/FileNames.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <unordered_map>
#include <utility>

namespace tovik::playlist {

namespace {

constexpr std::array<std::string_view, 4> kLists = {"m3u", "m3u8", "pls", "xspf"};
constexpr std::string_view kCueSheet = "cue";
constexpr std::string_view kCdTrack = "cda";
constexpr std::int64_t kMostSheetBytes = std::int64_t{4} << 20;

using Kind = MediaItem::Kind;

std::string extensionOf(std::string_view path) {
    return base::toLowerAscii(get_extension(GetLastBackSlash(path)));
}

bool isThere(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_regular_file(path, failure);
}

/// The file that a sheet means; empty where there is none.
std::string fileBeside(const std::string& sheet, const std::string& name) {
    const std::string folder(base::folderPart(sheet));
    std::string path = base::absolutePath(name, folder);
    if (!isThere(path)) {
        std::string slashed = name;
        std::ranges::replace(slashed, '\\', '/');
        path = base::absolutePath(slashed, folder);
    }
    if (isThere(path)) {
        return path;
    }
    // Sheets are written before the sound is packed, and go on naming what is no longer there.
    const std::size_t stem = path.size() - get_extension(base::lastPart(path)).size();
    for (const std::string_view extension :
         std::span(AudioExtensions).first<kScannedExtensions>()) {
        if (std::string other = path.substr(0, stem).append(extension); isThere(other)) {
            return other;
        }
    }
    return {};
}

/// Collects items, each file once.
class Collector {
public:
    Collector(const MediaSearch& search, const std::atomic<bool>& stop)
        : search_(search), stop_(stop) {}

    void takeFolder(const std::string& folder) {
        for (const std::string& path : filesBelow(folder)) {
            if (isCueSheet(path)) {
                takeSheet(path);
            } else if (isMusic(base::lastPart(path))) {
                take({.kind = Kind::found, .path = path});
            }
        }
    }

    void takeNamed(const std::string& path) {
        std::error_code failure;
        if (base::isWebUrl(path)) {
            found_.items.push_back({.kind = Kind::address, .path = path});
        } else if (extensionOf(path) == kCdTrack) { // NOLINT(bugprone-branch-clone): on no disk
            take({.kind = Kind::file, .path = path});
        } else if (search_.opensFolders && std::filesystem::is_directory(path, failure)) {
            takeFolder(path);
        } else if (const auto unread =
                       base::RegularFile(path, base::RegularFile::Access::Read).failure()) {
            if (!found_.failure) {
                found_.failure = unread;
                found_.missing = path;
            }
        } else if (search_.opensLists && isPlaylistFile(path)) {
            take({.kind = Kind::list, .path = path});
        } else if (search_.opensLists && isCueSheet(path)) {
            takeSheet(path);
        } else if (search_.takesAnyFile || isDropped(path)) {
            take({.kind = Kind::file, .path = path});
        }
    }

    [[nodiscard]] MediaToAdd found() && { return std::move(found_); }

private:
    [[nodiscard]] std::vector<std::string> filesBelow(const std::string& folder) const {
        std::vector<std::string> patterns;
        if (search_.folder.readsCueSheets) {
            patterns.push_back("." + std::string(kCueSheet));
        }
        for (const std::string_view extension :
             std::span(AudioExtensions).first<kScannedExtensions>()) {
            patterns.push_back("." + std::string(extension));
        }
        return FindFiles(folder, patterns, search_.folder.limits, stop_);
    }

    /// A title that a sheet tells counts for a file that came before it, too.
    void take(MediaItem item) {
        const auto [place, isNew] = places_.emplace(item.path, found_.items.size());
        if (isNew) {
            found_.items.push_back(std::move(item));
        } else if (!item.title.empty()) {
            found_.items.at(place->second).title = std::move(item.title);
        }
    }

    void takeSheet(const std::string& path) {
        std::string text;
        if (base::readWholeFile(path, text, kMostSheetBytes)) {
            return;
        }
        const CueSheet sheet = readCueSheet(base::withoutByteOrderMark(std::move(text)));
        for (const CueFile& file : sheet.files) {
            if (std::string sound = fileBeside(path, file.name); !sound.empty() && !stop_) {
                take({.kind = Kind::found,
                      .path = std::move(sound),
                      .title = cueTitle(sheet, file)});
            }
        }
    }

    const MediaSearch& search_;
    const std::atomic<bool>& stop_;
    MediaToAdd found_;
    std::unordered_map<std::string, std::size_t> places_; ///< among the items, by path
};

} // namespace

bool isPlaylistFile(std::string_view path) {
    return std::ranges::find(kLists, extensionOf(path)) != kLists.end();
}

bool isCueSheet(std::string_view path) {
    return extensionOf(path) == kCueSheet;
}

std::string titleOf(const MediaItem& item) {
    if (!item.title.empty() || item.kind == Kind::address) {
        return item.title.empty() ? item.path : item.title;
    }
    std::string_view name = GetLastBackSlash(item.path);
    if (item.kind == Kind::found) {
        const std::string_view extension = get_extension(name);
        name.remove_suffix(extension.empty() ? 0 : extension.size() + 1);
    }
    return std::string(name);
}

std::vector<MediaItem> musicIn(const std::string& folder, const FolderSearch& search,
                               const std::atomic<bool>& stop) {
    const MediaSearch all{.folder = search};
    Collector collector(all, stop);
    collector.takeFolder(folder);
    return std::move(collector).found().items;
}

MediaToAdd mediaToAdd(std::span<const std::string> paths, const MediaSearch& search,
                      const std::atomic<bool>& stop) {
    Collector collector(search, stop);
    for (const std::string& path : paths) {
        if (stop) {
            break;
        }
        collector.takeNamed(path);
    }
    return std::move(collector).found();
}

} // namespace tovik::playlist
