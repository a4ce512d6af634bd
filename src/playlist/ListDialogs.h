// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the list to a file that the user names, and loading one. Interface thread; a file is
// written on a thread of its own.
#pragma once

#include "host/Dialogs.h"
#include "host/Paths.h"
#include "playlist/ListWriter.h"
#include "playlist/PlaylistFiles.h"

#include <functional>
#include <string>

namespace tovik::playlist {

class stdSS;

/// The titles of the two dialogs, asked for each time.
struct ListDialogTitles {
    std::function<std::string()> load;
    std::function<std::string()> save;
};

/// What fails in either of them is not told.
class ListDialogs {
public:
    /// All but the titles are kept by reference.
    ListDialogs(const stdSS& list, PlaylistFiles& files, host::Dialogs& dialogs,
                const host::Paths& paths, ListDialogTitles titles);

    /// Asks for a name and writes the list there, in the form that the last three characters of
    /// the name tell: "m3u", "pls" or "htm", in exactly this case. Another name writes nothing.
    void SaveImg_Click();

    /// Asks for a playlist file and appends its entries, if it is a PLS file. For an M3U file it
    /// reads another one: see `kLoadedM3u`.
    void loadImg_Click();

    /// Waits until what was saved is on the disk.
    void wait() { writer_.wait(); }

private:
    const stdSS& list_;
    PlaylistFiles& files_;
    host::Dialogs& dialogs_;
    const host::Paths& paths_;
    ListDialogTitles titles_;
    ListWriter writer_;
};

} // namespace tovik::playlist
