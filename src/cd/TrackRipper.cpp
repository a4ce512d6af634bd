// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/TrackRipper.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "cd/RipDrive.h"
#include "cd/RipNames.h"
#include "config/ConversionLog.h"
#include "config/ErrorTexts.h"
#include "player/LiveSetting.h"
#include "player/SoundDevice.h"

#include <utility>

namespace tovik::cd {

namespace {

constexpr std::uint32_t kFlags = sound::BASS_STREAM_DECODE | sound::BASS_STREAM_AUTOFREE;
constexpr std::size_t kEncoderBlock = 262'144;

/// How often formats of channels are looked at again: never.
constexpr std::uint32_t kFormatOption = 9;

bool ended(const std::optional<sound::EncodeReport>& report) {
    return !report || report->stage == sound::EncodeStage::finished ||
           report->stage == sound::EncodeStage::failed;
}

bool failed(const std::optional<sound::EncodeReport>& report) {
    return !report || report->stage == sound::EncodeStage::failed;
}

} // namespace

RipEnd TrackRipper::Encoder(const std::string& source, std::string_view type, std::int32_t bitrate,
                            const std::string& path, bool isCdTrack, std::int16_t row) {
    const std::int32_t priority =
        player::readLive(needs_.core.settings, "EPRIO", [](const std::string& text) {
            return base::toInt32(base::textToNumber(text));
        });
    auto line = encoderLine(type, bitrate, priority, needs_.host.paths.dataFolder(), path);
    const auto program = line ? needs_.host.programs.find(line->program) : std::nullopt;
    if (line && !program) {
        return noProgram(*line);
    }
    if (line && isCdTrack && comfort_.fillsBothTags) {
        addTags(*line, tagsOf(needs_.form, base::toInt32(base::textToNumber(source))));
    }
    partFile_.clear();
    const bool alone = !comfort_.playsWhileRipping; // nothing else sounds
    if (alone) {
        sound().BASS_Free();
    }
    static_cast<void>(player::openSoundDevice(sound(), needs_.window.handle()));
    sound().BASS_SetConfig(kFormatOption, 0);
    sound().BASS_Encode_Stop(encoderChannel_);
    encoderChannel_ = openSource(source, isCdTrack);
    auto failure =
        encoderChannel_ != sound::kNoHandle ? sound::ErrorCode::ok : sound().BASS_ErrorGetCode();
    RipEnd end = RipEnd::done;
    TrackFlow flow(needs_);
    if (line) {
        end = encode(*line, *program,
                     {.channel = encoderChannel_, .block = kEncoderBlock, .row = row}, flow, path);
        if (end == RipEnd::abandoned) {
            return end;
        }
        if (end == RipEnd::failed && failure == sound::ErrorCode::ok) {
            failure = sound::ErrorCode::cannotCreateFile;
        }
    }
    if (isCdTrack) {
        end = endOfDisc({.stream = encoderChannel_,
                         .drive = drive(),
                         .track = base::toInt32(base::textToNumber(source)),
                         .path = path},
                        flow, end);
    }
    sound().BASS_StreamFree(encoderChannel_);
    if (alone) {
        sound().BASS_Free();
    }
    partFile_ = flow.stopped() && end != RipEnd::hopeless ? path : std::string();
    // The library given back with success has forgotten what went wrong before.
    const sound::ErrorCode last = sound().BASS_ErrorGetCode();
    const auto code = static_cast<std::int32_t>(failure != sound::ErrorCode::ok ? failure : last);
    config::logConversion(needs_.host.paths, needs_.host.clock, code, source);
    needs_.core.state.RippingNow = false;
    return end;
}

sound::Handle TrackRipper::openSource(const std::string& source, bool isCdTrack) {
    if (isCdTrack) {
        const std::int32_t track = base::toInt32(base::textToNumber(source));
        return sound().BASS_CD_StreamCreate(drive(), static_cast<std::uint32_t>(track), kFlags);
    }
    if (base::toUpperAscii(source).ends_with("WMA")) {
        return sound().BASS_WMA_StreamCreateFile(false, source, 0, 0, kFlags);
    }
    return sound().BASS_StreamCreateFile(false, source, 0, 0, kFlags);
}

std::uint32_t TrackRipper::drive() const {
    return static_cast<std::uint32_t>(encoderDrive(needs_.disc, comfort_));
}

RipEnd TrackRipper::encode(const EncoderLine& line, const std::string& program,
                           const TrackFlow::Job& job, TrackFlow& flow, const std::string& path) {
    if (job.channel == sound::kNoHandle) {
        return RipEnd::failed; // the log tells of it
    }
    const bool runs = sound().BASS_Encode_Start(job.channel,
                                                {.text = line.text,
                                                 .program = program,
                                                 .arguments = line.arguments,
                                                 .output = path,
                                                 .niceness = line.niceness},
                                                0);
    if (!runs) {
        tellUnwritten(path, program);
        return RipEnd::failed;
    }
    const auto report = [&] { return sound().encodeReport(job.channel); };
    const bool goesOn = flow.run(job, {.takesMore =
                                           [&] {
                                               const auto now = report();
                                               return now && now->takesMore;
                                           },
                                       .failed = [&] { return failed(report()); },
                                       .take = [](std::span<const std::byte>) {}});
    if (!goesOn) {
        return RipEnd::abandoned;
    }
    sound().BASS_Encode_Stop(job.channel);
    switch (flow.waitFor([&] { return ended(report()); })) {
    case TrackFlow::Waited::done:
        break;
    case TrackFlow::Waited::givenUp:
        return givenUp(path);
    case TrackFlow::Waited::ending:
        return RipEnd::abandoned;
    }
    const auto last = report();
    if (failed(last)) {
        tellUnwritten(path, last ? last->words : std::string());
        return RipEnd::failed;
    }
    return RipEnd::done;
}

RipEnd TrackRipper::endOfDisc(const Source& source, const TrackFlow& flow, RipEnd end) {
    const auto note = [&](const std::string& words) {
        config::noteConversion(needs_.host.paths, needs_.host.clock,
                               "Track " + std::to_string(source.track + 1) + ": " + words);
    };
    const auto report = sound().discReport(source.stream).value_or(sound::DiscReport());
    if (report.lostSectors > 0 || report.repaired > 0) {
        note(std::to_string(report.lostSectors) + " sectors lost, " +
             std::to_string(report.repaired) + " places repaired: " + source.path);
    }
    const bool gone = report.trouble == sound::DiscTrouble::noDisc ||
                      report.trouble == sound::DiscTrouble::noDrive ||
                      (source.stream == sound::kNoHandle && !sound().discToc(source.drive));
    if (!gone && !flow.brokenOff()) {
        return end;
    }
    const std::string words =
        base::replaceAll(needs_.words.language.get_Rip_String(gone ? config::RipText::DiscGone
                                                                   : config::RipText::Incomplete),
                         "[x]", source.path);
    note(words);
    tell(words);
    return gone ? RipEnd::hopeless : RipEnd::failed;
}

RipEnd TrackRipper::noProgram(const EncoderLine& line) {
    constexpr std::size_t kExtension = 4;
    const std::string name = line.program.substr(0, line.program.size() - kExtension);
    const std::string words = base::replaceAll(
        base::replaceAll(needs_.words.language.get_Rip_String(config::RipText::NoProgram), "[x]",
                         name),
        "[y]", line.package);
    config::noteConversion(needs_.host.paths, needs_.host.clock, words);
    tell(words);
    return RipEnd::hopeless;
}

std::string TrackRipper::unwritten(const std::string& path) const {
    return base::replaceAll(needs_.words.language.get_Rip_String(config::RipText::Unwritten), "[x]",
                            path);
}

RipEnd TrackRipper::givenUp(const std::string& path) {
    const std::string words = unwritten(path);
    config::noteConversion(needs_.host.paths, needs_.host.clock, words);
    tell(words);
    return RipEnd::hopeless;
}

void TrackRipper::tellUnwritten(const std::string& path, const std::string& words) {
    tell(words.empty() ? unwritten(path) : unwritten(path) + "\n" + words);
}

void TrackRipper::tell(const std::string& words) {
    needs_.host.dialogs.showMessage(
        {.text = words, .title = host::kProgramTitle, .icon = host::MessageIcon::Exclamation});
}

} // namespace tovik::cd
