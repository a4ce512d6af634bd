// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/mpeg/MpegDecoder.h"

#include "sound/decode/mpeg/MpegHeader.h"
#include "sound/decode/mpeg/MpegScan.h"

#include <algorithm>

namespace tovik::sound::mpeg {
namespace {

constexpr std::size_t kAheadFrames = 64;
// Seeks stop at this frame, months away, so that no arithmetic of the library overflows.
constexpr std::int64_t kFarthestFrame = std::int64_t{1} << 40;
constexpr std::chrono::hours kAsLongAsItTakes(1);

} // namespace

OpenResult openMpeg(const std::shared_ptr<const ByteStore>& store) {
    if (!looksLikeMpeg(*store)) {
        return {OpenStatus::notMine, nullptr};
    }
    return openMpegStream(store);
}

OpenResult openMpegStream(std::shared_ptr<const ByteStore> store) {
    std::unique_ptr<MpegHandle> handle = MpegHandle::open(store);
    if (!handle) {
        return {OpenStatus::broken, nullptr};
    }
    return {OpenStatus::opened, std::make_unique<MpegDecoder>(std::move(store), std::move(handle))};
}

MpegDecoder::MpegDecoder(std::shared_ptr<const ByteStore> store, std::unique_ptr<MpegHandle> handle)
    : store_(std::move(store)), handle_(std::move(handle)),
      length_(std::max<std::int64_t>(mpg123_length(handle_->get()), 0)) {}

std::unique_ptr<PacketScan> MpegDecoder::lengthScan() {
    return std::make_unique<MpegScan>(store_);
}

// Fills the span, or what there is up to the end.
std::size_t MpegDecoder::decode(std::span<float> interleaved) {
    const auto bytes = std::as_writable_bytes(interleaved);
    std::size_t done = 0;
    while (done < bytes.size() && !ended_) {
        std::size_t got = 0;
        const int result =
            mpg123_read(handle_->get(), bytes.data() + done, bytes.size() - done, &got);
        done += got;
        ended_ = result != MPG123_OK && result != MPG123_NEW_FORMAT;
    }
    return done / sizeof(float);
}

std::size_t MpegDecoder::read(std::span<float> interleaved) {
    const std::size_t fromAhead = std::min(ahead_.size() - aheadTaken_, interleaved.size());
    std::copy_n(ahead_.begin() + static_cast<std::ptrdiff_t>(aheadTaken_), fromAhead,
                interleaved.begin());
    aheadTaken_ += fromAhead;
    const std::size_t samples = fromAhead + decode(interleaved.subspan(fromAhead));
    return samples / static_cast<std::size_t>(channels());
}

bool MpegDecoder::lookAhead() {
    ahead_.resize(kAheadFrames * static_cast<std::size_t>(channels()));
    ahead_.resize(decode(ahead_));
    aheadTaken_ = 0;
    return !ahead_.empty();
}

std::int64_t MpegDecoder::findEnd() const {
    MpegScan scan(store_);
    while (!scan.run(kAsLongAsItTakes)) {
    }
    return scan.lengthFrames();
}

std::int64_t MpegDecoder::seek(std::int64_t frame) {
    const std::int64_t target = std::clamp<std::int64_t>(frame, 0, kFarthestFrame);
    ended_ = false;
    const off_t stands = mpg123_seek(handle_->get(), target, SEEK_SET);
    if (stands >= 0 && lookAhead()) {
        return stands;
    }
    // The library does not tell where a stream ends whose end it has met by a seek.
    ended_ = true;
    ahead_.clear();
    aheadTaken_ = 0;
    return std::min(target, findEnd());
}

} // namespace tovik::sound::mpeg
