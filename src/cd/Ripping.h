// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that rip a disc or a track of it. Interface thread; while a rip runs the rest of the
// program goes on, and a second one cannot be begun.
#pragma once

#include "base/Comfort.h"
#include "cd/RipFormat.h"
#include "cd/RipNeeds.h"
#include "cd/TrackRipper.h"
#include "tags/TagWarning.h"
#include "tags/TagWork.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tovik::cd {

class Ripping {
public:
    /// All of them outlive the object.
    Ripping(const RipNeeds& needs, tags::TagWarning& warning, tags::TagWork& work)
        : needs_(needs), warning_(warning), work_(work), ripper_(needs_, comfort_) {}

    Ripping(const Ripping&) = delete;
    Ripping& operator=(const Ripping&) = delete;

    /// Set by who composes the player; one that is not set does nothing.
    struct Hooks {
        std::function<void()> Stop_play{};
        std::function<void()> Init_CD_Ripper{};
        std::function<void()> showDisc{};   ///< the dialog of disc information; closed on return
        std::function<void()> unloadDisc{}; ///< what was entered in it goes
        std::function<void()> forgetOtherDisc{}; ///< the same where it is of another disc
        std::function<void()> showPanel{};       ///< whether a rip runs is another
    } hooks;

    /// Rips the tracks of all rows of the list, or the one whose folder was refused before. What
    /// goes wrong is logged.
    void Rip_All();

    /// The same for the selected row.
    void mnuRipSel();

    /// Opens the dialog of disc information, whose button rips.
    void mnuRipAll() const;

    /// Asks whether the rip that runs is to be cancelled.
    void cancelrip();

    /// Writes what the form tells into both tags of a file; the track is counted from 0. What goes
    /// wrong is logged. A deliberate split: the first version gets no album, the second no artist;
    /// unless the last job began with `Comfort::fillsBothTags`.
    void WriteMp3Tag(const std::string& path, std::int32_t track);

private:
    /// What the settings say of a job.
    struct Job {
        RipFormat format;
        std::int32_t rate = 0;
        std::string folder; ///< absolute
        std::string root;   ///< where that is
        bool alone = false; ///< one track
    };

    /// A row and what it stands for.
    struct Track {
        std::int32_t number = 0; ///< of the disc, counted from 0
        playlist::Row row = 0;
    };

    void command(const config::Procedure& procedure, const std::function<void()>& body);
    [[nodiscard]] std::optional<Job> begin(bool alone);
    [[nodiscard]] std::vector<Track> tracksOf(playlist::Row first, playlist::Row last) const;
    [[nodiscard]] bool mayWriteInto(const std::string& folder);
    [[nodiscard]] std::optional<RipFormat> knownFormat(const std::string& dof);

    /// False when the program is ending.
    [[nodiscard]] bool run(const Job& job, const std::vector<Track>& tracks);
    [[nodiscard]] std::vector<std::int64_t> lengthsOf(const Job& job,
                                                      const std::vector<Track>& tracks) const;
    [[nodiscard]] RipEnd rip(const Job& job, const Track& track);
    [[nodiscard]] RipEnd ripByProgram(const Job& job, const Track& track);
    void ripRow(playlist::Row row);

    /// None when the program is ending.
    [[nodiscard]] std::optional<std::string> pathOf(const Job& job, const Track& track);
    [[nodiscard]] std::string nameOf(const Job& job, const Track& track) const;
    [[nodiscard]] bool endCancelled();
    void writeTags(const std::string& path, std::int32_t track);
    void setRunning(bool running);

    /// A command runs already, or is asking something.
    [[nodiscard]] bool busy() const { return running_ > 0; }

    RipNeeds needs_;
    tags::TagWarning& warning_;
    tags::TagWork& work_;
    base::Comfort comfort_{}; ///< as it was when the job began, which ends by it
    TrackRipper ripper_;
    int running_ = 0;                      ///< commands
    bool refused_ = false;                 ///< the folder is there, and is to stay as it is
    playlist::Row refusedRow_ = 0;         ///< the track that was to go there; 0: the disc
    std::optional<playlist::Row> again_{}; ///< the row that the dialog's button rips
    std::set<std::string> written_{};      ///< by the job
};

} // namespace tovik::cd
