// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/CdDecoder.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {

namespace {

/// Sectors that are read at a time: 0.36 s, the most that many drives give at once.
constexpr std::size_t kChunkSectors = 27;

/// Behind sectors that could not be read as many are left out as were lost already, up to a second,
/// and a quarter of them from four seconds on: a try may take seconds.
constexpr std::int32_t kLeftOut = kSectorsPerSecond;
constexpr std::int32_t kShareLeftOut = 4;

/// Where a minute on end cannot be read, the track is over.
constexpr std::int32_t kMostLost = 60 * kSectorsPerSecond;

constexpr std::size_t kFrameBytes = 4;
constexpr float kFullScale = 32768.0F;

float sampleAt(std::span<const std::byte> bytes, std::size_t at) {
    const auto low = static_cast<std::uint16_t>(bytes[at]);
    const auto high = static_cast<std::uint16_t>(bytes[at + 1]);
    return static_cast<float>(static_cast<std::int16_t>(low | (high << 8U))) / kFullScale;
}

} // namespace

OpenResult openCdTrack(const TrackOrder& order, const std::stop_token& calledOff) {
    const auto view = order.drive->viewOnceLooked(calledOff);
    if (!view) {
        return {.status = OpenStatus::noFile, .decoder = nullptr};
    }
    const auto place = placeOf(*view, order.track);
    if (!place) {
        order.health->note(view->disc.toc ? DiscTrouble::noTrack : DiscTrouble::noDisc);
        return {.status = view->disc.toc ? OpenStatus::notMine : OpenStatus::noFile,
                .decoder = nullptr};
    }
    return {.status = OpenStatus::opened,
            .decoder = std::make_unique<CdDecoder>(order.drive, *place, order.health, calledOff)};
}

CdDecoder::CdDecoder(std::shared_ptr<DriveWork> drive, const DiscPlace& place,
                     std::shared_ptr<TrackHealth> health, std::stop_token calledOff)
    : drive_(std::move(drive)), place_(place), health_(std::move(health)),
      calledOff_(std::move(calledOff)), chunk_(kChunkSectors * kSectorBytes) {}

std::int64_t CdDecoder::lengthFrames() const noexcept {
    return std::int64_t{place_.sectors} * static_cast<std::int64_t>(kSectorFrames);
}

/// Some sectors will be silence.
void CdDecoder::leaveOut() {
    const std::int32_t most = std::max(kLeftOut, lostInRow_ / kShareLeftOut);
    silent_ = std::min(std::clamp(lostInRow_, 1, most), place_.sectors - next_);
    lostInRow_ += silent_;
    health_->lose(silent_);
}

/// Makes the next piece of what is left out.
void CdDecoder::fillSilence() {
    const std::size_t sectors = std::min(kChunkSectors, static_cast<std::size_t>(silent_));
    filled_ = sectors * kSectorBytes;
    std::fill_n(chunk_.begin(), filled_, std::byte{0});
    silent_ -= static_cast<std::int32_t>(sectors);
    next_ += static_cast<std::int32_t>(sectors);
}

bool CdDecoder::readChunk() {
    used_ = 0;
    filled_ = 0;
    if (silent_ > 0) {
        fillSilence();
        return true;
    }
    if (over_ || lostInRow_ >= kMostLost || next_ >= place_.sectors) {
        return false;
    }
    const std::size_t wanted =
        std::min(kChunkSectors, static_cast<std::size_t>(place_.sectors - next_));
    // Behind a sector that was lost a single one shows soonest whether it goes on.
    const std::size_t asked = lostInRow_ > 0 ? 1 : wanted;
    const SectorRead got = drive_->read(place_.discNumber, place_.firstSector + next_,
                                        std::span(chunk_).first(asked * kSectorBytes), calledOff_);
    if (got.trouble == DiscTrouble::unreadable) {
        leaveOut();
        fillSilence();
        return true;
    }
    if (got.sectors == 0) {
        over_ = true;
        if (!calledOff_.stop_requested()) {
            health_->note(got.trouble == DiscTrouble::none ? DiscTrouble::noDisc : got.trouble);
        }
        return false;
    }
    lostInRow_ = 0;
    next_ += static_cast<std::int32_t>(got.sectors);
    filled_ = got.sectors * kSectorBytes;
    return true;
}

std::size_t CdDecoder::read(std::span<float> interleaved) {
    std::size_t done = 0;
    while (done < interleaved.size() && (used_ < filled_ || readChunk())) {
        const std::size_t count =
            std::min(interleaved.size() - done, (filled_ - used_) / sizeof(std::int16_t));
        const std::span<const std::byte> bytes = std::span(chunk_).subspan(used_);
        for (std::size_t i = 0; i < count; ++i) {
            interleaved[done + i] = sampleAt(bytes, i * sizeof(std::int16_t));
        }
        used_ += count * sizeof(std::int16_t);
        done += count;
    }
    return done / kChannels;
}

std::int64_t CdDecoder::seek(std::int64_t frame) {
    const std::int64_t stands = std::clamp<std::int64_t>(frame, 0, lengthFrames());
    const auto perSector = static_cast<std::int64_t>(kSectorFrames);
    next_ = static_cast<std::int32_t>(stands / perSector);
    used_ = 0;
    filled_ = 0;
    silent_ = 0;
    lostInRow_ = 0;
    if (stands % perSector != 0 && readChunk()) {
        used_ = static_cast<std::size_t>(stands % perSector) * kFrameBytes;
    }
    return stands;
}

} // namespace tovik::sound
