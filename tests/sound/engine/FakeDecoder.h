// SPDX-License-Identifier: GPL-3.0-or-later
// A decoder without a file, and the families of operations round a core, so that channels can be
// made of it.
#pragma once

#include "sound/engine/ChannelCalls.h"
#include "sound/engine/DeviceCalls.h"
#include "sound/engine/StreamCalls.h"
#include "sound/output/KeeperRig.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

namespace tovik::sound::test {

/// What a test sets and sees of a fake decoder; outlives it.
struct FakeFile {
    std::int64_t realFrames = 0;      ///< where it ends
    std::int64_t estimate = 0;        ///< what its head says; only then it has a scan
    std::int64_t claimed = 0;         ///< what its head says, and nothing scans for better
    float sample = 0.5F;              ///< all samples of it
    std::atomic<bool> blocked{false}; ///< the disk is slow: `read` waits
    std::atomic<int> waiting{0};      ///< how many reads wait
    std::atomic<bool> scanMayEnd{false};
};

class FakeScan final : public PacketScan {
public:
    explicit FakeScan(FakeFile& file) : file_(file) {}

    bool run(std::chrono::milliseconds) override { return file_.scanMayEnd; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return file_.realFrames; }

private:
    FakeFile& file_;
};

class FakeDecoder final : public Decoder {
public:
    explicit FakeDecoder(FakeFile& file) : file_(file) {}

    /// A file that lives as long as the decoder, whose read may outlast the test.
    explicit FakeDecoder(std::shared_ptr<FakeFile> file) : kept_(std::move(file)), file_(*kept_) {}

    [[nodiscard]] int sampleRate() const noexcept override { return 44100; }

    [[nodiscard]] int channels() const noexcept override { return 2; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override {
        if (file_.claimed > 0) {
            return file_.claimed;
        }
        return file_.estimate > 0 ? file_.estimate : file_.realFrames;
    }

    std::unique_ptr<PacketScan> lengthScan() override {
        return file_.estimate > 0 ? std::make_unique<FakeScan>(file_) : nullptr;
    }

    std::size_t read(std::span<float> interleaved) override {
        if (file_.blocked) {
            ++file_.waiting;
            file_.blocked.wait(true);
            --file_.waiting;
        }
        const std::int64_t left = std::max<std::int64_t>(file_.realFrames - position_, 0);
        const std::size_t frames = std::min(interleaved.size() / 2, static_cast<std::size_t>(left));
        std::ranges::fill(interleaved.first(frames * 2), file_.sample);
        position_ += static_cast<std::int64_t>(frames);
        return frames;
    }

    std::int64_t seek(std::int64_t frame) override {
        position_ = std::min(frame, file_.realFrames);
        return position_;
    }

private:
    std::shared_ptr<FakeFile> kept_;
    FakeFile& file_;
    std::int64_t position_ = 0;
};

/// A library of the operations that these tests need, over a device stepped by hand.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): there is one, in an order that works
class FakeRig {
public:
    explicit FakeRig(FeederMode feeder)
        : FakeRig(feeder, std::make_unique<SimulatedOutput>(SimulatedOutput::Settings{
                              .decodesAhead = feeder == FeederMode::inCaller,
                              .sink = [this](std::span<const float> block) {
                                  taken_.insert(taken_.end(), block.begin(), block.end());
                              }})) {}

    Handle add(FakeFile& file, std::uint32_t flags = 0) {
        return core.add(std::make_unique<Channel>(
            FormatFamily::stream, flags, [&file](const std::stop_token&) -> OpenResult {
                return {OpenStatus::opened, std::make_unique<FakeDecoder>(file)};
            }));
    }

    std::vector<float> render(std::size_t frames) {
        taken_.clear();
        taken_.reserve(frames * 2);
        device.advance(frames);
        return std::exchange(taken_, {});
    }

private:
    FakeRig(FeederMode feeder, std::unique_ptr<SimulatedOutput> owned)
        : device(*owned), core(std::move(owned), {.feeder = feeder, .keeperTimes = kNever}) {
        static_cast<void>(outputs.BASS_Init(1, 44100, 0, 0, 0));
    }

    std::vector<float> taken_;

public:
    SimulatedOutput& device;
    EngineCore core;
    DeviceCalls outputs{core};
    StreamCalls streams{core};
    ChannelCalls channels{core};
};

} // namespace tovik::sound::test
