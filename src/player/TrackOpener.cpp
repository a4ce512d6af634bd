// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/TrackOpener.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <array>

namespace tovik::player {

namespace {

constexpr std::uint32_t kStreamFlags = sound::BASS_SAMPLE_FX;
constexpr std::uint32_t kEndingMusic = sound::BASS_MUSIC_RAMP;
constexpr std::uint32_t kRepeatingMusic = sound::BASS_MUSIC_LOOP | sound::BASS_MUSIC_RAMP;
constexpr std::uint32_t kMusicFrequency = 128;

using Create = sound::Handle (*)(sound::SoundLibrary&, std::string_view path,
                                 const base::Comfort& comfort);

/// In the order in which they are asked.
constexpr std::array<Create, 4> kDecoders = {
    [](sound::SoundLibrary& sound, std::string_view path, const base::Comfort& /*comfort*/) {
        return sound.BASS_StreamCreateFile(false, path, 0, 0, kStreamFlags);
    },
    [](sound::SoundLibrary& sound, std::string_view path, const base::Comfort& comfort) {
        return sound.BASS_MusicLoad(false, path, 0, 0,
                                    comfort.endsModules ? kEndingMusic : kRepeatingMusic,
                                    kMusicFrequency);
    },
    [](sound::SoundLibrary& sound, std::string_view path, const base::Comfort& /*comfort*/) {
        return sound.BASS_WMA_StreamCreateFile(false, path, 0, 0, kStreamFlags);
    },
    [](sound::SoundLibrary& sound, std::string_view path, const base::Comfort& /*comfort*/) {
        return sound.BASS_FLAC_StreamCreateFile(false, path, 0, 0, kStreamFlags);
    },
};

/// Flags of a CD track's stream: freed when it stops.
constexpr std::uint32_t kCdFlags = 327680;

/// Of a name without a letter.
constexpr std::uint32_t kFirstDrive = 0;

constexpr char kFirstLetter = 'A';

constexpr std::string_view kCdExtension = ".cda";
constexpr std::string_view kCdTrackWord = "track";

} // namespace

sound::Handle TrackOpener::open(std::string_view path, const base::Comfort& comfort) {
    for (const Create create : kDecoders) {
        if (const sound::Handle handle = create(sound_, path, comfort);
            handle != sound::kNoHandle) {
            return handle;
        }
        if (sound_.BASS_ErrorGetCode() == sound::ErrorCode::cannotOpenFile) {
            break; // the others would wait for the disk as long, and say the same
        }
    }
    return sound::kNoHandle;
}

sound::Handle TrackOpener::openAhead(std::string_view path, const base::Comfort& comfort) {
    return sound_.openAhead(path, !comfort.endsModules);
}

std::optional<std::uint32_t> TrackOpener::driveOf(const CdTrack& track) {
    if (!track.letter) {
        return kFirstDrive;
    }
    for (std::uint32_t drive = 0;; ++drive) {
        const int letter = sound_.BASS_CD_GetDriveLetter(drive);
        if (letter < 0) {
            return std::nullopt;
        }
        if (kFirstLetter + letter == *track.letter) {
            return drive;
        }
    }
}

sound::Handle TrackOpener::openCdTrack(const CdTrack& track) {
    const auto drive = driveOf(track);
    // Names count tracks from 1, the library from 0.
    return drive ? sound_.BASS_CD_StreamCreate(*drive, track.number - 1, kCdFlags)
                 : sound::kNoHandle;
}

void TrackOpener::free(sound::Handle channel) {
    sound_.BASS_StreamFree(channel);
    sound_.BASS_MusicFree(channel);
}

bool namesCdTrack(std::string_view path) {
    return base::toLowerAscii(path).find(kCdExtension) != std::string::npos;
}

std::optional<CdTrack> cdTrackOf(std::string_view path) {
    if (!namesCdTrack(path)) {
        return std::nullopt;
    }
    const std::string name = base::toLowerAscii(path);
    const std::size_t word = name.find(kCdTrackWord);
    if (word == std::string::npos) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    // What stands between this "track" and the next one, up to the extension.
    std::string_view number = std::string_view(name).substr(word + kCdTrackWord.size());
    number = number.substr(0, number.find(kCdTrackWord));
    number = number.substr(0, number.find(kCdExtension));
    CdTrack track{.letter = std::nullopt,
                  .number = static_cast<std::uint32_t>(base::toInt32(base::textToNumber(number)))};
    // A word of the command line has a folder in front.
    constexpr std::string_view kBehindLetter = ":\\";
    const std::size_t letter = word - std::min(word, kBehindLetter.size() + 1);
    if (name[letter] >= 'a' && name[letter] <= 'z' &&
        name.compare(letter + 1, kBehindLetter.size(), kBehindLetter) == 0) {
        track.letter = base::toUpperAscii(name.substr(letter, 1)).front();
    }
    return track;
}

} // namespace tovik::player
