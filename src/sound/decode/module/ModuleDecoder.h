// SPDX-License-Identifier: GPL-3.0-or-later
// The decoder of tracker modules: MO3, XM, MOD, S3M, IT, MTM and UMX, rendered by libopenmpt. One
// thread at a time.
#pragma once

#include "sound/decode/ByteStore.h"
#include "sound/decode/Decoder.h"

#include <libopenmpt/libopenmpt.hpp>

namespace tovik::sound::module {

/// True when the head of `store` looks like one of the formats that libopenmpt knows.
[[nodiscard]] bool mayBeModule(const ByteStore& store);

/// Any thread. "Mine" are the formats named above, by content.
[[nodiscard]] OpenResult openModule(const ByteStore& store, OpenOptions options);

class ModuleDecoder : public Decoder {
public:
    ModuleDecoder(std::unique_ptr<openmpt::module> song, bool repeat);

    [[nodiscard]] int sampleRate() const noexcept override;

    [[nodiscard]] int channels() const noexcept override { return 2; }

    /// One pass of the song, 1 at least; without repeat also the short fade behind it.
    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override { return nullptr; }

    std::size_t read(std::span<float> interleaved) override;
    std::int64_t seek(std::int64_t frame) override;

    [[nodiscard]] bool loops() const noexcept override { return repeat_; }

    [[nodiscard]] int orders() const noexcept override;

private:
    [[nodiscard]] std::size_t render(std::span<float> interleaved) noexcept;
    [[nodiscard]] std::int64_t land(std::int64_t frame);
    [[nodiscard]] std::int64_t goTo(std::int64_t frame);
    void discard(std::int64_t frames);

    std::unique_ptr<openmpt::module> song_;
    bool repeat_;
    std::int64_t length_;
    std::int64_t position_ = 0; // counted without repeat only, where the end has to be met
};

} // namespace tovik::sound::module
