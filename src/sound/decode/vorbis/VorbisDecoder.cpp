// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/vorbis/VorbisDecoder.h"

#include "sound/decode/LinkedDecoder.h"
#include "sound/decode/OggHead.h"
#include "sound/decode/Resampler.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

namespace tovik::sound::vorbis {
namespace {

constexpr int kMostFrames = 4096;
// The library cannot make sense of one place, but often goes on behind it.
constexpr int kErrorsInARow = 16;

using enum Speaker;

// By the number of channels; Vorbis I specification, 4.3.9.
constexpr std::array<std::array<Speaker, 8>, 9> kSpeakers = {{
    {},
    {frontCentre},
    {frontLeft, frontRight},
    {frontLeft, frontCentre, frontRight},
    {frontLeft, frontRight, backLeft, backRight},
    {frontLeft, frontCentre, frontRight, backLeft, backRight},
    {frontLeft, frontCentre, frontRight, backLeft, backRight, bass},
    {frontLeft, frontCentre, frontRight, sideLeft, sideRight, backCentre, bass},
    {frontLeft, frontCentre, frontRight, sideLeft, sideRight, backLeft, backRight, bass},
}};

Downmix downmixOf(std::size_t channels) {
    if (channels < kSpeakers.size()) {
        return Downmix(std::span(kSpeakers[channels]).first(channels));
    }
    return Downmix(usualSpeakers(channels));
}

bool canBePlayed(VorbisFile& file) {
    const long rate = file.info(0).rate;
    for (int link = 0; link < file.links(); ++link) {
        if (file.info(link).channels < 1) {
            return false;
        }
    }
    return rate >= Resampler::kLowestRate && rate <= Resampler::kHighestRate;
}

bool hasSeveralRates(VorbisFile& file) {
    for (int link = 1; link < file.links(); ++link) {
        if (file.info(link).rate != file.info(0).rate) {
            return true;
        }
    }
    return false;
}

// Links of several rates have no place on one time line: each is opened for itself.
OpenResult openLinks(const std::shared_ptr<const ByteStore>& store, VorbisFile& file) {
    std::vector<std::unique_ptr<Decoder>> links;
    const std::span begins(file.get()->offsets, static_cast<std::size_t>(file.links()));
    for (std::size_t link = 0; link < begins.size(); ++link) {
        const std::int64_t end = link + 1 < begins.size() ? begins[link + 1] : store->size();
        OpenResult opened = openVorbis(partOf(store, begins[link], end - begins[link]));
        if (opened.decoder) {
            links.push_back(std::move(opened.decoder));
        }
    }
    std::unique_ptr<Decoder> decoder = LinkedDecoder::create(std::move(links));
    return {decoder ? OpenStatus::opened : OpenStatus::broken, std::move(decoder)};
}

int channelsOf(VorbisFile& file) {
    for (int link = 0; link < file.links(); ++link) {
        if (file.info(link).channels != 1) {
            return 2;
        }
    }
    return 1;
}

// A chain that breaks off in the head of its last link is one without that link.
std::unique_ptr<VorbisFile> openWhole(const std::shared_ptr<const ByteStore>& store) {
    std::unique_ptr<VorbisFile> file = VorbisFile::open(store);
    const std::int64_t last = file ? 0 : lastLinkAt(*store);
    return last > 0 ? VorbisFile::open(partOf(store, 0, last)) : std::move(file);
}

} // namespace

bool isVorbis(const ByteStore& store) {
    return oggContent(store) == OggContent::vorbis;
}

OpenResult openVorbis(const std::shared_ptr<const ByteStore>& store) {
    if (!isVorbis(*store)) {
        return {OpenStatus::notMine, nullptr};
    }
    std::unique_ptr<VorbisFile> file = openWhole(store);
    if (file && hasSeveralRates(*file)) {
        return openLinks(store, *file);
    }
    // The library knows whole pages only; a file that has none yet is left to others.
    if (!file || !canBePlayed(*file) || ov_pcm_total(file->get(), -1) <= 0) {
        return {OpenStatus::broken, nullptr};
    }
    return {OpenStatus::opened, std::make_unique<VorbisDecoder>(std::move(file))};
}

VorbisDecoder::VorbisDecoder(std::unique_ptr<VorbisFile> file)
    : file_(std::move(file)), rate_(static_cast<int>(file_->info(0).rate)),
      channels_(channelsOf(*file_)),
      length_(std::max<std::int64_t>(ov_pcm_total(file_->get(), -1), 0)),
      blocks_(rate_, channels_) {}

std::size_t VorbisDecoder::read(std::span<float> interleaved) {
    const auto channels = static_cast<std::size_t>(channels_);
    std::size_t done = 0;
    while (done < interleaved.size() && (!blocks_.empty() || advance())) {
        done += blocks_.take(interleaved.subspan(done)) * channels;
    }
    return done / channels;
}

bool VorbisDecoder::advance() {
    for (int errors = 0; errors < kErrorsInARow && !ended_; ++errors) {
        float** planes = nullptr;
        int link = 0;
        const long got = ov_read_float(file_->get(), &planes, kMostFrames, &link);
        ended_ = got == 0;
        if (got > 0) {
            place(planes, static_cast<std::size_t>(got), link);
            return true;
        }
    }
    ended_ = true;
    return false;
}

void VorbisDecoder::place(float** planes, std::size_t frames, int link) {
    const auto inputs = static_cast<std::size_t>(file_->info(link).channels);
    const std::span in(planes, inputs);
    const std::int64_t begin = ov_pcm_tell(file_->get()) - static_cast<std::int64_t>(frames);
    const std::span<float> out = blocks_.put(begin, frames);
    const auto outputs = static_cast<std::size_t>(channels_);
    all_.resize(frames * inputs);
    const std::span<float> woven = inputs == outputs ? out : std::span(all_);
    for (std::size_t c = 0; c < inputs; ++c) {
        const std::span plane(in[c], frames);
        for (std::size_t n = 0; n < frames; ++n) {
            woven[n * inputs + c] = plane[n];
        }
    }
    if (inputs != outputs) {
        downmixOf(inputs).mix(all_, out);
    }
}

// The library cannot look for a place in a file that breaks off behind it: then it is read from the
// beginning.
bool VorbisDecoder::goTo(std::int64_t frame) {
    OggVorbis_File* const file = file_->get();
    if (ov_pcm_seek(file, frame) == 0) {
        return true;
    }
    if (ov_raw_seek(file, 0) != 0) {
        return false;
    }
    for (int errors = 0; errors < kErrorsInARow && ov_pcm_tell(file) < frame;) {
        const auto left = std::min<std::int64_t>(frame - ov_pcm_tell(file), kMostFrames);
        float** planes = nullptr;
        int link = 0;
        const long got = ov_read_float(file, &planes, static_cast<int>(left), &link);
        errors = got > 0 ? 0 : got < 0 ? errors + 1 : kErrorsInARow;
    }
    return ov_pcm_tell(file) == frame;
}

std::int64_t VorbisDecoder::seek(std::int64_t frame) {
    const std::int64_t target = std::clamp<std::int64_t>(frame, 0, length_);
    // A place that the file lost since it was opened is an end, too.
    ended_ = target == length_ || !goTo(target);
    blocks_.standAt(target);
    return target;
}

} // namespace tovik::sound::vorbis
