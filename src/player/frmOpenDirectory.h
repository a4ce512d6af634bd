// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that adds a folder to the playlist, as logic. Interface thread; the disk is looked at
// on a thread of its own.
#pragma once

#include "host/MessagePump.h"
#include "player/Core.h"
#include "playlist/MediaToAdd.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tovik::player {

class frmOpenDirectory {
public:
    /// Both are kept by reference.
    frmOpenDirectory(const Core& core, host::MessagePump& pump) : core_(core), pump_(pump) {}

    /// Tells that an add of this folder came to its end without a row. `hasFolders`: there are
    /// folders below that were not looked into. Set by who composes the player; none: nobody is
    /// told.
    std::function<void(const std::string& folder, bool hasFolders)> foundNothing;

    /// The dialog opens: an add counts as running from now on, and nothing has cancelled it.
    /// Raises what reading a setting raises.
    void Form_Load();

    /// The folder that was added last; there the tree begins.
    [[nodiscard]] const std::string& folder() const { return folder_; }

    /// Whether the dialog stays in front of other windows.
    [[nodiscard]] bool staysOnTop() const { return staysOnTop_; }

    /// Add was pressed, and the dialog is hidden: appends the files of the folder, and with
    /// `subfolders` (the state of `Check1`) once more all that is found in it and below, ordered by
    /// `AudioExtensions`. Which files become rows, and how often, tells `scannedRows`. Gives way
    /// again and again. With `Comfort::addsFilesOnce` each file of music becomes one row, and with
    /// `Comfort::ordersByFolder` they come by folder and name. Keeps the folder as the one added
    /// last; where that cannot be written it is told, and the add goes on. With
    /// `Comfort::tellsEmptyFolder` an add that gives no row is told.
    void Command1_Click(const std::string& folder, bool subfolders);

    /// Cancel was pressed, or the dialog closed.
    void Command2_Click();

    /// The list was cleared: ends every add that runs. One that is accepted from the dialog as it
    /// is open now adds nothing, unless `Comfort::clearsOnlyList` says otherwise.
    void cancel();

private:
    using Flag = std::shared_ptr<std::atomic<bool>>;

    class Running;

    void keepFolder(const std::string& folder);
    void add(const std::string& folder, bool subfolders, const Flag& cancelled);
    [[nodiscard]] bool addRows(const playlist::MediaItem& item, std::int32_t rows,
                               const std::atomic<bool>& cancelled);

    const Core& core_;
    host::MessagePump& pump_;
    std::string folder_;
    bool staysOnTop_ = false;
    Flag opening_;              ///< of the dialog as it is open now
    std::vector<Flag> running_; ///< an add may be started while another one runs
};

} // namespace tovik::player
