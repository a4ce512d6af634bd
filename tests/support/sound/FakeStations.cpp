// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/FakeStations.h"

#include <span>
#include <utility>

namespace tovik::test {

using sound::Handle;
using sound::StreamStage;

FakeStations::Station* FakeStations::findStation(Handle stream) {
    const auto found = stations.find(stream);
    return found == stations.end() ? nullptr : &found->second;
}

void FakeStations::answer(Handle stream, const std::vector<std::string>& headers) {
    Station& station = stations.at(stream);
    station.headers.clear();
    for (const std::string& header : headers) {
        station.headers += header + '\0';
    }
    station.headers += '\0';
    station.report.stage = StreamStage::buffering;
}

void FakeStations::sounds(Handle stream) {
    stations.at(stream).report.stage = StreamStage::playing;
}

void FakeStations::over(Handle stream, StreamStage stage, sound::StreamTrouble trouble) {
    Station& station = stations.at(stream);
    const bool told = sound::isFinal(station.report.stage);
    station.report.stage = stage;
    station.report.trouble = trouble;
    if (!told && station.download) {
        station.download({}, station.downloadUser);
    }
}

void FakeStations::bytesCome(Handle stream, std::string_view bytes) {
    const Station& station = stations.at(stream);
    if (station.download) {
        station.download(std::as_bytes(std::span(bytes)), station.downloadUser);
    }
}

void FakeStations::metadataComes(Handle stream, const std::string& metadata) {
    Station& station = stations.at(stream);
    station.metadata = metadata;
    if (station.meta) {
        station.meta(metadata, station.metaUser);
    }
}

Handle FakeStations::BASS_StreamCreateURL(std::string_view url, std::uint32_t offset,
                                          std::uint32_t flags, sound::DownloadRoutine routine,
                                          std::uintptr_t user) {
    const Handle handle = addStation(url, offset, flags);
    if (handle != sound::kNoHandle) {
        Station& station = stations[handle];
        station.url = url;
        station.download = std::move(routine);
        station.downloadUser = user;
        opened.push_back(handle);
    }
    return handle;
}

std::optional<std::string> FakeStations::BASS_StreamGetTags(Handle stream, std::uint32_t tags) {
    const Station* const station = findStation(stream);
    if (station == nullptr || (tags != sound::BASS_TAG_ICY && tags != sound::BASS_TAG_META)) {
        return {};
    }
    const std::string& text = tags == sound::BASS_TAG_ICY ? station->headers : station->metadata;
    return text.empty() ? std::nullopt : std::optional(text);
}

Handle FakeStations::BASS_ChannelSetSyncMeta(Handle stream, sound::MetaRoutine routine,
                                             std::uintptr_t user) {
    constexpr Handle kSync = 2001;
    Station* const station = findStation(stream);
    if (station == nullptr) {
        return sound::kNoHandle;
    }
    station->meta = std::move(routine);
    station->metaUser = user;
    return kSync;
}

std::optional<sound::StreamReport> FakeStations::streamReport(Handle stream) {
    const Station* const station = findStation(stream);
    return station != nullptr ? std::optional(station->report) : std::nullopt;
}

} // namespace tovik::test
