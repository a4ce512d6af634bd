// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListDialogs.h"

#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "host/BesideJob.h"
#include "host/DialogText.h"
#include "host/DrivePath.h"
#include "playlist/FileNames.h"
#include "playlist/HtmlList.h"
#include "playlist/ListForm.h"
#include "playlist/ListUndo.h"
#include "playlist/M3uList.h"
#include "playlist/PlsList.h"
#include "playlist/stdSS.h"
#include "playlist/XspfList.h"

#include <algorithm>
#include <array>
#include <memory>
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

constexpr std::string_view kSaveFilterOfAll =
    "M3U Playlist (*.m3u)|*.m3u|M3U Playlist, UTF-8 (*.m3u8)|*.m3u8|PLS Playlist (*.pls)|*.pls|"
    "XSPF Playlist (*.xspf)|*.xspf|HTML File (*.htm)|*.htm;*.html";
constexpr std::string_view kLoadFilterOfAll =
    "Playlist Files (*.m3u;*.m3u8;*.pls;*.xspf)|*.m3u;*.m3u8;*.pls;*.xspf|";

// Among the notices.
constexpr int kCancelNotice = 3;
constexpr int kAskNotice = 13;
constexpr int kReplaceNotice = 14;
constexpr int kAppendNotice = 15;
constexpr int kNoListNotice = 16;
constexpr int kEmptyNotice = 22;

struct Form {
    std::string_view extension;
    std::string (*text)(const stdSS& list, const ListManner& manner);
    bool isOfOld; ///< without comfort, too
};

constexpr auto kForms = std::to_array<Form>({
    {"m3u", m3uText, true},
    {"pls", plsText, true},
    {"htm", htmlText, true},
    {"m3u8", m3u8Text, false},
    {"xspf", xspfText, false},
    {"html", htmlText, false},
});

constexpr std::size_t kEnding = 3; ///< characters of a name that tell its form

std::string_view endingOf(std::string_view name) {
    return name.substr(name.size() - std::min(name.size(), kEnding));
}

const Form* formOf(std::string_view name, bool anyEnding) {
    const auto* const form = std::ranges::find_if(kForms, [name, anyEnding](const Form& row) {
        return anyEnding ? base::equalsIgnoringCase(get_extension(name), row.extension)
                         : row.isOfOld && endingOf(name) == row.extension;
    });
    return form == kForms.end() ? nullptr : form;
}

} // namespace

ListDialogs::ListDialogs(const Needs& needs, ListDialogWords words)
    : needs_(needs), words_(std::move(words)) {}

void ListDialogs::SaveImg_Click() {
    const bool anyEnding = needs_.comfort.savesAnyEnding;
    auto name = needs_.dialogs.saveFile(
        {.title = words_.save(),
         .filters = host::filtersOf(anyEnding ? kSaveFilterOfAll : kSaveFilter),
         .defaultExtension = "m3u",
         .addsFilterExtension = anyEnding});
    if (!name) {
        return;
    }
    const Form* form = formOf(*name, anyEnding);
    if (form == nullptr && anyEnding) {
        form = kForms.data(); // as the first of the filters
        name->append(1, '.').append(form->extension);
    }
    if (form != nullptr) {
        const std::string folder(base::folderPart(*name));
        save(*std::move(name),
             form->text(needs_.list, {.comfort = needs_.comfort, .folder = folder}));
    }
}

void ListDialogs::save(std::string path, std::string text) {
    if (!needs_.comfort.savesAnyEnding) {
        writer_.write(std::move(path), std::move(text));
        return;
    }
    const auto outcome = std::make_shared<std::error_code>();
    writer_.write(path, std::move(text),
                  [outcome](std::error_code failure) { *outcome = failure; });
    static_cast<void>(host::runBeside(
        needs_.pump, [this] { writer_.wait(); }, host::AtEnd::finish));
    if (*outcome) {
        needs_.errors.reportAndTell(
            base::withPlace(base::RuntimeError(base::errorNumberOf(*outcome)), path),
            config::player("Load"));
    }
}

void ListDialogs::loadImg_Click() {
    const std::vector<std::string> files = needs_.dialogs.openFiles(
        {.title = words_.load(),
         .filters =
             host::filtersOf(needs_.comfort.opensMoreLists ? kLoadFilterOfAll : kLoadFilter)});
    if (files.empty()) {
        return;
    }
    if (needs_.comfort.loadsChosenList) {
        load(files.front());
    } else {
        loadAsOfOld(files.front());
    }
}

void ListDialogs::loadAsOfOld(const std::string& path) {
    const std::string ending = base::toLowerAscii(endingOf(path));
    try {
        if (ending == "m3u") {
            static_cast<void>(needs_.files.open_m3u(host::drivePath(needs_.paths, kLoadedM3u)));
        } else if (ending == "pls") {
            needs_.files.Openpls2(path);
        }
    } catch (const base::RuntimeError&) {
        return; // the rows read so far stay
    }
}

void ListDialogs::load(const std::string& path) {
    try {
        const auto content = needs_.files.readList(path);
        if (!content) {
            return;
        }
        if (content->entries.empty()) {
            const int words = content->isList ? kEmptyNotice : kNoListNotice;
            needs_.dialogs.showMessage({.text = notice(words, path),
                                        .title = host::kProgramTitle,
                                        .icon = host::MessageIcon::Exclamation});
            return;
        }
        const ListUndo::Step step(needs_.list); // what goes and what comes, in one
        if (mayCome(path)) {
            needs_.files.append(content->entries);
        }
    } catch (const base::RuntimeError& error) {
        needs_.errors.reportAndTell(base::withPlace(error, path), config::player("Load"));
    }
}

bool ListDialogs::mayCome(const std::string& path) {
    if (!needs_.comfort.asksBeforeLoading || needs_.list.ListCount() == 0) {
        return true;
    }
    // Where nobody answers nothing is lost.
    const host::MessageAnswer answer =
        needs_.dialogs.showMessage({.text = notice(kAskNotice, path),
                                    .title = host::kProgramTitle,
                                    .icon = host::MessageIcon::Question,
                                    .buttons = host::MessageButtons::YesNoCancel,
                                    .defaultAnswer = host::MessageAnswer::No,
                                    .cancelCaption = words_.notice(kCancelNotice),
                                    .yesCaption = words_.notice(kReplaceNotice),
                                    .noCaption = words_.notice(kAppendNotice)});
    if (answer == host::MessageAnswer::Yes) {
        needs_.files.stopAutoload();
        needs_.list.Clear();
    }
    return answer != host::MessageAnswer::Cancel;
}

std::string ListDialogs::notice(int number, const std::string& path) const {
    return base::replaceAll(words_.notice(number), "[x]", base::displayText(base::lastPart(path)));
}

} // namespace tovik::playlist
