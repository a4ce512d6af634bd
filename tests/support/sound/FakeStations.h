// SPDX-License-Identifier: GPL-3.0-or-later
// The streams of a sound library without a network: a test says how each one fares, and what comes
// in on it. One thread.
#pragma once

#include "sound/api/NetworkOperations.h"

#include <map>
#include <string>
#include <vector>

namespace tovik::test {

class FakeStations : public virtual sound::NetworkOperations {
public:
    /// A stream that was created and not freed. What a test writes here is what is told.
    struct Station {
        std::string url;
        std::string headers;  ///< BASS_TAG_ICY, with its NULs; empty: none
        std::string metadata; ///< BASS_TAG_META; empty: none
        sound::StreamReport report;
        sound::DownloadRoutine download;
        std::uintptr_t downloadUser = 0;
        sound::MetaRoutine meta;
        std::uintptr_t metaUser = 0;
    };

    std::map<sound::Handle, Station> stations;

    /// Handles of streams in the order of their creation, also of those that were freed.
    std::vector<sound::Handle> opened;

    /// The headers have come: behind `connecting`, with these headers (each without its NUL).
    void answer(sound::Handle stream, const std::vector<std::string>& headers);

    /// It sounds now.
    void sounds(sound::Handle stream);

    /// It is over, in one of the final stages; the download routine is told, once.
    void over(sound::Handle stream, sound::StreamStage stage,
              sound::StreamTrouble trouble = sound::StreamTrouble::none);

    /// Bytes come in.
    void bytesCome(sound::Handle stream, std::string_view bytes);

    /// Metadata comes in.
    void metadataComes(sound::Handle stream, const std::string& metadata);

    sound::Handle BASS_StreamCreateURL(std::string_view url, std::uint32_t offset,
                                       std::uint32_t flags, sound::DownloadRoutine routine,
                                       std::uintptr_t user) override;
    std::optional<std::string> BASS_StreamGetTags(sound::Handle stream,
                                                  std::uint32_t tags) override;
    sound::Handle BASS_ChannelSetSyncMeta(sound::Handle stream, sound::MetaRoutine routine,
                                          std::uintptr_t user) override;
    std::optional<sound::StreamReport> streamReport(sound::Handle stream) override;

protected:
    /// A channel for a station; 0 when there can be none.
    [[nodiscard]] virtual sound::Handle addStation(std::string_view url, std::uint32_t offset,
                                                   std::uint32_t flags) = 0;

private:
    [[nodiscard]] Station* findStation(sound::Handle stream);
};

} // namespace tovik::test
