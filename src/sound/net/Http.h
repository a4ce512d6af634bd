// SPDX-License-Identifier: GPL-3.0-or-later
// One request over http or https, as the streams need it. libcurl does the work, in a module of
// ours beside the program that is loaded when a stream first needs it: no start pays for it. Any
// thread.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>

namespace tovik::sound {

/// What a request wants.
struct HttpRequest {
    std::string url;
    std::uint64_t from = 0; ///< first byte wanted
    std::uint64_t to = 0;   ///< last byte wanted; 0: to the end. With both 0 no range is asked for
    bool titles = false;    ///< asks for metadata between the sound
    std::chrono::milliseconds headerPatience{10'000}; ///< from name look-up to the end of the head
    std::chrono::milliseconds bodyPatience{10'000};   ///< silence in the body
    std::string authorities{}; ///< file of those who may vouch for a server; empty: the system's
};

/// How a request ended.
enum class HttpEnd {
    complete,       ///< the body came to its end
    refusedBySink,  ///< the receiver wanted no more
    calledOff,      ///< a stop was requested
    badAddress,     ///< neither http nor https, or no address at all
    nameNotFound,   ///< the host has no address
    noConnection,   ///< closed port, unreachable
    noAnswer,       ///< the head took too long
    badCertificate, ///< the server is not who it should be
    badAnswer,      ///< no http, or too much of it; redirects without end
    silence,        ///< no more of the body came
    broken,         ///< the connection was lost in the body
    notAvailable,   ///< there is no module
};

/// Gets an answer, on the thread that fetches.
class HttpSink {
public:
    virtual ~HttpSink() = default;

    /// A line of a head, without its end; heads of redirects come, too. An empty one ends a head.
    /// False: no more is wanted.
    [[nodiscard]] virtual bool header(std::string_view line) = 0;

    /// The next bytes of the body. May wait. False: no more is wanted.
    [[nodiscard]] virtual bool body(std::span<const std::byte> bytes) = 0;

    /// Where the answer came from, behind redirects; before the first byte of the body.
    virtual void answeredBy(std::string_view url) = 0;
};

/// Fetches, waiting for the network, until the end or until a stop is requested: then it returns
/// within milliseconds, whatever it waited for.
using HttpFetch =
    std::function<HttpEnd(const HttpRequest&, HttpSink&, const std::stop_token& calledOff)>;

/// What the module hands over, under the name `kHttpSymbol`.
struct HttpModule {
    std::uint32_t version; ///< kHttpVersion of when it was built
    HttpEnd (*fetch)(const HttpRequest& request, HttpSink& sink, const std::stop_token& calledOff);
};

inline constexpr std::uint32_t kHttpVersion = 3;
inline constexpr const char* kHttpSymbol = "tovikHttp";

/// Fetches by the module, which the first call loads.
[[nodiscard]] HttpEnd fetchHttp(const HttpRequest& request, HttpSink& sink,
                                const std::stop_token& calledOff);

} // namespace tovik::sound
