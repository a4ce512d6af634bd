// SPDX-License-Identifier: GPL-3.0-or-later
// Adding files to the playlist: by the dialog and by drag and drop. No file is opened or looked at.
// Interface thread.
#pragma once

#include "config/Errors.h"
#include "host/Dialogs.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace tovik::playlist {

class stdSS;

/// The folder with "/" at its end, unless there is one already.
[[nodiscard]] std::string RPP(std::string_view Path);

/// A row gets the name of its file with the extension as its title, and no length: both come when
/// it is first played.
class AddMedia {
public:
    /// The words for the title of a dialog, asked for each time.
    using Title = std::function<std::string()>;

    /// All are kept by reference.
    AddMedia(stdSS& list, host::Dialogs& dialogs, const config::Errors& errors, Title title);

    /// Asks for files and appends what was chosen, whatever its extension, in the order in which
    /// the dialog gives it.
    void Add_file();

    /// Files were dropped on a list (`stdSS` and `List1` alike): appends each whose extension is
    /// known, in their order; others, and folders, are passed over. Paths are absolute, as bytes.
    /// A failure is logged and shown.
    void Stdss_OleDragDrop(std::span<const std::string> paths);

private:
    void add(const std::string& path);

    stdSS& list_;
    host::Dialogs& dialogs_;
    const config::Errors& errors_;
    Title title_;
};

/// The paths in what a dialog answered (`host::chosenText`), appended one by one to `add`.
void splitChosen(std::string_view text, const std::function<void(const std::string& path)>& add);

} // namespace tovik::playlist
