// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/NetDecoder.h"

#include "sound/decode/LiveSound.h"
#include "sound/decode/Resampler.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace tovik::sound {
namespace {

/// So much is searched for a first sound.
constexpr std::size_t kMostBytesToOpen = std::size_t{512} * 1024;

/// A stream whose decoder gives up is opened anew where it stands, as long as each gives at least
/// something (a chain of Ogg streams of other kinds, say).
constexpr int kMostFruitlessOpens = 3;

/// Half a second of what the decoder gives is decoded before it sounds.
constexpr std::size_t kFirstSamples = Resampler::kOutputRate;
constexpr std::int64_t kMilliseconds = 1000;

/// What came in, as the decoders pull it.
class StateBytes final : public LiveBytes {
public:
    explicit StateBytes(std::shared_ptr<StreamState> state) : state_(std::move(state)) {}

    [[nodiscard]] std::size_t read(std::span<std::byte> into) override {
        const std::size_t most = limit_ ? *limit_ - std::min(*limit_, since_) : into.size();
        const std::size_t got =
            most == 0 ? 0 : state_->take(into.first(std::min(most, into.size())));
        since_ += got;
        total_ += static_cast<std::int64_t>(got);
        atEnd_ = atEnd_ || (got == 0 && most > 0);
        return got;
    }

    /// From here on `bytes` are given at most; nothing: all.
    void limit(std::optional<std::size_t> bytes) {
        limit_ = bytes;
        since_ = 0;
    }

    [[nodiscard]] std::int64_t total() const noexcept { return total_; }

    [[nodiscard]] bool atEnd() const noexcept { return atEnd_; }

private:
    std::shared_ptr<StreamState> state_;
    std::optional<std::size_t> limit_;
    std::size_t since_ = 0;
    std::int64_t total_ = 0;
    bool atEnd_ = false;
};

class NetDecoder final : public Decoder {
public:
    NetDecoder(std::shared_ptr<StreamState> state, const std::stop_token& calledOff)
        : state_(std::move(state)), bytes_(std::make_shared<StateBytes>(state_)),
          close_(calledOff, [state = state_] { state->close(); }) {}

    /// Decodes the first blocks; false when there are none.
    [[nodiscard]] bool start();

    [[nodiscard]] int sampleRate() const noexcept override { return Resampler::kOutputRate; }

    [[nodiscard]] int channels() const noexcept override { return 2; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return 0; }

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override { return nullptr; }

    std::size_t read(std::span<float> interleaved) override;

    std::int64_t seek(std::int64_t /*frame*/) override { return position_; }

    void noteAhead(std::chrono::milliseconds ahead) override { state_->noteAhead(ahead); }

private:
    [[nodiscard]] bool open();
    void decodeFirst();
    [[nodiscard]] bool advance();
    [[nodiscard]] bool convert(const LiveBlock& block);
    void resample(const LiveBlock& block);
    void changeRate(const LiveBlock& block);

