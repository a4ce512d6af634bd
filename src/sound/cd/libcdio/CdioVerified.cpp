// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/libcdio/CdioVerified.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

namespace tovik::sound::libcdio {

namespace {

/// How often a sector is read at most before it is given up.
constexpr int kMostTries = 20;

/// Whom the routine below tells: it is given no pointer of ours. One read at a time on a thread.
thread_local CdioVerified* reading = nullptr;

} // namespace

std::unique_ptr<CdioVerified> CdioVerified::make(const CdHandle& handle, std::int32_t first,
                                                 std::int32_t sectors, bool highByteFirst) {
    std::unique_ptr<CdioVerified> made(new CdioVerified);
    made->handle_ = handle;
    made->drive_.reset(cdio_cddap_identify_cdio(handle.get(), CDDA_MESSAGE_FORGETIT, nullptr));
    if (made->drive_ == nullptr) {
        return nullptr;
    }
    cdio_cddap_verbose_set(made->drive_.get(), CDDA_MESSAGE_FORGETIT, CDDA_MESSAGE_FORGETIT);
    // Drives and images give the low byte first; the library would guess it from the sound.
    made->drive_->bigendianp = 0;
    if (cdio_cddap_open(made->drive_.get()) != 0) {
        return nullptr;
    }
    made->drive_->bigendianp = 0;
    made->paranoia_.reset(cdio_paranoia_init(made->drive_.get()));
    if (made->paranoia_ == nullptr) {
        return nullptr;
    }
    cdio_paranoia_modeset(made->paranoia_.get(), PARANOIA_MODE_FULL ^ PARANOIA_MODE_NEVERSKIP);
    cdio_paranoia_seek(made->paranoia_.get(), first, SEEK_SET);
    cdio_paranoia_set_range(made->paranoia_.get(), first, first + sectors - 1);
    made->highByteFirst_ = highByteFirst;
    made->next_ = first;
    made->end_ = first + sectors;
    return made;
}

void CdioVerified::noted(long place, paranoia_cb_mode_t what) {
    CdioVerified& self = *reading;
    switch (what) {
    case PARANOIA_CB_SKIP: {
        const auto sector = static_cast<std::int32_t>(place / CD_FRAMEWORDS);
        if (sector != self.lastLost_) {
            self.lastLost_ = sector;
            ++self.report_.lostSectors;
            self.report_.trouble = DiscTrouble::unreadable;
        }
        break;
    }
    case PARANOIA_CB_FIXUP_EDGE:
    case PARANOIA_CB_FIXUP_ATOM:
    case PARANOIA_CB_FIXUP_DROPPED:
    case PARANOIA_CB_FIXUP_DUPED:
        ++self.report_.repaired;
        break;
    case PARANOIA_CB_READERR:
        self.failing_ = true;
        break;
    default:
        break;
    }
}

void CdioVerified::putSector(std::span<std::byte> bytes, const std::int16_t* samples) const {
    std::memcpy(bytes.data(), samples, bytes.size());
    if (highByteFirst_) {
        for (std::size_t i = 0; i < bytes.size(); i += 2) {
            std::swap(bytes[i], bytes[i + 1]);
        }
    }
}

SectorRead CdioVerified::read(std::span<std::byte> bytes) {
    const std::size_t wanted =
        std::min(bytes.size() / kSectorBytes, static_cast<std::size_t>(end_ - next_));
    SectorRead got{};
    reading = this;
    while (got.sectors < wanted && !gone_) {
        failing_ = false;
        const std::int16_t* const sector =
            cdio_paranoia_read_limited(paranoia_.get(), &CdioVerified::noted, kMostTries);
        // Without a disc each sector would be tried as if it were scratched.
        gone_ = sector == nullptr || (failing_ && cdio_get_media_changed(handle_.get()) > 0);
        if (gone_) {
            break;
        }
        putSector(bytes.subspan(got.sectors * kSectorBytes, kSectorBytes), sector);
        ++next_;
        ++got.sectors;
        if (failing_) {
            break; // it took its time: what there is goes first
        }
    }
    reading = nullptr;
    if (gone_ && got.sectors == 0) {
        got.trouble = DiscTrouble::noDisc;
    }
    return got;
}

} // namespace tovik::sound::libcdio
