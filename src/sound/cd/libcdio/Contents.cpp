// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/libcdio/Contents.h"

#include <cdio/cd_types.h>
#include <cdio/device.h>
#include <cdio/track.h>

#include <utility>

namespace tovik::sound::libcdio {

namespace {

/// What lies between the sound of a first session and the data of a second one: lead-out, lead-in
/// and pre-gap (ECMA-394, "Orange Book").
constexpr std::int32_t kBetweenSessions = 11'400;

constexpr track_t kMostTracks = 99;

/// Where the last session begins; 0 where there is but one, or the drive does not tell.
std::int32_t lastSession(CdIo_t& handle) {
    lsn_t sector = 0;
    return cdio_get_last_session(&handle, &sector) == DRIVER_OP_SUCCESS && sector > 0 ? sector : 0;
}

} // namespace

std::optional<DiscToc> contentsOf(CdIo_t& handle) {
    const track_t first = cdio_get_first_track_num(&handle);
    const track_t count = cdio_get_num_tracks(&handle);
    if (first == CDIO_INVALID_TRACK || first == 0 || count == CDIO_INVALID_TRACK || count == 0 ||
        count > kMostTracks || first > kMostTracks) {
        return std::nullopt;
    }
    const std::int32_t session = lastSession(handle);
    DiscToc toc;
    toc.firstNumber = first;
    toc.leadOut = cdio_get_track_lsn(&handle, CDIO_CDROM_LEADOUT_TRACK);
    for (track_t i = 0; i < count; ++i) {
        const auto number = static_cast<track_t>(first + i);
        const bool last = i + 1 == count;
        const lsn_t begin = cdio_get_track_lsn(&handle, number);
        lsn_t end =
            last ? toc.leadOut : cdio_get_track_lsn(&handle, static_cast<track_t>(number + 1));
        if (begin < 0 || end < begin) {
            return std::nullopt;
        }
        if (!last && session > 0 && end == session && end - kBetweenSessions > begin) {
            end -= kBetweenSessions;
        }
        toc.tracks.push_back(
            {.firstSector = begin,
             .sectors = end - begin,
             .isData = cdio_get_track_format(&handle, number) != TRACK_FORMAT_AUDIO});
    }
    return toc;
}

} // namespace tovik::sound::libcdio
