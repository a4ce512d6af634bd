// SPDX-License-Identifier: GPL-3.0-or-later
// Adding files to the playlist: by the dialog, by drag and drop, by a later start. Interface
// thread; the disk is looked at on a thread of its own.
#pragma once

#include "config/Errors.h"
#include "host/Dialogs.h"
#include "host/MessagePump.h"
#include "playlist/ListEvents.h"
#include "playlist/MediaToAdd.h"
#include "playlist/PlaylistFiles.h"

#include <atomic>
#include <exception>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::playlist {

class stdSS;

/// The folder with "/" at its end, unless there is one already.
[[nodiscard]] std::string RPP(std::string_view Path);

/// Appends a row as its source wants it: no length, and a title by its name unless it has one.
void appendItem(stdSS& list, const MediaItem& item);

/// A row gets the name of its file with the extension as its title, and no length: both come when
/// it is first played.
class AddMedia final : private ListObserver {
public:
    /// The words for the title of a dialog, asked for each time.
    using Title = std::function<std::string()>;

    /// Called with the first row that was added, while others may still follow.
    using Began = std::function<void(Row first)>;

    /// All of it outlives the object.
    struct Needs {
        stdSS& list;
        PlaylistFiles& files;
        host::Dialogs& dialogs;
        host::MessagePump& pump;
        const config::Errors& errors;
    };

    AddMedia(const Needs& needs, Title title);

    ~AddMedia() override;

    AddMedia(const AddMedia&) = delete;
    AddMedia& operator=(const AddMedia&) = delete;

    /// Asks for files and appends what was chosen, whatever its extension, in the order in which
    /// the dialog gives it. Lists and cue sheets are opened if `Comfort::opensDroppedLists` says
    /// so.
    void Add_file();

    /// Files were dropped on a list (`stdSS` and `List1` alike): appends each whose extension is
    /// known, in their order; others are passed over. Two deliberate oddities: folders are, too,
    /// unless `Comfort::scansDroppedFolders` says otherwise, and playlist files become rows unless
    /// `Comfort::opensDroppedLists` does. Paths are absolute, as bytes. A failure is logged and
    /// shown.
    void Stdss_OleDragDrop(std::span<const std::string> paths);

    /// Appends what these paths and addresses stand for, as one step that can be undone. Gives way
    /// again and again; ends early with the program or when the list is cleared, by whatever takes
    /// its place. Raises, once all the rest is added, why the first of the others cannot be read,
    /// and what reading a list raises.
    void add(std::span<const std::string> paths, const MediaSearch& search,
             const Began& began = {});

private:
    /// What is being added is given up.
    void rowsCleared() override;

    [[nodiscard]] static bool looksAtDisk(std::span<const std::string> paths);
    void addRow(const std::string& path);

    /// What a list file holds, up to where reading it failed.
    struct ListRead {
        std::vector<ListEntry> entries;
        std::exception_ptr failure;
    };

    [[nodiscard]] ListRead readList(const std::string& path) const;
    void append(const MediaToAdd& found, const std::atomic<bool>& cancelled, const Began& began);

    Needs p_;
    Title title_;
    std::vector<std::shared_ptr<std::atomic<bool>>> running_; ///< one may be begun beside another
};

/// The paths in what a dialog answered (`host::chosenText`), appended one by one to `add`.
void splitChosen(std::string_view text, const std::function<void(const std::string& path)>& add);

} // namespace tovik::playlist
