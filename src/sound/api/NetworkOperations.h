// SPDX-License-Identifier: GPL-3.0-or-later
// Streams from the Internet. Interface thread only, except where told; no operation waits for the
// network. Who wants a stream that broke to come back opens its address again.
#pragma once

#include "sound/api/StreamReport.h"
#include "sound/api/Types.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tovik::sound {

/// Gets the bytes of a stream as they come in, metadata left out; nothing (an empty span) once,
/// when no more come. What a playlist answers is not handed over, nor what follows BASS_StreamFree.
///
/// This and MetaRoutine are called on one thread of the engine, one after the other, in the order
/// of the stream: a change of title stands between the bytes before it and those behind it. They
/// may block (on a file, say): the stream waits meanwhile, nobody else does. A call that runs when
/// the stream is freed goes on, so a routine owns what it uses. They throw nothing.
using DownloadRoutine = std::function<void(std::span<const std::byte> bytes, std::uintptr_t user)>;

/// Gets each metadata string of a stream ("StreamTitle='...';...", bytes as sent, without the NULs
/// that fill its block) when it comes in and is another than the one before. See DownloadRoutine.
using MetaRoutine = std::function<void(std::string_view metadata, std::uintptr_t user)>;

/// Kinds of tags.
inline constexpr std::uint32_t BASS_TAG_ICY = 4;
inline constexpr std::uint32_t BASS_TAG_META = 5;

class NetworkOperations {
public:
    virtual ~NetworkOperations() = default;

    /// Begins to open an http or https address and returns a handle at once, which the operations
    /// on streams and channels take: it may be told to play, and gets volume and filters, before
    /// anything sounds. It is stalled until there are samples and stopped when none come any more;
    /// `streamReport` tells why. BASS_StreamFree calls off whatever it does, at once.
    ///
    /// An M3U or PLS answer stands for the first of its addresses that opens. `offset` must be 0;
    /// of `flags`, BASS_STREAM_META asks the server for titles, BASS_STREAM_DECODE is refused
    /// (notAvailable), and filters are always possible. `routine` may be empty. 0 only where there
    /// is no library, no room or a wrong argument: an address that cannot be opened, also an empty
    /// one, has a handle and a report.
    ///
    /// It cannot be sought in. Its position counts what was heard; its length is 0 (unknown).
    [[nodiscard]] virtual Handle BASS_StreamCreateURL(std::string_view url, std::uint32_t offset,
                                                      std::uint32_t flags, DownloadRoutine routine,
                                                      std::uintptr_t user) = 0;

    /// BASS_TAG_ICY: status line and headers of the station as sent, each ended by a NUL, then an
    /// empty string; there once the report's stage is behind `connecting`. BASS_TAG_META: the
    /// metadata that came in last. Nothing when there is none, for other kinds and dead handles.
    [[nodiscard]] virtual std::optional<std::string> BASS_StreamGetTags(Handle stream,
                                                                        std::uint32_t tags) = 0;

    /// What BASS_ChannelSetSync is for BASS_SYNC_META, whose data is a text. A handle of the sync,
    /// 0 when `stream` is no stream of the network. What came in before is had from
    /// BASS_StreamGetTags; nothing is told twice to the same routine, and a second routine replaces
    /// the first.
    virtual Handle BASS_ChannelSetSyncMeta(Handle stream, MetaRoutine routine,
                                           std::uintptr_t user) = 0;

    /// How it stands with a stream; nothing when `stream` is no living stream of the network.
    [[nodiscard]] virtual std::optional<StreamReport> streamReport(Handle stream) = 0;
};

} // namespace tovik::sound
