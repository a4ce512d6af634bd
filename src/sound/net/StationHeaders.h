// SPDX-License-Identifier: GPL-3.0-or-later
// The head of an answer of a server, line by line. Pure; one thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::sound {

/// What the head says. Figures that make no sense count as not told.
struct StationHeaders {
    int status = 0;                      ///< 0 while there is no status line
    std::string tags;                    ///< the lines as sent, each ended by a NUL
    std::string contentType;             ///< in lower case, without parameters
    std::string location;                ///< of a redirect
    std::uint64_t metaInterval = 0;      ///< bytes between blocks of metadata; 0: there are none
    int kbps = 0;                        ///< 0: not told
    std::optional<std::uint64_t> length; ///< bytes of the body
    std::uint64_t firstByte = 0;         ///< of a part (206): its place in the whole
    bool icy = false;                    ///< any header that begins with "icy-"

    /// A station and no file.
    [[nodiscard]] bool live() const noexcept { return icy || !length; }
};

class HeaderReader {
public:
    /// What one head may hold; a server that sends more is refused.
    static constexpr std::size_t kMostBytes = std::size_t{64} * 1024;
    static constexpr std::size_t kMostLines = 256;

    /// Takes a line without its end. A status line begins a new head: redirects and interim answers
    /// come one after the other. False once there is too much.
    [[nodiscard]] bool add(std::string_view line);

    [[nodiscard]] const StationHeaders& headers() const noexcept { return headers_; }

private:
    void begin(std::string_view statusLine);
    void take(std::string_view name, std::string_view value);

    StationHeaders headers_;
    std::size_t bytes_ = 0;
    std::size_t lines_ = 0;
    bool chunked_ = false;
};

} // namespace tovik::sound
