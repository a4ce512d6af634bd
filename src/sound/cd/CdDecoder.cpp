// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/CdDecoder.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {

namespace {

/// Sectors that are read at a time: 0.36 s, the most that many drives give at once.
constexpr std::size_t kChunkSectors = 27;

/// The most that is left out behind sectors that could not be read: a second.
constexpr std::int32_t kMostLeftOut = kSectorsPerSecond;

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

/// How many sectors are silence: one at first, then as many as were lost already.
std::size_t CdDecoder::leaveOut(std::size_t wanted) {
    const auto lost = std::clamp<std::int32_t>(lostInRow_, 1, kMostLeftOut);
    const std::size_t sectors = std::min(static_cast<std::size_t>(lost), wanted);
    lostInRow_ += static_cast<std::int32_t>(sectors);
    health_->lose(static_cast<std::int32_t>(sectors));
    std::fill_n(chunk_.begin(), sectors * kSectorBytes, std::byte{0});
    return sectors;
}

bool CdDecoder::readChunk() {
    used_ = 0;
    filled_ = 0;
    if (over_ || next_ >= place_.sectors) {
        return false;
    }
    const std::size_t wanted =
        std::min(kChunkSectors, static_cast<std::size_t>(place_.sectors - next_));
    // Behind a sector that was lost a single one shows soonest whether it goes on.
    const std::size_t asked = lostInRow_ > 0 ? 1 : wanted;
    const SectorRead got = drive_->read(place_.discNumber, place_.firstSector + next_,
                                        std::span(chunk_).first(asked * kSectorBytes), calledOff_);
    std::size_t sectors = got.sectors;
    if (got.trouble == DiscTrouble::unreadable) {
        sectors = leaveOut(wanted);
    } else if (sectors == 0) {
        over_ = true;
        if (!calledOff_.stop_requested()) {
            health_->note(got.trouble == DiscTrouble::none ? DiscTrouble::noDisc : got.trouble);
        }
        return false;
    } else {
        lostInRow_ = 0;
    }
    next_ += static_cast<std::int32_t>(sectors);
    filled_ = sectors * kSectorBytes;
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
    lostInRow_ = 0;
    if (stands % perSector != 0 && readChunk()) {
        used_ = static_cast<std::size_t>(stands % perSector) * kFrameBytes;
    }
    return stands;
}

} // namespace tovik::sound
