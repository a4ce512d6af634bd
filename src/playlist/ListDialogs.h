// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the list to a file that the user names, and loading one. Interface thread; a file is
// written on a thread of its own.
#pragma once

#include "base/Comfort.h"
#include "config/Errors.h"
#include "host/Dialogs.h"
#include "host/MessagePump.h"
#include "host/Paths.h"
#include "playlist/ListWriter.h"
#include "playlist/PlaylistFiles.h"

#include <functional>
#include <string>

namespace tovik::playlist {

class stdSS;

/// The words of the two dialogs, asked for each time.
struct ListDialogWords {
    std::function<std::string()> load;      ///< the title
    std::function<std::string()> save;      ///< the title
    std::function<std::string(int)> notice; ///< by its number in the language file
};

/// What fails in either of them is not told, unless `Comfort` (`loadsChosenList`,
/// `savesAnyEnding`) says otherwise.
class ListDialogs {
public:
    struct Needs {
        stdSS& list;
        PlaylistFiles& files;
        host::Dialogs& dialogs;
        host::MessagePump& pump;
        const host::Paths& paths;
        const config::Errors& errors;
        const base::Comfort& comfort;
    };

    /// All that is needed is kept by reference.
    ListDialogs(const Needs& needs, ListDialogWords words);

    /// Asks for a name and writes the list there, in the form that the last three characters of
    /// the name tell: "m3u", "pls" or "htm", in exactly this case. Another name writes nothing.
    /// With `Comfort::savesAnyEnding` the extension tells it, in any case, the dialog offers all
    /// forms and adds the extension of the one that is chosen.
    void SaveImg_Click();

    /// Asks for a playlist file and appends its entries, if it is a PLS file. For an M3U file it
    /// reads another one: see `kLoadedM3u`. With `Comfort::loadsChosenList` every list is read
    /// itself, whole, before anything happens to the rows; with `Comfort::asksBeforeLoading` the
    /// user is asked whether it replaces them.
    void loadImg_Click();

    /// Waits until what was saved is on the disk.
    void wait() { writer_.wait(); }

private:
    void load(const std::string& path);
    void loadAsOfOld(const std::string& path);

    /// Whether the entries of this list may come; the rows are gone if it replaces them.
    [[nodiscard]] bool mayCome(const std::string& path);

    [[nodiscard]] std::string notice(int number, const std::string& path) const;
    void save(std::string path, std::string text);

    Needs needs_;
    ListDialogWords words_;
    ListWriter writer_;
};

} // namespace tovik::playlist
