// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListDialogs.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "host/DialogText.h"
#include "host/DrivePath.h"
#include "playlist/HtmlList.h"
#include "playlist/M3uList.h"
#include "playlist/PlsList.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tovik::playlist {

namespace {

// A deliberate oddity: the load button reads this file, in the folder "drive_c" of the data folder,
// for whatever M3U file was chosen. Without it nothing is loaded, and nothing is said. A list named
// on the command line is read itself.
constexpr std::string_view kLoadedM3u = R"(c:\test.m3u)";

constexpr std::string_view kSaveFilter =
    "M3U Playlist (*.m3u)|*.m3u|PLS Playlist (*.pls)|*.pls|HTML File(*.htm)|*.htm";
constexpr std::string_view kLoadFilter = "Playlist Files (*.m3u;*.pls)|*.m3u;*.pls|";

using Writer = std::string (*)(const stdSS& list);

constexpr std::array<std::pair<std::string_view, Writer>, 3> kWriters = {{
    {"m3u", m3uText},
    {"pls", plsText},
    {"htm", htmlText},
}};

constexpr std::size_t kEnding = 3; ///< characters of a name that tell its form

std::string_view endingOf(std::string_view name) {
    return name.substr(name.size() - std::min(name.size(), kEnding));
}

} // namespace

ListDialogs::ListDialogs(const stdSS& list, PlaylistFiles& files, host::Dialogs& dialogs,
                         const host::Paths& paths, ListDialogTitles titles)
    : list_(list), files_(files), dialogs_(dialogs), paths_(paths), titles_(std::move(titles)) {}

void ListDialogs::SaveImg_Click() {
    const auto name = dialogs_.saveFile({.title = titles_.save(),
                                         .filters = host::filtersOf(kSaveFilter),
                                         .defaultExtension = "m3u"});
    if (!name) {
        return;
    }
    const std::string_view ending = endingOf(*name);
    const auto* const form =
        std::ranges::find(kWriters, ending, &std::pair<std::string_view, Writer>::first);
    if (form != kWriters.end()) {
        writer_.write(*name, form->second(list_));
    }
}

void ListDialogs::loadImg_Click() {
    const std::vector<std::string> files =
        dialogs_.openFiles({.title = titles_.load(), .filters = host::filtersOf(kLoadFilter)});
    if (files.empty()) {
        return;
    }
    const std::string& chosen = files.front();
    const std::string ending = base::toLowerAscii(endingOf(chosen));
    try {
        if (ending == "m3u") {
            static_cast<void>(files_.open_m3u(host::drivePath(paths_, kLoadedM3u)));
        } else if (ending == "pls") {
            files_.Openpls2(chosen);
        }
    } catch (const base::RuntimeError&) {
        return; // the rows read so far stay
    }
}

} // namespace tovik::playlist
