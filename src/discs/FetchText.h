// SPDX-License-Identifier: GPL-3.0-or-later
// A short text from a server of the web. Waits for the network. Any thread.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>

namespace tovik::discs {

struct TextRequest {
    std::string url;
    std::chrono::milliseconds patience{10'000}; ///< from the name look-up to the last byte
    std::size_t mostBytes = 256UL * 1024;       ///< an answer with more is refused
};

enum class FetchEnd : std::uint8_t {
    complete,
    calledOff,   ///< a stop was requested
    unreachable, ///< no such host, nobody listens there, the connection broke
    noAnswer,    ///< it took too long
    refused,     ///< the server answers with another status than 200
    tooLarge,
};

struct Fetched {
    FetchEnd end = FetchEnd::unreachable;
    std::string text{}; ///< of a complete one alone
};

using Fetch = std::function<Fetched(const TextRequest&, const std::stop_token& calledOff)>;

/// By http or https. Returns within milliseconds of a stop.
[[nodiscard]] Fetched fetchText(const TextRequest& request, const std::stop_token& calledOff);

} // namespace tovik::discs
