// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a part of a disc by libcdio-paranoia, with all its verification: each part is read several
// times until the readings agree. The thread of its drive.
#pragma once

#include "sound/cd/CdDrive.h"
#include "sound/cd/libcdio/Handle.h"

#include <cdio/paranoia/cdda.h>
#include <cdio/paranoia/paranoia.h>

#include <cstdint>
#include <memory>
#include <span>

namespace tovik::sound::libcdio {

class CdioVerified final : public VerifiedReader {
public:
    /// Null when the disc cannot be read so.
    [[nodiscard]] static std::unique_ptr<CdioVerified>
    make(const CdHandle& handle, std::int32_t first, std::int32_t sectors, bool highByteFirst);

    [[nodiscard]] SectorRead read(std::span<std::byte> bytes) override;

    [[nodiscard]] DiscReport report() const override { return report_; }

private:
    struct CloseDrive {
        void operator()(cdrom_drive_t* drive) const { cdio_cddap_close_no_free_cdio(drive); }
    };

    struct FreeParanoia {
        void operator()(cdrom_paranoia_t* paranoia) const { cdio_paranoia_free(paranoia); }
    };

    CdioVerified() = default;

    void putSector(std::span<std::byte> bytes, const std::int16_t* samples) const;
    static void noted(long place, paranoia_cb_mode_t what);

    CdHandle handle_;
    std::unique_ptr<cdrom_drive_t, CloseDrive> drive_;
    std::unique_ptr<cdrom_paranoia_t, FreeParanoia> paranoia_;
    std::int32_t next_ = 0;
    std::int32_t end_ = 0;
    bool failing_ = false;       ///< the last reads of the drive have failed
    bool gone_ = false;          ///< the disc, which the drive tells only once
    bool highByteFirst_ = false; ///< as the image holds it
    std::int32_t lastLost_ = -1; ///< sector that was counted as lost last
    DiscReport report_;
};

} // namespace tovik::sound::libcdio
