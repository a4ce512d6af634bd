// SPDX-License-Identifier: GPL-3.0-or-later
// What is told of a stream from the Internet. Any thread.
#pragma once

#include <cstdint>
#include <string>

namespace tovik::sound {

/// How far a stream is. The last three are final: it will not sound again by itself.
enum class StreamStage {
    connecting, ///< name look-up to the end of the headers, also of lists and redirects
    buffering,  ///< bytes come in, nothing (more) can be heard yet; so it is after a gap, too
    playing,    ///< there is enough to be heard
    stalled,    ///< nothing to be heard came for 10 s; the connection was given up
    ended,      ///< the server ended it or the connection broke, and all that came was heard
    failed,     ///< never sounded; `StreamReport::trouble` tells why
};

/// Why a stream failed, or ended before its time.
enum class StreamTrouble {
    none,
    badAddress,     ///< empty, or neither http nor https
    nameNotFound,   ///< its host is not known
    refused,        ///< nobody answers at that place: closed port, unreachable
    noAnswer,       ///< connected or not, no headers within 10 s, or no sound within 30 s
    httpError,      ///< an answer that is none of 2xx; `StreamReport::httpStatus`
    badCertificate, ///< https that cannot be trusted
    badAnswer,      ///< no http, endless headers, redirects in a circle
    notAudio,       ///< nothing in it decodes
    emptyList,      ///< a playlist without an address, or too many of them one in the other
    broken,         ///< the connection was lost
    notAvailable,   ///< the part of the program that reads the network is not installed
};

struct StreamReport {
    StreamStage stage = StreamStage::connecting;
    int percent = 0; ///< while buffering: how much of what is waited for is there, 0 to 99
    StreamTrouble trouble = StreamTrouble::none;
    int httpStatus = 0; ///< of the last answer; 0 before one
    /// A station, which comes back by being opened again; false for a file (an answer with a length
    /// and without "icy-" headers), whose breaks are mended by the engine and whose end is the end
    /// of the track. Known behind `connecting`, true before.
    bool live = true;
    int kbps = 0;              ///< as the server says, else as measured; 0 while unknown
    int rate = 0;              ///< Hz of what is decoded; 0 while unknown
    int channels = 0;          ///< of what is decoded, 1 or 2; 0 while unknown
    std::uint64_t bytes = 0;   ///< taken in so far, metadata left out
    std::string heardMetadata; ///< metadata string that belongs to what is heard now; may be empty
    std::string finalAddress;  ///< behind lists and redirects; empty while unknown
};

[[nodiscard]] constexpr bool isFinal(StreamStage stage) noexcept {
    return stage >= StreamStage::stalled;
}

} // namespace tovik::sound
