// SPDX-License-Identifier: GPL-3.0-or-later
// A track of a disc as a source of samples: plain reads, in the order in which they are heard. What
// cannot be read is silence, and the further a scratch goes on the more of it is left out, since
// each try at it may take seconds. The reader's thread.
#pragma once

#include "sound/cd/DiscPlace.h"
#include "sound/cd/TrackHealth.h"
#include "sound/decode/Decoder.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <stop_token>
#include <vector>

namespace tovik::sound {

/// What a track is opened with.
struct TrackOrder {
    std::shared_ptr<DriveWork> drive;
    std::uint32_t track = 0;
    std::shared_ptr<TrackHealth> health;
};

/// Opens a track, waiting for its drive: a disc that is seen only now is looked at first. A track
/// that is none of the disc's, and one with data, is `notMine`.
[[nodiscard]] OpenResult openCdTrack(const TrackOrder& order, const std::stop_token& calledOff);

class CdDecoder final : public Decoder {
public:
    CdDecoder(std::shared_ptr<DriveWork> drive, const DiscPlace& place,
              std::shared_ptr<TrackHealth> health, std::stop_token calledOff);

    [[nodiscard]] int sampleRate() const noexcept override { return kRate; }

    [[nodiscard]] int channels() const noexcept override { return kChannels; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override;

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override { return nullptr; }

    std::size_t read(std::span<float> interleaved) override;
    std::int64_t seek(std::int64_t frame) override;

private:
    static constexpr int kRate = 44100;
    static constexpr int kChannels = 2;

    [[nodiscard]] bool readChunk();
    void leaveOut();
    void fillSilence();

    const std::shared_ptr<DriveWork> drive_;
    const DiscPlace place_;
    const std::shared_ptr<TrackHealth> health_;
    const std::stop_token calledOff_;
    std::vector<std::byte> chunk_; ///< what was read last
    std::size_t used_ = 0;         ///< bytes of it that were handed out
    std::size_t filled_ = 0;       ///< bytes of it that hold something
    std::int32_t next_ = 0;        ///< sector of the track behind the chunk
    std::int32_t lostInRow_ = 0;   ///< sectors that were left out just before it
    std::int32_t silent_ = 0;      ///< of them, from it on, still to be given
    bool over_ = false;            ///< the disc is gone
};

} // namespace tovik::sound
