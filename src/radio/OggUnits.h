// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of Ogg (RFC 3533). The headers of a stream are the head of each file. One thread at a time.
#pragma once

#include "radio/SoundUnits.h"

namespace tovik::radio {

/// A page counts when its checksum is right.
class OggUnits final : public UnitRule {
public:
    [[nodiscard]] static bool begins(Bytes bytes);

    [[nodiscard]] UnitStep next(Bytes bytes, bool last) override;

    [[nodiscard]] std::string_view ending() const override { return ".ogg"; }

    [[nodiscard]] bool hasHead() const override { return true; }

    /// By the comments of Vorbis, Opus and FLAC.
    [[nodiscard]] std::string titleOf(std::string_view head) const override;

private:
    bool inHead_ = false;    ///< no sound came since the stream began
    bool beginning_ = false; ///< the page before began a stream, too
};

} // namespace tovik::radio
