// SPDX-License-Identifier: GPL-3.0-or-later
// Asks servers for a stream. The thread of the stream.
#pragma once

#include "sound/net/Http.h"
#include "sound/net/Receiver.h"
#include "sound/net/StreamState.h"

#include <string>
#include <string_view>
#include <utility>

namespace tovik::sound {

class StreamFetcher {
public:
    /// Asks by `fetch`; with `titles` for metadata, too.
    StreamFetcher(HttpFetch fetch, bool titles, StreamState& state)
        : fetch_(std::move(fetch)), titles_(titles), state_(state) {}

    /// Asks for what stands at an address.
    [[nodiscard]] HttpEnd stream(const std::string& url, Receiver& receiver);

    /// Asks for a piece of a stream, and for its rest where it breaks.
    [[nodiscard]] HttpEnd piece(const std::string& url, const PieceOrder& order,
                                Receiver& receiver);

    /// Asks for a text, and for no more than it may have.
    [[nodiscard]] HttpEnd text(const std::string& url, HttpSink& sink);

    /// The request ended so: asks for the rest of a file as long as there is hope.
    [[nodiscard]] HttpEnd goOn(HttpEnd end, Receiver& receiver);

private:
    [[nodiscard]] HttpEnd fetch(HttpRequest request, HttpSink& sink);
    [[nodiscard]] HttpEnd rest(HttpEnd end, const std::string& url, std::uint64_t to, int tries,
                               Receiver& receiver);

    HttpFetch fetch_;
    bool titles_;
    StreamState& state_;
};

/// Why nothing came of a request, of what ended well and what did not.
[[nodiscard]] StreamTrouble troubleOf(HttpEnd end, StreamTrouble ofAnswer) noexcept;

} // namespace tovik::sound
