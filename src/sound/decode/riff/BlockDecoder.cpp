// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/riff/BlockDecoder.h"

#include <algorithm>
#include <utility>

namespace tovik::sound::riff {

BlockDecoder::BlockDecoder(BlockPlace place)
    : place_(std::move(place)), downmix_(place_.speakers), mono_(place_.speakers.size() == 1),
      length_(measureLength()) {}

std::int64_t BlockDecoder::measureLength() const {
    const std::int64_t bytes = std::max<std::int64_t>(place_.store->size(), 0);
    const auto blockBytes = static_cast<std::int64_t>(place_.codec->blockBytes());
    const auto blockFrames = static_cast<std::int64_t>(place_.codec->blockFrames());
    const auto rest = static_cast<std::size_t>(bytes % blockBytes);
    const auto restFrames = static_cast<std::int64_t>(place_.codec->framesIn(rest));
    return std::min(bytes / blockBytes * blockFrames + restFrames, place_.mostFrames);
}

void BlockDecoder::decodeBlock(std::int64_t index) {
    const std::size_t size = place_.codec->blockBytes();
    const auto bytes = readBytes(*place_.store, index * static_cast<std::int64_t>(size), size);
    const std::size_t frames =
        bytes.size() == size ? place_.codec->blockFrames() : place_.codec->framesIn(bytes.size());
    all_.resize(frames * place_.speakers.size());
    place_.codec->decode(bytes, all_);
    if (place_.speakers.size() <= 2) {
        std::swap(samples_, all_);
    } else {
        samples_.resize(frames * 2);
        downmix_.mix(all_, samples_);
    }
    decodedBlock_ = index;
}

// What lies decoded from the position on.
std::span<const float> BlockDecoder::fromHere() {
    const auto blockFrames = static_cast<std::int64_t>(place_.codec->blockFrames());
    if (position_ >= length_) {
        return {};
    }
    if (position_ / blockFrames != decodedBlock_) {
        decodeBlock(position_ / blockFrames);
    }
    const auto channels = static_cast<std::size_t>(mono_ ? 1 : 2);
    const auto passed = static_cast<std::size_t>(position_ % blockFrames) * channels;
    const auto left = static_cast<std::size_t>(length_ - position_) * channels;
    const std::span<const float> rest =
        std::span(samples_).subspan(std::min(passed, samples_.size()));
    return rest.first(std::min(rest.size(), left));
}

std::size_t BlockDecoder::read(std::span<float> interleaved) {
    const auto channels = static_cast<std::size_t>(mono_ ? 1 : 2);
    std::size_t done = 0;
    while (done < interleaved.size()) {
        const std::span<const float> here = fromHere();
        if (here.empty()) {
            break; // the end, or where the file was cut off meanwhile
        }
        const std::size_t count = std::min(here.size(), interleaved.size() - done);
        std::copy_n(here.begin(), count, interleaved.begin() + static_cast<std::ptrdiff_t>(done));
        done += count;
        position_ += static_cast<std::int64_t>(count / channels);
    }
    return done / channels;
}

std::int64_t BlockDecoder::seek(std::int64_t frame) {
    position_ = std::clamp<std::int64_t>(frame, 0, length_);
    decodedBlock_ = -1; // the file may have changed
    return position_;
}

} // namespace tovik::sound::riff
