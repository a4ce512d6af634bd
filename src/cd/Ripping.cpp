// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/Ripping.h"

#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/Text.h"
#include "cd/CdDrives.h"
#include "cd/RipNames.h"
#include "config/WriteFailure.h"
#include "host/BesideJob.h"
#include "host/Counted.h"
#include "player/LiveSetting.h"
#include "player/SoundDevice.h"
#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"
#include "tags/TagField.h"

#include <filesystem>
#include <memory>
#include <numeric>
#include <system_error>
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

/// A text of the form as a tag holds it.
std::string tagBytes(const std::string& text) {
    tags::TagField field;
    field.type(text);
    return field.bytes();
}

/// Whether there is such a folder, looked for beside this thread; nothing when the program is
/// ending.
std::optional<bool> folderExists(host::MessagePump& pump, const std::string& path) {
    const auto found = std::make_shared<bool>(false);
    const bool goesOn = host::runBeside(
        pump, [found, path] { *found = PathExists(base::folderPart(path), base::lastPart(path)); });
    return goesOn ? std::optional(*found) : std::nullopt;
}

/// False when the program is ending. Raises what making a folder raises, with its path.
bool makeFolder(host::MessagePump& pump, const std::string& path) {
    return host::runBeside(pump, [path] {
        std::error_code failure;
        std::filesystem::create_directories(path, failure);
        if (failure) {
            config::raiseWriteFailure(failure, path);
        }
    });
}

} // namespace

void Ripping::Rip_All() {
    command(config::procedureOf("TSR", "RipAll"), [this] {
        if (needs_.lstTracks.ListCount() == 0) {
            return;
        }
        call(hooks.Init_CD_Ripper);
        // The disc may have gone, or another one have come.
        const std::optional<Job> job =
            needs_.lstTracks.ListCount() > 0 ? begin(false) : std::nullopt;
        if (!job) {
            return;
        }
        std::vector<std::int32_t> tracks(static_cast<std::size_t>(needs_.lstTracks.ListCount()));
        std::iota(tracks.begin(), tracks.end(), 0);
        if (run(*job, tracks) && job->format.branch == RipBranch::mp3) {
            call(hooks.unloadDisc);
        }
    });
}

void Ripping::mnuRipSel() {
    command(config::procedureOf("TSR", "RipSel"), [this] {
        const playlist::Row row = needs_.lstTracks.SelectedIndex;
        if (row < 1 || row > needs_.lstTracks.ListCount()) {
            return;
        }
        if (const std::optional<Job> job = begin(true)) {
            static_cast<void>(run(*job, {row - 1}));
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
    }
    if (std::exchange(refused_, false)) {
        call(hooks.showDisc);
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
    std::string album = albumName(needs_.form);
    if (album.empty()) {
        album = unnamedAlbum(needs_.words.unnamed(), needs_.host.clock.localTime());
    }
    const std::string root = ripFolder(needs_.host.paths, player::readLive(settings, "ROP"));
    const std::string folder = base::joinPath(root, ripName(album));
    if (!mayWriteInto(folder)) {
        return std::nullopt;
    }
    const auto format = ripFormat(player::readLive(settings, "DOF"));
    if (!format) {
        return std::nullopt;
    }
    const std::string rates = player::readLive(settings, "DOB");
    return Job{.format = *format,
               .rate = format->rate ? ripRate(rates, *format->rate) : 0,
               .folder = folder,
               .alone = alone};
}

bool Ripping::mayWriteInto(const std::string& folder) {
    const std::optional<bool> exists = folderExists(needs_.host.pump, folder);
    if (!exists) {
        return false;
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
    needs_.core.state.RipRunning = running;
    if (!running) {
        needs_.core.state.RippingNow = false;
    }
    call(hooks.showPanel);
}

bool Ripping::run(const Job& job, const std::vector<std::int32_t>& tracks) {
    call(hooks.Stop_play);
    std::vector<std::int64_t> lengths;
    lengths.reserve(tracks.size());
    for (const std::int32_t track : tracks) {
        lengths.push_back(needs_.core.sound.BASS_CD_GetTrackLength(
            static_cast<std::uint32_t>(needs_.disc.CDDrive), static_cast<std::uint32_t>(track)));
    }
    setRunning(true);
    needs_.progress.begin(lengths);
    RipEnd end = RipEnd::done;
    std::exception_ptr error;
    try {
        for (const std::int32_t track : tracks) {
            needs_.progress.beginTrack();
            end = rip(job, track);
            if (end == RipEnd::abandoned) {
                return false; // nothing is there any more
            }
            needs_.progress.endTrack();
            if (end == RipEnd::hopeless) {
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

RipEnd Ripping::rip(const Job& job, std::int32_t track) {
    switch (job.format.branch) {
    case RipBranch::mp3:
    case RipBranch::ogg:
        return ripByProgram(job, track);
    case RipBranch::wav:
        return ripper_.ExtractAudioTrackToWav(track, job.folder);
    case RipBranch::wma: {
        RipEnd end = RipEnd::failed;
        config::guard(needs_.core.errors, config::procedureOf("TSR", "Extract2WMA"),
                      [&] { end = ripper_.ExtractAudioTrackToWMA(track); });
        return end;
    }
    }
    return RipEnd::failed;
}

RipEnd Ripping::ripByProgram(const Job& job, std::int32_t track) {
    const std::string name = ripName(trackTitle(needs_.form, static_cast<std::size_t>(track)));
    const std::string extension =
        job.alone ? shortExtension(job.format) : std::string(job.format.extension);
    const std::string path = base::joinPath(job.folder, name + extension);
    const RipEnd end = ripper_.Encoder(std::to_string(track), job.format.type, job.rate, path, true,
                                       static_cast<std::int16_t>(track));
    if (end == RipEnd::done && job.format.branch == RipBranch::mp3) {
        WriteMp3Tag(path, track);
    }
    return end;
}

void Ripping::WriteMp3Tag(const std::string& path, std::int32_t track) {
    config::guard(needs_.core.errors, config::procedureOf("TSR", "WriteMp3Tag"), [&] {
        const DiscForm& form = needs_.form;
        const std::string title = tagBytes(trackTitle(form, static_cast<std::size_t>(track)));
        const std::string year = tagBytes(form.Text1[1]);
        tags::cMP3ID3v1 first(warning_);
        first.MP3File(path);
        first.Artist(tagBytes(form.Text2[0]));
        first.Title(title);
        first.Year(year);
        if (form.V1Genre >= 0) {
            first.genre(static_cast<std::uint8_t>(form.V1Genre));
        }
        first.track(static_cast<std::uint8_t>(track + 1));
        first.Update();

        tags::cMP3ID3v2 second(warning_, work_);
        second.MP3File(path);
        second.Album(tagBytes(form.Text1[0]));
        second.Title(title);
        second.Year(year);
        second.track(std::to_string(track + 1));
        second.EncodedBy("Tovik");
        if (form.V2Genre >= 0) {
            second.genre(static_cast<std::uint8_t>(form.V2Genre));
        }
        static_cast<void>(second.Update());
    });
}

} // namespace tovik::cd
