// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/AddMedia.h"

#include "base/Url.h"
#include "host/DialogText.h"
#include "playlist/AudioExtensions.h"
#include "playlist/FileNames.h"
#include "playlist/stdSS.h"

#include <utility>
#include <vector>

namespace tovik::playlist {

namespace {

/// The label lists less than the patterns take in; it is the patterns that count.
constexpr std::string_view kFilter =
    "Audio files (*.mo3;*.xm;*.mod;*.s3m;*.it;*.mtm;*.umx;*.mp3;*.ogg;*.wav;*.flac;*.fla)|"
    "*.mo3;*.xm;*.mod;*.s3m;*.it;*.mtm;*.umx;*.mp?;*.ogg;*.wav;*.wma;*.flac;*.fla";

constexpr std::string_view kNoTime = "00:00";

/// A single path and the two zeros behind it.
constexpr std::size_t kPartsOfOne = 3;

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

AddMedia::AddMedia(stdSS& list, host::Dialogs& dialogs, const config::Errors& errors, Title title)
    : list_(list), dialogs_(dialogs), errors_(errors), title_(std::move(title)) {}

void AddMedia::Add_file() {
    const std::string chosen = host::chosenText(dialogs_.openFiles(
        {.title = title_(), .filters = host::filtersOf(kFilter), .manyFiles = true}));
    splitChosen(chosen, [this](const std::string& path) { add(path); });
}

void AddMedia::Stdss_OleDragDrop(std::span<const std::string> paths) {
    config::guard(errors_, config::player("list1_dragdrop"), [this, paths] {
        for (const std::string& path : paths) {
            if (base::isWebUrl(path)) {
                list_.AddItem({}, path, path, kNoTime, 0);
            } else if (isDropped(path)) {
                add(path);
            }
        }
    });
}

void AddMedia::add(const std::string& path) {
    list_.AddItem({}, path, GetLastBackSlash(path), kNoTime, 0);
}

} // namespace tovik::playlist
