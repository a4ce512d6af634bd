// SPDX-License-Identifier: GPL-3.0-or-later
// Streams from the Internet. Interface thread only, except where told.
#pragma once

#include "sound/api/Types.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tovik::sound {

/// Gets the bytes of a stream as they come in, on a thread of the engine; nothing at its end.
using DownloadRoutine = std::function<void(std::span<const std::byte> bytes, std::uintptr_t user)>;

class NetworkOperations {
public:
    virtual ~NetworkOperations() = default;

    [[nodiscard]] virtual Handle BASS_StreamCreateURL(std::string_view url, std::uint32_t offset,
                                                      std::uint32_t flags, DownloadRoutine routine,
                                                      std::uintptr_t user) = 0;

    /// Tags 4: the headers of the station, NUL-terminated, ended by an empty string. Tags 5: what
    /// is said to play now. Nothing when there is none.
    [[nodiscard]] virtual std::optional<std::string> BASS_StreamGetTags(Handle stream,
                                                                        std::uint32_t tags) = 0;
};

} // namespace tovik::sound
