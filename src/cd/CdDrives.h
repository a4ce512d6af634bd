// SPDX-License-Identifier: GPL-3.0-or-later
// The drives as the user chooses among them, and the tracks of the chosen one. Drives may take
// seconds to answer; while one is waited for, the rest of the program goes on. Interface thread.
#pragma once

#include "cd/CdTrackList.h"
#include "cd/DriveBox.h"
#include "host/MessagePump.h"
#include "host/Timer.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tovik::cd {

class CdDrives {
public:
    /// All of it outlives the object.
    struct Needs {
        CdTrackList::Needs tracks;
        host::MessagePump& pump;
    };

    explicit CdDrives(const Needs& needs);
    CdDrives(const CdDrives&) = delete;
    CdDrives& operator=(const CdDrives&) = delete;

    /// Set by who composes the player; one that is not set does nothing.
    struct Hooks {
        std::function<void()> clrIMG_Click{};                 ///< empties the playlist
        std::function<void(const std::string&)> showDrives{}; ///< letters, told apart by "|"
    } hooks;

    /// Looks which drives there are, giving way meanwhile, fills the box and selects its first
    /// entry (see `kRipDrive`). Nothing but that while the program ends, and while another one
    /// waits.
    void Init_CD_Ripper();

    /// The same without waiting: what is found comes when all drives have answered, or when they
    /// had 20 s for it, and the entry that was selected is selected again where it still is there.
    /// Nothing while a rip runs.
    void beginInit();

    /// The user has chosen an entry of the box. While a rip runs the box stays as it was.
    void choose(std::int32_t index);

    /// An entry of the box was chosen. What goes wrong is logged and told.
    void cmbCDDrives_Click(std::int32_t index);

    /// The list of tracks must stay as it is.
    [[nodiscard]] bool rips() const;

    /// Reads what the current drive can do.
    void LoadCDDrive();

    /// Empties the playlist and fills it with the tracks of the disc in the drive at this place of
    /// the box, as it is when the drives were looked at anew. Nothing while a rip runs.
    void PlayAudioCD(std::int32_t index);

    /// While it is on, another disc in the current drive loads the list of tracks anew, unless a
    /// rip runs.
    void watch(bool on);

    DriveBox cmbCDDrives;
    CdTrackList tracks;

private:
    [[nodiscard]] bool lookAndWait();
    void fill();
    void refill();
    void select(std::int32_t index);
    void look();
    void followDisc();

    Needs needs_;
    sound::SoundLibrary& sound_;
    CdState& state_;
    std::unique_ptr<host::Timer> lookTimer_;  ///< while a look of `beginInit` runs
    std::int32_t rounds_ = 0;                 ///< of that timer, that this look has taken
    std::unique_ptr<host::Timer> watchTimer_; ///< while the drive is watched
    std::uint32_t listedDisc_ = 0;            ///< whose tracks the list shows
    bool waiting_ = false;
};

/// Whether the folder `path` holds a folder `name` itself.
[[nodiscard]] bool PathExists(std::string_view path, std::string_view name);

} // namespace tovik::cd