    std::shared_ptr<StreamState> state_;
    std::shared_ptr<StateBytes> bytes_;
    std::unique_ptr<LiveSound> sound_;
    std::int64_t base_ = 0; ///< where the bytes of `sound_` begin
    std::unique_ptr<Resampler> resampler_;
    int rate_ = Resampler::kOutputRate;
    int channels_ = 2;
    std::vector<float> ready_;
    std::size_t taken_ = 0;
    std::int64_t position_ = 0;
    std::int64_t decodedAhead_ = 0; ///< frames behind `position_` that were decoded before a block
    std::int64_t byte_ = 0;         ///< where the block that was decoded last began
    bool ended_ = false;
    std::stop_callback<std::function<void()>> close_;
};

bool NetDecoder::open() {
    for (int fruitless = 0; fruitless < kMostFruitlessOpens && !bytes_->atEnd(); ++fruitless) {
        base_ = bytes_->total();
        bytes_->limit(kMostBytesToOpen);
        sound_ = openLiveSound(bytes_, state_->contentType());
        if (sound_ != nullptr && convert(sound_->next())) {
            bytes_->limit(std::nullopt);
            return true;
        }
    }
    sound_.reset();
    return false;
}

bool NetDecoder::start() {
    if (!open()) {
        state_->notAudio();
        return false;
    }
    const std::int64_t bitRate = sound_->bitRate();
    decodeFirst();
    const auto frames = static_cast<std::int64_t>(ready_.size() / 2);
    state_->waitForRest(std::chrono::milliseconds(frames * kMilliseconds / Resampler::kOutputRate),
                        bytes_->total() - byte_);
    state_->opened(bitRate);
    return true;
}

/// How much sound a byte is shows only by decoding some; few streams tell it, and not all that do
/// are right.
void NetDecoder::decodeFirst() {
    std::vector<float> first = std::move(ready_);
    const std::int64_t begin = byte_;
    std::int64_t frames = 0; // before the block that begins at byte_
    while (first.size() < kFirstSamples && !ended_) {
        const auto before = static_cast<std::int64_t>(first.size() / 2);
        decodedAhead_ = before;
        if (!advance()) {
            break;
        }
        frames = before;
        first.insert(first.end(), ready_.begin(), ready_.end());
    }
    decodedAhead_ = 0;
    ready_ = std::move(first);
    taken_ = 0;
    if (byte_ > begin && frames > 0) {
        state_->measured(byte_ - begin, frames);
    }
}

/// Makes the next samples ready; false at the end.
bool NetDecoder::advance() {
    if (ended_) {
        return false;
    }
    if (convert(sound_->next()) || open()) {
        return true;
    }
    ended_ = true;
    state_->decodedAll();
    return false;
}

bool NetDecoder::convert(const LiveBlock& block) {
    ready_.clear();
    taken_ = 0;
    if (block.samples.empty()) {
        return false;
    }
    if (block.rate != rate_ || block.channels != channels_) {
        changeRate(block);
    }
    const std::int64_t frame = position_ + decodedAhead_;
    byte_ = base_ + block.byte;
    state_->decoded(byte_, frame, block.rate, block.channels);
    if (const std::string title = sound_->takeTitle(); !title.empty()) {
        state_->foundTitle(title, frame);
    }
    resample(block);
    return true;
}

void NetDecoder::changeRate(const LiveBlock& block) {
    rate_ = block.rate;
    channels_ = block.channels;
    resampler_ = rate_ == Resampler::kOutputRate ? nullptr : Resampler::create(rate_, channels_);
}

void NetDecoder::resample(const LiveBlock& block) {
    const std::size_t frames = block.samples.size() / static_cast<std::size_t>(block.channels);
    if (resampler_ != nullptr) {
        ready_.resize(resampler_->mostOutput(frames) * 2);
        ready_.resize(resampler_->process(block.samples, ready_) * 2);
    } else if (rate_ != Resampler::kOutputRate) {
        ready_.clear(); // a rate that is none
    } else if (block.channels == 1) {
        ready_.resize(frames * 2);
        doubleMono(block.samples, ready_);
    } else {
        ready_.assign(block.samples.begin(), block.samples.end());
    }
}

std::size_t NetDecoder::read(std::span<float> interleaved) {
    std::size_t done = 0;
    while (done < interleaved.size() && (taken_ < ready_.size() || advance())) {
        const std::size_t count = std::min(ready_.size() - taken_, interleaved.size() - done);
        std::copy_n(ready_.begin() + static_cast<std::ptrdiff_t>(taken_), count,
                    interleaved.begin() + static_cast<std::ptrdiff_t>(done));
        taken_ += count;
        done += count;
        position_ += static_cast<std::int64_t>(count / 2);
    }
    return done / 2;
}

} // namespace

OpenResult openNetDecoder(const std::shared_ptr<StreamState>& state,
                          const std::stop_token& calledOff) {
    auto decoder = std::make_unique<NetDecoder>(state, calledOff);
    prepareLiveSound(); // takes as long as a connection
    if (!state->waitForEnough()) {
        return {OpenStatus::noFile, nullptr};
    }
    if (!decoder->start()) {
        return {OpenStatus::broken, nullptr};
    }
    return {OpenStatus::opened, std::move(decoder)};
}

} // namespace tovik::sound
