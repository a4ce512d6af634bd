// SPDX-License-Identifier: GPL-3.0-or-later
// Offers a file to the decoders of the sound library in turn. Plain starts and crossfades share it.
// Interface thread.
#pragma once

#include "base/Comfort.h"
#include "sound/SoundLibrary.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::player {

/// What a name such as "D:\Track01.cda" stands for.
struct CdTrack {
    std::optional<char> letter; ///< of the drive, in upper case; nothing where the name has none
    std::uint32_t number = 0;   ///< counted from 1

    [[nodiscard]] bool operator==(const CdTrack&) const = default;
};

class TrackOpener {
public:
    explicit TrackOpener(sound::SoundLibrary& sound) : sound_(sound) {}

    /// The handle of the first decoder that takes the file, or 0. The name plays no part. A file
    /// that cannot be opened at all, or whose disk does not answer, is offered to one alone.
    /// A deliberate oddity: a module starts again at its end, unless `comfort` lets it end.
    [[nodiscard]] sound::Handle open(std::string_view path, const base::Comfort& comfort);

    /// The same without a wait: the handle is there at once, and has ended when nothing opens.
    [[nodiscard]] sound::Handle openAhead(std::string_view path, const base::Comfort& comfort);

    /// The handle of a track of a disc; 0 without one. A drive that there is not has none.
    [[nodiscard]] sound::Handle openCdTrack(const CdTrack& track);

    /// Frees stream and module behind a handle; only one of the two can be there.
    void free(sound::Handle channel);

private:
    [[nodiscard]] std::optional<std::uint32_t> driveOf(const CdTrack& track);

    sound::SoundLibrary& sound_;
};

/// Whether a name stands for a track of a disc rather than for a file, in any case of letters.
[[nodiscard]] bool namesCdTrack(std::string_view path);

/// The track that a name such as "D:\Track01.cda" stands for, in any case of letters; nothing when
/// the name is no CD track. Raises 13 and 9 for a name that has ".cda", but no number where it is
/// looked for.
[[nodiscard]] std::optional<CdTrack> cdTrackOf(std::string_view path);

} // namespace tovik::player
