// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/module/ModuleDecoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>
#include <string_view>

namespace tovik::sound::module {
namespace {

constexpr int kRate = 44100;
constexpr double kFadeSeconds = 0.1; // libopenmpt's fade at the end of a song
constexpr std::int64_t kLargestFile = 256LL << 20;
constexpr double kLongestSeconds = 1e9;
// The library fades notes in after a seek, so the sound of a row is complete only when rendering
// began a row before it. Rows last from some milliseconds to seconds.
constexpr std::array<std::int64_t, 4> kPrerollFrames = {2'205, 8'820, 44'100, 441'000};

constexpr std::array<std::string_view, 5> kTypes = {"mod", "s3m", "xm", "it", "mtm"};
constexpr std::array<std::string_view, 3> kContainers = {"", "mo3", "umx"};

bool isListed(const openmpt::module& song) {
    return std::ranges::count(kTypes, song.get_metadata("type")) > 0 &&
           std::ranges::count(kContainers, song.get_metadata("container")) > 0;
}

std::int64_t framesOf(double seconds) {
    return std::llround(std::clamp(seconds, 0.0, kLongestSeconds) * kRate);
}

} // namespace

bool mayBeModule(const ByteStore& store) {
    const std::vector<std::byte> head =
        readBytes(store, 0, openmpt::probe_file_header_get_recommended_size());
    const std::int64_t size = store.size();
    if (head.empty() || size > kLargestFile) {
        return false;
    }
    const int answer =
        openmpt::probe_file_header(openmpt::probe_file_header_flags_default2, head.data(),
                                   head.size(), static_cast<std::uint64_t>(size));
    return answer == openmpt::probe_file_header_result_success;
}

OpenResult openModule(const ByteStore& store, OpenOptions options) {
    // The library tells of anything it cannot read by an exception.
    try {
        if (!mayBeModule(store)) {
            return {OpenStatus::notMine, nullptr};
        }
        const std::vector<std::byte> bytes =
            readBytes(store, 0, static_cast<std::size_t>(store.size()));
        std::ostream nowhere(nullptr);
        auto song = std::make_unique<openmpt::module>(bytes, nowhere);
        if (!isListed(*song)) {
            return {OpenStatus::notMine, nullptr};
        }
        return {OpenStatus::opened,
                std::make_unique<ModuleDecoder>(std::move(song), options.repeat)};
    } catch (const std::exception&) {
        return {OpenStatus::broken, nullptr};
    }
}

ModuleDecoder::ModuleDecoder(std::unique_ptr<openmpt::module> song, bool repeat)
    : song_(std::move(song)), repeat_(repeat),
      // Never 0, because positions of a repeating song are taken modulo it.
      length_(std::max<std::int64_t>(
          framesOf(song_->get_duration_seconds() + (repeat ? 0.0 : kFadeSeconds)), 1)) {
    song_->set_repeat_count(repeat ? -1 : 0);
    // Without this, notes that began before the place sought would be missing.
    song_->ctl_set_boolean("seek.sync_samples", true);
    song_->ctl_set_text("play.at_end", "fadeout");
}

int ModuleDecoder::sampleRate() const noexcept {
    return kRate;
}

int ModuleDecoder::orders() const noexcept {
    return song_->get_num_orders();
}

std::size_t ModuleDecoder::render(std::span<float> interleaved) noexcept {
    try {
        return song_->read_interleaved_stereo(kRate, interleaved.size() / 2, interleaved.data());
    } catch (const std::exception&) {
        return 0;
    }
}

std::size_t ModuleDecoder::read(std::span<float> interleaved) {
    if (repeat_) {
        return render(interleaved);
    }
    // The song's length is told in time, and what comes out may differ from it by a few frames:
    // it is cut or filled up with silence, so that the position at the end is the length.
    const auto left = static_cast<std::size_t>(std::max<std::int64_t>(length_ - position_, 0));
    const std::size_t count = std::min(interleaved.size() / 2, left);
    const std::size_t done = render(interleaved.first(2 * count));
    std::ranges::fill(interleaved.subspan(2 * done, 2 * (count - done)), 0.0F);
    position_ += static_cast<std::int64_t>(count);
    return count;
}

std::int64_t ModuleDecoder::seek(std::int64_t frame) {
    const std::int64_t target = std::max<std::int64_t>(frame, 0);
    if (repeat_) {
        return land(length_ > 0 ? target % length_ : 0);
    }
    position_ = target < length_ ? land(target) : length_;
    return position_;
}

std::int64_t ModuleDecoder::land(std::int64_t frame) {
    try {
        const std::int64_t row = goTo(frame);
        for (const std::int64_t preroll : kPrerollFrames) {
            const std::int64_t before = goTo(std::max<std::int64_t>(row - preroll, 0));
            if (before < row || before == 0) {
                discard(row - before);
                return row;
            }
        }
        return goTo(row);
    } catch (const std::exception&) {
        return length_;
    }
}

// The library goes to the beginning of a row near the place.
std::int64_t ModuleDecoder::goTo(std::int64_t frame) {
    return framesOf(song_->set_position_seconds(static_cast<double>(frame) / kRate));
}

void ModuleDecoder::discard(std::int64_t frames) {
    std::array<float, 2048> samples = {};
    while (frames > 0) {
        const auto count = std::min<std::int64_t>(frames, samples.size() / 2);
        if (render(std::span(samples).first(static_cast<std::size_t>(2 * count))) == 0) {
            return;
        }
        frames -= count;
    }
}

} // namespace tovik::sound::module
