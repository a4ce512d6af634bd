// SPDX-License-Identifier: GPL-3.0-or-later
// Finds where the sound of an MPEG stream ends by walking its frames without decoding them. One
// thread at a time.
#pragma once

#include "sound/decode/mpeg/MpegHandle.h"
#include "sound/decode/PacketScan.h"

namespace tovik::sound::mpeg {

class MpegScan : public PacketScan {
public:
    explicit MpegScan(std::shared_ptr<const ByteStore> store) noexcept : store_(std::move(store)) {}

    [[nodiscard]] bool run(std::chrono::milliseconds slice) override;

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

private:
    std::shared_ptr<const ByteStore> store_;
    std::unique_ptr<MpegHandle> handle_;
    std::int64_t length_ = 0;
    bool done_ = false;
};

} // namespace tovik::sound::mpeg
