// SPDX-License-Identifier: GPL-3.0-or-later
// Tracks to WAV and WMA, which need no program.
#include "base/Numbers.h"
#include "base/PathText.h"
#include "cd/RipFile.h"
#include "cd/RipFormat.h"
#include "cd/RipNames.h"
#include "cd/RipRows.h"
#include "cd/TrackRipper.h"
#include "config/Errors.h"
#include "config/ErrorTexts.h"
#include "player/LiveSetting.h"
#include "sound/api/PcmHeader.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tovik::cd {

namespace {

constexpr std::uint32_t kFlags = sound::BASS_STREAM_DECODE | sound::BASS_STREAM_AUTOFREE;
constexpr std::size_t kBlock = 20'000;
constexpr int kDecimals = 2;
constexpr const char* kNoStream = "Unable to Create CD Stream!";

constexpr std::uint32_t kWmaRate = 44100;
constexpr std::uint32_t kWmaFlags = 65536;
constexpr std::size_t kWmaRateElement = 5;
constexpr std::uint32_t kBitsPerKilobit = 1000;

/// Keeps the door of a drive locked while it lives.
class LockedDoor {
public:
    LockedDoor(sound::SoundLibrary& sound, std::uint32_t locked, std::uint32_t unlocked)
        : sound_(sound), unlocked_(unlocked) {
        sound_.BASS_CD_Door(locked, sound::BASS_CD_DOOR_LOCK);
    }

    ~LockedDoor() { sound_.BASS_CD_Door(unlocked_, sound::BASS_CD_DOOR_UNLOCK); }

    LockedDoor(const LockedDoor&) = delete;
    LockedDoor& operator=(const LockedDoor&) = delete;

private:
    sound::SoundLibrary& sound_;
    std::uint32_t unlocked_;
};

std::string headOf(sound::SoundLibrary& sound, sound::Handle stream) {
    constexpr std::uint32_t kMostChannels = 2;
    sound::BASS_CHANNELINFO info;
    sound.BASS_ChannelGetInfo(stream, info);
    int frequency = 0;
    int volume = 0;
    int pan = 0;
    sound.BASS_ChannelGetAttributes(stream, frequency, volume, pan);
    const std::uint16_t bits = (info.flags & sound::BASS_SAMPLE_8BITS) != 0 ? 8 : 16;
    return sound::pcmHeader(static_cast<std::uint32_t>(frequency),
                            static_cast<std::uint16_t>(std::min(info.chans, kMostChannels)), bits,
                            0, 0);
}

} // namespace

RipEnd TrackRipper::ExtractAudioTrackToWav(std::int32_t track, const std::string& folder) {
    return extractToWav(track, base::joinPath(folder, plainTrackFile(track, ".WAV")));
}

RipEnd TrackRipper::extractToWav(std::int32_t track, const std::string& path) {
    partFile_.clear();
    try {
        return writeWav(track, path);
    } catch (...) {
        config::ShowRoutineError(needs_.host.dialogs, "ExtractAudioTrack", "Player",
                                 config::currentError());
        needs_.core.state.RippingNow = false;
        return RipEnd::failed;
    }
}

TrackFlow::Job TrackRipper::jobOf(sound::Handle stream, std::int32_t track) const {
    return {.channel = stream,
            .block = kBlock,
            .row = rowOfTrack(needs_.lstTracks, track) - 1,
            .decimals = kDecimals};
}

/// Without a disc no other track will have a stream, either.
RipEnd TrackRipper::withoutStream(std::uint32_t drive) const {
    return sound().discToc(drive) ? RipEnd::failed : RipEnd::hopeless;
}

RipEnd TrackRipper::writeWav(std::int32_t track, const std::string& path) {
    const auto drive = static_cast<std::uint32_t>(needs_.disc.CDDrive);
    const LockedDoor door(sound(), drive, drive);
    sound::Handle& stream = needs_.disc.CDStream;
    sound().BASS_StreamFree(stream);
    stream = sound().BASS_CD_StreamCreate(drive, static_cast<std::uint32_t>(track), kFlags);
    if (stream == sound::kNoHandle) {
        needs_.host.dialogs.showMessage({.text = kNoStream, .title = host::kProgramTitle});
        return withoutStream(drive);
    }
    RipFile file(path, headOf(sound(), stream));
    TrackFlow flow(needs_);
    const bool goesOn =
        flow.run(jobOf(stream, track),
                 {.takesMore = [&] { return file.takesMore(); },
                  .failed = [&] { return file.ended(); },
                  .take = [&](std::span<const std::byte> bytes) { file.write(bytes); }});
    if (!goesOn) {
        return RipEnd::abandoned;
    }
    const RipEnd end = endOfDisc({.stream = stream, .drive = drive, .track = track, .path = path},
                                 flow, RipEnd::done);
    sound().BASS_ChannelStop(stream);
    sound().BASS_StreamFree(stream);
    file.close(flow.moved());
    const auto waited = flow.waitFor([&] { return file.ended(); });
    if (waited == TrackFlow::Waited::ending) {
        return RipEnd::abandoned;
    }
    needs_.core.state.RippingNow = false;
    if (waited == TrackFlow::Waited::givenUp) {
        return givenUp(path);
    }
    if (const std::string failure = file.failure(); !failure.empty()) {
        tellUnwritten(path, failure);
        return RipEnd::failed;
    }
    partFile_ = flow.stopped() ? path : std::string();
    return end;
}

