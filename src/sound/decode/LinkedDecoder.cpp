// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/LinkedDecoder.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {
namespace {

constexpr std::size_t kFramesAtOnce = 4096;

} // namespace

std::unique_ptr<LinkedDecoder>
LinkedDecoder::create(std::vector<std::unique_ptr<Decoder>> decoders) {
    std::unique_ptr<LinkedDecoder> linked(new LinkedDecoder);
    for (std::unique_ptr<Decoder>& decoder : decoders) {
        if (!linked->add(std::move(decoder))) {
            return nullptr;
        }
    }
    if (linked->links_.empty()) {
        return nullptr;
    }
    linked->enter(0, 0);
    return linked;
}

bool LinkedDecoder::add(std::unique_ptr<Decoder> decoder) {
    Link link;
    const int rate = decoder->sampleRate();
    if (rate != Resampler::kOutputRate) {
        link.resampler = Resampler::create(rate, decoder->channels());
        if (!link.resampler) {
            return false;
        }
    }
    link.begin = length_;
    link.frames = (decoder->lengthFrames() * Resampler::kOutputRate + rate / 2) / rate;
    link.decoder = std::move(decoder);
    length_ += link.frames;
    links_.push_back(std::move(link));
    return true;
}

// Goes on with a link from one of its frames, which is counted at the engine's rate.
void LinkedDecoder::enter(std::size_t index, std::int64_t frame) {
    current_ = index;
    ready_.clear();
    taken_ = 0;
    left_ = 0;
    if (index < links_.size()) {
        Link& link = links_[index];
        left_ = link.frames - frame;
        link.decoder->seek(frame * link.decoder->sampleRate() / Resampler::kOutputRate);
        if (link.resampler) {
            link.resampler->reset();
        }
    }
}

std::size_t LinkedDecoder::read(std::span<float> interleaved) {
    std::size_t done = 0;
    while (done < interleaved.size() && (taken_ < ready_.size() || advance())) {
        const std::size_t count = std::min(ready_.size() - taken_, interleaved.size() - done);
        std::copy_n(ready_.begin() + static_cast<std::ptrdiff_t>(taken_), count,
                    interleaved.begin() + static_cast<std::ptrdiff_t>(done));
        taken_ += count;
        done += count;
    }
    return done / 2;
}

// Makes the next frames ready; false at the end.
bool LinkedDecoder::advance() {
    while (current_ < links_.size()) {
        fill(links_[current_]);
        if (!ready_.empty()) {
            return true;
        }
        enter(current_ + 1, 0);
    }
    return false;
}

void LinkedDecoder::fill(Link& link) {
    taken_ = 0;
    ready_.clear();
    const auto channels = static_cast<std::size_t>(link.decoder->channels());
    std::size_t frames = 1;
    while (ready_.empty() && frames > 0) {
        decoded_.resize(kFramesAtOnce * channels);
        frames = link.decoder->read(decoded_);
        convert(link, std::span(decoded_).first(frames * channels));
    }
    // From a place between two frames rounding may give one more.
    const auto owed = static_cast<std::size_t>(std::max<std::int64_t>(left_, 0)) * 2;
    ready_.resize(std::min(ready_.size(), owed));
    left_ -= static_cast<std::int64_t>(ready_.size() / 2);
}

// Nothing decoded is the end of the link.
void LinkedDecoder::convert(Link& link, std::span<const float> decoded) {
    const auto channels = static_cast<std::size_t>(link.decoder->channels());
    const std::size_t frames = decoded.size() / channels;
    if (link.resampler) {
        ready_.resize(2 * std::max(link.resampler->mostOutput(frames), kFramesAtOnce));
        const std::size_t got =
            frames > 0 ? link.resampler->process(decoded, ready_) : link.resampler->flush(ready_);
        ready_.resize(2 * got);
    } else if (channels == 2) {
        ready_.assign(decoded.begin(), decoded.end());
    } else {
        ready_.resize(2 * frames);
        doubleMono(decoded, ready_);
    }
}

std::int64_t LinkedDecoder::seek(std::int64_t frame) {
    const std::int64_t target = std::clamp<std::int64_t>(frame, 0, length_);
    const auto behind = std::ranges::find_if(
        links_, [target](const Link& link) { return target < link.begin + link.frames; });
    const auto index = static_cast<std::size_t>(behind - links_.begin());
    enter(index, behind == links_.end() ? 0 : target - behind->begin);
    return target;
}

} // namespace tovik::sound
