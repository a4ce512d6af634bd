// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/DiscCalls.h"

#include "sound/cd/CdDecoder.h"

#include <chrono>
#include <thread>
#include <utility>

namespace tovik::sound {

namespace {

/// Drives are called D, E and so on.
constexpr int kFirstLetter = 3;

constexpr std::uint32_t kInfoSize = 24;

/// What the record says of what a drive reads; nobody looks at more than the first bit.
constexpr std::uint32_t kReadsAudio = 1;

std::optional<DoorAction> doorAction(std::uint32_t action) {
    switch (action) {
    case BASS_CD_DOOR_CLOSE:
        return DoorAction::close;
    case BASS_CD_DOOR_OPEN:
        return DoorAction::open;
    case BASS_CD_DOOR_LOCK:
        return DoorAction::lock;
    case BASS_CD_DOOR_UNLOCK:
        return DoorAction::unlock;
    default:
        return std::nullopt;
    }
}

} // namespace

void DiscCalls::lookOnce() {
    if (waited_) {
        return;
    }
    waited_ = true;
    Drives& drives = core_.drives();
    if (!drives.everLooked()) {
        drives.look();
    }
    // A look that somebody began a moment ago knows no more than none.
    const auto deadline = std::chrono::steady_clock::now() + core_.openPatience();
    while (drives.looking() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

std::shared_ptr<DriveWork> DiscCalls::driveOf(std::uint32_t drive) {
    auto found = core_.drives().find(drive);
    if (found == nullptr) {
        core_.fail(ErrorCode::illegalDevice);
    } else {
        core_.succeed();
    }
    return found;
}

std::optional<DiscToc> DiscCalls::tocOf(std::uint32_t drive) {
    const auto found = driveOf(drive);
    if (found == nullptr) {
        return std::nullopt;
    }
    const DriveView view = found->view();
    if (!view.disc.toc) {
        core_.fail(ErrorCode::cannotOpenFile);
    }
    return view.disc.toc;
}

void DiscCalls::lookAtDrives() {
    core_.drives().look();
    core_.succeed();
}

bool DiscCalls::lookingAtDrives() {
    return core_.drives().looking();
}

void DiscCalls::watchDrive(std::uint32_t drive, bool on) {
    if (const auto found = driveOf(drive); found != nullptr) {
        found->watch(on);
    }
}

std::uint32_t DiscCalls::discNumber(std::uint32_t drive) {
    const auto found = driveOf(drive);
    return found != nullptr ? found->view().discNumber : 0;
}

std::optional<DiscToc> DiscCalls::discToc(std::uint32_t drive) {
    return tocOf(drive);
}

std::optional<DiscReport> DiscCalls::discReport(Handle stream) {
    const Channel* const channel = core_.channels().find(stream);
    if (channel == nullptr || (channel->discHealth == nullptr && channel->rip == nullptr)) {
        core_.fail(channel == nullptr ? ErrorCode::invalidHandle : ErrorCode::notAvailable);
        return std::nullopt;
    }
    core_.succeed();
    return channel->rip != nullptr ? channel->rip->report() : channel->discHealth->report();
}

std::optional<std::string> DiscCalls::BASS_CD_GetDriveDescription(std::uint32_t drive) {
    const auto found = driveOf(drive);
    return found != nullptr ? std::optional(found->view().description) : std::nullopt;
}

int DiscCalls::BASS_CD_GetDriveLetter(std::uint32_t drive) {
    lookOnce();
    return driveOf(drive) != nullptr ? kFirstLetter + static_cast<int>(drive) : -1;
}

bool DiscCalls::BASS_CD_GetInfo(std::uint32_t drive, BASS_CD_INFO& info) {
    if (info.size != kInfoSize) {
        return core_.fail(ErrorCode::illegalParameter);
    }
    const auto found = driveOf(drive);
    if (found == nullptr) {
        return false;
    }
    const DriveFacts facts = found->view().facts;
    info.rwflags = kReadsAudio;
    info.canopen = facts.canOpen;
    info.canlock = facts.canLock;
    info.maxspeed = facts.maxSpeed;
    info.cache = facts.cache;
    return true;
}

bool DiscCalls::BASS_CD_IsReady(std::uint32_t drive) {
    return tocOf(drive).has_value();
}

int DiscCalls::BASS_CD_GetTracks(std::uint32_t drive) {
    const auto toc = tocOf(drive);
    return toc ? static_cast<int>(toc->tracks.size()) : -1;
}

std::int64_t DiscCalls::BASS_CD_GetTrackLength(std::uint32_t drive, std::uint32_t track) {
    const auto toc = tocOf(drive);
    if (!toc) {
        return -1;
    }
    if (track >= toc->tracks.size()) {
        core_.fail(ErrorCode::illegalParameter);
        return -1;
    }
    const DiscTrack& found = toc->tracks[track];
    return found.isData ? 0 : std::int64_t{found.sectors} * static_cast<std::int64_t>(kSectorBytes);
}

std::optional<std::string> DiscCalls::BASS_CD_GetID(std::uint32_t drive, std::uint32_t id) {
    const auto found = driveOf(drive);
    if (found == nullptr) {
        return std::nullopt;
    }
    std::string text = found->view().disc.text;
    if (id != BASS_CDID_TEXT || text.empty()) {
        core_.fail(ErrorCode::notAvailable);
        return std::nullopt;
    }
    return text;
}

bool DiscCalls::BASS_CD_Door(std::uint32_t drive, std::uint32_t action) {
    const auto found = driveOf(drive);
    if (found == nullptr) {
        return false;
    }
    const auto wanted = doorAction(action);
    if (!wanted) {
        return core_.fail(ErrorCode::illegalParameter);
    }
    found->door(*wanted);
    return true;
}

Handle DiscCalls::BASS_CD_StreamCreate(std::uint32_t drive, std::uint32_t track,
                                       std::uint32_t flags) {
    if (!core_.initialized()) {
        core_.fail(ErrorCode::notInitialized);
        return kNoHandle;
    }
    lookOnce();
    const auto found = driveOf(drive);
    if (found == nullptr) {
        return kNoHandle;
    }
    const DriveView view = found->view();
    const auto place = placeOf(view, track);
    const bool looked = view.discNumber > 0;
    const bool decodes = (flags & BASS_STREAM_DECODE) != 0;
    if (!place && (looked || decodes)) {
        const bool data = view.disc.toc && track < view.disc.toc->tracks.size();
        core_.fail(data ? ErrorCode::unsupportedFormat : ErrorCode::cannotOpenFile);
        return kNoHandle;
    }
    return decodes ? createRip(found, *place, flags) : createHeard(found, track, place, flags);
}

Handle DiscCalls::createRip(const std::shared_ptr<DriveWork>& drive, const DiscPlace& place,
                            std::uint32_t flags) {
    auto channel = std::make_unique<Channel>(FormatFamily::stream, flags, Opener{});
    channel->rip = std::make_unique<RipStream>(drive, place);
    return core_.add(std::move(channel), Answer::later);
}

Handle DiscCalls::createHeard(const std::shared_ptr<DriveWork>& drive, std::uint32_t track,
                              const std::optional<DiscPlace>& place, std::uint32_t flags) {
    auto health = std::make_shared<TrackHealth>();
    auto channel = std::make_unique<Channel>(
        FormatFamily::stream, flags | BASS_SAMPLE_FX,
        [order = TrackOrder{.drive = drive, .track = track, .health = health}](
            const std::stop_token& calledOff) { return openCdTrack(order, calledOff); },
        core_.remix(), Reading::disc);
    channel->discHealth = std::move(health);
    if (place) {
        channel->source()->expectLength(std::int64_t{place->sectors} *
                                        static_cast<std::int64_t>(kSectorFrames));
    }
    return core_.add(std::move(channel), place ? Answer::later : Answer::awaited);
}

} // namespace tovik::sound