RipEnd TrackRipper::ExtractAudioTrackToWMA(std::int32_t track) {
    std::string folder =
        ripFolder(needs_.host.paths, player::readLive(needs_.core.settings, "ROP"));
    if (const std::string album = albumName(needs_.form); !album.empty()) {
        folder = base::joinPath(folder, ripName(album));
    }
    const std::string name = trackTitle(needs_.form, static_cast<std::size_t>(track));
    return extractToWma(track, base::joinPath(folder, ripName(name) + ".WMA"));
}

RipEnd TrackRipper::ExtractAudioTrackToWMA(std::int32_t track, const std::string& folder) {
    return extractToWma(track, base::joinPath(folder, plainTrackFile(track, ".WMA")));
}

RipEnd TrackRipper::extractToWma(std::int32_t track, const std::string& path) {
    partFile_.clear();
    const std::int32_t rate =
        ripRate(player::readLive(needs_.core.settings, "DOB"), kWmaRateElement);
    const auto drive = static_cast<std::uint32_t>(needs_.disc.CDDrive);
    const LockedDoor door(sound(), 0, drive);
    sound::Handle& stream = needs_.disc.CDStream;
    stream = sound().BASS_CD_StreamCreate(drive, static_cast<std::uint32_t>(track), kFlags);
    if (stream == sound::kNoHandle) {
        config::ShowErrorBox(needs_.host.dialogs, kNoStream,
                             static_cast<std::int32_t>(sound().BASS_ErrorGetCode()));
        return withoutStream(drive);
    }
    const sound::Handle encoder = sound().BASS_WMA_EncodeOpenFile(
        kWmaRate, kWmaFlags, static_cast<std::uint32_t>(rate) * kBitsPerKilobit, path);
    TrackFlow flow(needs_);
    const RipEnd written = flowToWma(track, encoder, flow, path);
    if (written == RipEnd::abandoned) {
        return written;
    }
    const RipEnd end =
        endOfDisc({.stream = stream, .drive = drive, .track = track, .path = path}, flow, written);
    sound().BASS_ChannelStop(stream);
    sound().BASS_StreamFree(stream);
    needs_.core.state.RippingNow = false;
    partFile_ = flow.stopped() && end != RipEnd::hopeless ? path : std::string();
    return end;
}

RipEnd TrackRipper::flowToWma(std::int32_t track, sound::Handle encoder, TrackFlow& flow,
                              const std::string& path) {
    const auto report = [&] { return sound().encodeReport(encoder); };
    const auto failed = [&] {
        const auto now = report();
        return !now || now->stage == sound::EncodeStage::failed;
    };
    const auto noMoreAt = [&](sound::EncodeStage stage) {
        return [&, stage] { return failed() || report()->stage >= stage; };
    };
    const auto wait = [&](sound::EncodeStage stage) -> std::optional<RipEnd> {
        switch (flow.waitFor(noMoreAt(stage))) {
        case TrackFlow::Waited::done:
            return std::nullopt;
        case TrackFlow::Waited::givenUp:
            return givenUp(path);
        case TrackFlow::Waited::ending:
            break;
        }
        return RipEnd::abandoned;
    };
    if (const auto end = wait(sound::EncodeStage::running)) {
        return *end;
    }
    const auto tellFailure = [&](const char* text) {
        const auto last = report();
        config::ShowErrorBox(needs_.host.dialogs,
                             std::string(text) + "\n" + path +
                                 (last && !last->words.empty() ? "\n" + last->words : ""),
                             -1);
        return RipEnd::failed;
    };
    if (failed()) {
        const RipEnd end = tellFailure("An error occured while opening output file.");
        sound().BASS_WMA_EncodeClose(encoder);
        return end;
    }
    setTags(encoder, track);
    const sound::Handle stream = needs_.disc.CDStream;
    const bool goesOn =
        flow.run(jobOf(stream, track),
                 {.takesMore = [&] { return report()->takesMore; },
                  .failed = failed,
                  .take =
                      [&](std::span<const std::byte> bytes) {
                          // A failure shows in the next round.
                          static_cast<void>(sound().BASS_WMA_EncodeWrite(encoder, bytes));
                      }});
    sound().BASS_WMA_EncodeClose(encoder);
    if (!goesOn) {
        return RipEnd::abandoned;
    }
    if (const auto end = wait(sound::EncodeStage::finished)) {
        return *end;
    }
    return failed() ? tellFailure("An error occured while encoding WMA data.") : RipEnd::done;
}

void TrackRipper::setTags(sound::Handle encoder, std::int32_t track) {
    const DiscForm& form = needs_.form;
    const std::string name = trackTitle(form, static_cast<std::size_t>(track));
    const std::array<std::pair<const char*, const std::string&>, 5> tags{{
        {"WM/AlbumTitle", form.Text1[0]},
        {"Author", form.Text2[0]},
        {"WM/Year", form.Text1[1]},
        {"WM/Genre", form.Text2[2]},
        {"Title", name},
    }};
    for (const auto& [tag, value] : tags) {
        sound().BASS_WMA_EncodeSetTag(encoder, tag, value);
    }
    sound().BASS_WMA_EncodeSetTag(encoder, "", "");
}

} // namespace tovik::cd
