// SPDX-License-Identifier: GPL-3.0-or-later
// Frames of FLAC outside of Ogg (RFC 9639). What stands before them is the head of each file. One
// thread at a time.
#pragma once

#include "radio/SoundUnits.h"

#include <cstdint>

namespace tovik::radio {

/// A frame counts when the checksums of its head and of itself are right and another one begins
/// behind it, or nothing does.
class FlacUnits final : public UnitRule {
public:
    [[nodiscard]] static bool begins(Bytes bytes);

    [[nodiscard]] UnitStep next(Bytes bytes, bool last) override;

    [[nodiscard]] std::string_view ending() const override { return ".flac"; }

    [[nodiscard]] bool hasHead() const override { return true; }

    /// What tells the sound's form, without the length and the sum of what is not known, and
    /// comments.
    [[nodiscard]] std::string headOf(std::string head, const std::string& artist,
                                     const std::string& title) const override;

private:
    enum class At : std::uint8_t { mark, blocks, frames };

    [[nodiscard]] UnitStep nextFrame(Bytes bytes, bool last) const;

    At at_ = At::mark;
};

} // namespace tovik::radio
