// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/Ripping.h"

#include "base/PathText.h"
#include "base/Text.h"
#include "cd/RipDrive.h"
#include "cd/RipFolder.h"
#include "cd/RipNames.h"
#include "cd/RipRows.h"
#include "config/ConversionLog.h"
#include "host/Counted.h"
#include "player/LiveSetting.h"
#include "player/SoundDevice.h"

#include <exception>
#include <utility>

namespace tovik::cd {

namespace {

// Texts of "Prompt" in the language files.
constexpr int kCancelQuestion = 0;
constexpr int kCancelTitle = 1;
constexpr int kOverwriteQuestion = 2;
constexpr int kOverwriteTitle = 3;

void call(const std::function<void()>& hook) {
    if (hook) {
        hook();
    }
}

host::MessageBox question(std::string text, std::string title) {
    return {.text = std::move(text),
            .title = std::move(title),
            .icon = host::MessageIcon::Question,
            .buttons = host::MessageButtons::YesNo,
            .defaultAnswer = host::MessageAnswer::No};
}

} // namespace

void Ripping::Rip_All() {
    if (const auto row = std::exchange(again_, std::nullopt)) {
        ripRow(*row);
        return;
    }
    command(config::procedureOf("TSR", "RipAll"), [this] {
        if (needs_.lstTracks.ListCount() == 0) {
            return;
        }
        setRunning(true);
        call(hooks.Init_CD_Ripper);
        // The disc may have gone, or another one have come.
        const playlist::Row rows = needs_.lstTracks.ListCount();
        const std::optional<Job> job = rows > 0 ? begin(false) : std::nullopt;
        if (job && run(*job, tracksOf(1, rows)) && job->format.branch == RipBranch::mp3) {
            call(hooks.unloadDisc);
        }
    });
}

void Ripping::mnuRipSel() {
    ripRow(needs_.lstTracks.SelectedIndex);
}

void Ripping::ripRow(playlist::Row row) {
    command(config::procedureOf("TSR", "RipSel"), [this, row] {
        refusedRow_ = row;
        if (row < 1 || row > needs_.lstTracks.ListCount()) {
            return;
        }
        setRunning(true);
        if (const std::optional<Job> job = begin(true)) {
            static_cast<void>(run(*job, tracksOf(row, row)));
        }
    });
}

/// One at a time. The dialog, which may begin the next one, comes back when this one is over.
void Ripping::command(const config::Procedure& procedure, const std::function<void()>& body) {
    if (busy()) {
        return;
    }
    {
        const host::Counted running(running_);
        config::guard(needs_.core.errors, procedure, body);
        // Set from the beginning, so that neither list nor drive change under its questions.
        if (needs_.core.state.RipRunning && !needs_.host.closing.ending()) {
            setRunning(false);
        }
    }
    const playlist::Row row = std::exchange(refusedRow_, 0);
    if (std::exchange(refused_, false)) {
        // A deliberate oddity: what is ripped from there is the disc, whatever was to be.
        if (row > 0 && needs_.core.state.comfort.ripsRefusedTrack) {
            again_ = row;
        }
        call(hooks.showDisc);
        again_.reset();
    }
}

void Ripping::mnuRipAll() const {
    if (!busy()) {
        call(hooks.showDisc);
    }
}

void Ripping::cancelrip() {
    const config::MultiLNG& language = needs_.words.language;
    const auto answer = needs_.host.dialogs.showMessage(question(
        language.get_Prompt_String(kCancelQuestion), language.get_Prompt_String(kCancelTitle)));
    if (answer == host::MessageAnswer::Yes) {
        needs_.disc.CancelRip = true;
    }
}

std::optional<Ripping::Job> Ripping::begin(bool alone) {
    config::Settings& settings = needs_.core.settings;
    needs_.disc.CancelRip = false;
    call(hooks.forgetOtherDisc);
    const auto format = knownFormat(player::readLive(settings, "DOF"));
    if (!format) {
        return std::nullopt;
    }
    const bool clean = comfort_.cleansRipNames;
    std::string album = albumName(needs_.form);
    if (album.empty()) {
        album = unnamedAlbum(needs_.words.unnamed(), needs_.host.clock.localTime());
    }
    const std::string root = ripFolder(needs_.host.paths, player::readLive(settings, "ROP"));
    const std::string folder = base::joinPath(root, clean ? cleanRipName(album) : ripName(album));
    // Who thinks about the question may put in another disc.
    const auto disc = [this] {
        return needs_.core.sound.discNumber(static_cast<std::uint32_t>(needs_.disc.CDDrive));
    };
    const std::uint32_t named = disc();
    if (!mayWriteInto(folder) || disc() != named) {
        return std::nullopt;
    }
    const std::string rates = player::readLive(settings, "DOB");
    return Job{.format = *format,
               .rate = format->rate ? ripRate(rates, *format->rate) : 0,
               .folder = folder,
               .root = root,
               .alone = alone};
}

/// Told where it is none of the table.
std::optional<RipFormat> Ripping::knownFormat(const std::string& dof) {
    const auto format = ripFormat(dof);
    if (!format) {
        const std::string words = base::replaceAll(
            needs_.words.language.get_Rip_String(config::RipText::NoFormat), "[x]", dof);
        config::noteConversion(needs_.host.paths, needs_.host.clock, words);
        needs_.host.dialogs.showMessage(
            {.text = words, .title = host::kProgramTitle, .icon = host::MessageIcon::Exclamation});
    }
    return format;
}

std::vector<Ripping::Track> Ripping::tracksOf(playlist::Row first, playlist::Row last) const {
    std::vector<Track> tracks;
    for (playlist::Row row = first; row <= last; ++row) {
        if (const auto number = trackOfRow(needs_.lstTracks, row)) {
            tracks.push_back({.number = *number, .row = row});
        }
    }
    return tracks;
}

bool Ripping::mayWriteInto(const std::string& folder) {
    const std::optional<bool> exists = folderExists(needs_.host.pump, folder);
    if (!exists) {
        return false;
    }
    if (*exists && comfort_.keepsEarlierRips) {
        return true;
    }
    if (!*exists) {
        try {
            return makeFolder(needs_.host.pump, folder);
        } catch (const base::RuntimeError& error) {
            needs_.core.errors.tell(error); // the log alone would leave the user without a word
            throw;
        }
    }
    const config::MultiLNG& language = needs_.words.language;
    const auto answer = needs_.host.dialogs.showMessage(
        question(base::replaceAll(language.get_Prompt_String(kOverwriteQuestion), "[x]", folder),
                 language.get_Prompt_String(kOverwriteTitle)));
    refused_ = answer != host::MessageAnswer::Yes;
    return !refused_;
}

void Ripping::setRunning(bool running) {
    player::PlayerState& state = needs_.core.state;
    state.RipRunning = running;
    if (running) {
        comfort_ = state.comfort;
    } else {
        state.RippingNow = false;
    }
    state.RipSparesSound = running && comfort_.playsWhileRipping;
    call(hooks.showPanel);
}

std::vector<std::int64_t> Ripping::lengthsOf(const Job& job,
                                             const std::vector<Track>& tracks) const {
    const bool byProgram =
        job.format.branch == RipBranch::mp3 || job.format.branch == RipBranch::ogg;
    const std::int32_t drive =
        byProgram ? encoderDrive(needs_.disc, comfort_) : needs_.disc.CDDrive;
    std::vector<std::int64_t> lengths;
    lengths.reserve(tracks.size());
    for (const Track& track : tracks) {
        lengths.push_back(needs_.core.sound.BASS_CD_GetTrackLength(
            static_cast<std::uint32_t>(drive), static_cast<std::uint32_t>(track.number)));
    }
    return lengths;
}

bool Ripping::run(const Job& job, const std::vector<Track>& tracks) {
    const bool alone = !comfort_.playsWhileRipping;
    if (alone) {
        call(hooks.Stop_play);
    }
    written_.clear();
    needs_.progress.begin(lengthsOf(job, tracks));
    RipEnd end = RipEnd::done;
    std::exception_ptr error;
    try {
        for (const Track& track : tracks) {
            needs_.progress.beginTrack();
            end = rip(job, track);
            if (end == RipEnd::abandoned) {
                return false; // nothing is there any more
            }
            needs_.progress.endTrack();
            if (end == RipEnd::hopeless || endCancelled()) {
                break;
            }
        }
    } catch (...) {
        error = std::current_exception();
    }
    needs_.progress.end();
    setRunning(false);
    // Whatever starts next may not open the device by itself.
    static_cast<void>(player::openSoundDevice(needs_.core.sound, needs_.window.handle()));
    if (error) {
        std::rethrow_exception(error);
    }
    return true;
}

RipEnd Ripping::rip(const Job& job, const Track& track) {
    switch (job.format.branch) {
    case RipBranch::mp3:
    case RipBranch::ogg:
        return ripByProgram(job, track);
    case RipBranch::wav: {
        const auto path = pathOf(job, track);
        return path ? ripper_.extractToWav(track.number, *path) : RipEnd::abandoned;
    }
    case RipBranch::wma: {
        RipEnd end = RipEnd::failed;
        config::guard(needs_.core.errors, config::procedureOf("TSR", "Extract2WMA"), [&] {
            const auto path = pathOf(job, track);
            end = path ? ripper_.extractToWma(track.number, *path) : RipEnd::abandoned;
        });
        return end;
    }
    }
    return RipEnd::failed;
}

RipEnd Ripping::ripByProgram(const Job& job, const Track& track) {
    const auto path = pathOf(job, track);
    if (!path) {
        return RipEnd::abandoned;
    }
    const RipEnd end = ripper_.Encoder(std::to_string(track.number), job.format.type, job.rate,
                                       *path, true, static_cast<std::int16_t>(track.row - 1));
    const bool goes = !ripper_.partFile().empty() && comfort_.removesPartFiles;
    if (end == RipEnd::done && job.format.branch == RipBranch::mp3 && !goes) {
        WriteMp3Tag(*path, track.number);
    }
    return end;
}

} // namespace tovik::cd
