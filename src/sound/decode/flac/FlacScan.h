// SPDX-License-Identifier: GPL-3.0-or-later
// Finds where a FLAC stream really ends: at once where its head says, else by walking through it.
// One thread at a time.
#pragma once

#include "sound/decode/flac/FlacStream.h"
#include "sound/decode/PacketScan.h"

namespace tovik::sound::flac {

class FlacScan : public PacketScan {
public:
    FlacScan(std::shared_ptr<const ByteStore> store, bool inOgg) noexcept
        : store_(std::move(store)), inOgg_(inOgg) {}

    [[nodiscard]] bool run(std::chrono::milliseconds slice) override;

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

private:
    void begin();

    std::shared_ptr<const ByteStore> store_;
    bool inOgg_;
    std::unique_ptr<FlacStream> stream_;
    std::int64_t length_ = 0;
    bool done_ = false;
};

} // namespace tovik::sound::flac
