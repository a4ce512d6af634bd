// SPDX-License-Identifier: GPL-3.0-or-later
// Frames that tell their own length: MPEG audio (ISO/IEC 11172-3, 13818-3 and the extension to low
// rates) and AAC in ADTS (ISO/IEC 13818-7). One thread at a time.
#pragma once

#include "radio/SoundUnits.h"

#include <optional>

namespace tovik::radio {

/// The head of a frame.
struct FrameHead {
    std::size_t length = 0; ///< of the frame, in bytes
    std::uint32_t kind = 0; ///< what all frames of one stream have in common
    int layer = 0;          ///< of MPEG audio, 1 to 3; 0: AAC
};

/// As many bytes as tell it.
inline constexpr std::size_t kFrameHeadBytes = 6;

/// What the first `kFrameHeadBytes` bytes tell; nothing where no frame begins there, or one of free
/// format.
[[nodiscard]] std::optional<FrameHead> frameHead(Bytes bytes) noexcept;

/// A frame counts when another one of its kind begins where it ends; the first one, and the first
/// one behind a loss, when two of them follow.
class FrameUnits final : public UnitRule {
public:
    [[nodiscard]] UnitStep next(Bytes bytes, bool last) override;
    [[nodiscard]] std::string_view ending() const override;

    [[nodiscard]] bool isMpeg() const override { return locked_ && locked_->layer > 0; }

private:
    [[nodiscard]] UnitStep search(Bytes bytes, bool last);

    std::optional<FrameHead> locked_; ///< the frame that came last
    bool lost_ = true;                ///< what follows is not known to be a frame
};

} // namespace tovik::radio
