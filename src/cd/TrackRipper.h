// SPDX-License-Identifier: GPL-3.0-or-later
// Turns one track into a file, in each of the formats. Interface thread; while a track is moved
// the rest of the program goes on.
#pragma once

#include "base/Comfort.h"
#include "cd/EncoderLine.h"
#include "cd/RipNeeds.h"
#include "cd/TrackFlow.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::cd {

class TrackRipper {
public:
    /// Both outlive the object; the record stays as it is while a track is ripped.
    TrackRipper(const RipNeeds& needs, const base::Comfort& comfort)
        : needs_(needs), comfort_(comfort) {}

    /// Pipes a source through an encoder program: a track, counted from 0, of the disc in the drive
    /// for encoders (`encoderDrive`), or a file. `row` is that of the list, from 0. What goes wrong
    /// is told and stands in the log of conversions, by the source. The sound library is given back
    /// at the end.
    [[nodiscard]] RipEnd Encoder(const std::string& source, std::string_view type,
                                 std::int32_t bitrate, const std::string& path, bool isCdTrack,
                                 std::int16_t row);

    /// Writes "TRACK", the number from 1 and ".WAV" into the folder. Raises nothing.
    [[nodiscard]] RipEnd ExtractAudioTrackToWav(std::int32_t track, const std::string& folder);

    /// The same into a file of that name.
    [[nodiscard]] RipEnd extractToWav(std::int32_t track, const std::string& path);

    /// Writes a WMA file with the names of the form. Raises what reading settings raises.
    [[nodiscard]] RipEnd ExtractAudioTrackToWMA(std::int32_t track);

    /// The same as "TRACK", the number from 1 and ".WMA" into a given folder.
    [[nodiscard]] RipEnd ExtractAudioTrackToWMA(std::int32_t track, const std::string& folder);

    /// The same into a file of that name.
    [[nodiscard]] RipEnd extractToWma(std::int32_t track, const std::string& path);

    /// What was written of the last track when the user ended it, and nobody writes on; empty
    /// where it is whole.
    [[nodiscard]] const std::string& partFile() const noexcept { return partFile_; }

private:
    [[nodiscard]] sound::Handle openSource(const std::string& source, bool isCdTrack);

    /// A track that is read.
    struct Source {
        sound::Handle stream = sound::kNoHandle;
        std::uint32_t drive = 0;
        std::int32_t track = 0; ///< counted from 0
        const std::string& path;
    };

    [[nodiscard]] RipEnd encode(const EncoderLine& line, const std::string& program,
                                const TrackFlow::Job& job, TrackFlow& flow,
                                const std::string& path);
    [[nodiscard]] RipEnd writeWav(std::int32_t track, const std::string& path);
    [[nodiscard]] RipEnd flowToWma(std::int32_t track, sound::Handle encoder, TrackFlow& flow,
                                   const std::string& path);
    [[nodiscard]] TrackFlow::Job jobOf(sound::Handle stream, std::int32_t track) const;
    [[nodiscard]] RipEnd withoutStream(std::uint32_t drive) const;
    void setTags(sound::Handle encoder, std::int32_t track);

    /// What the disc did while its track was read: told and logged. `end` unless the disc is gone,
    /// or its stream broke off. To be called before the stream, if there is one, is freed.
    [[nodiscard]] RipEnd endOfDisc(const Source& source, const TrackFlow& flow, RipEnd end);
    [[nodiscard]] RipEnd noProgram(const EncoderLine& line);

    /// What writes did not answer for long after a cancel.
    [[nodiscard]] RipEnd givenUp(const std::string& path);
    void tell(const std::string& words);
    void tellUnwritten(const std::string& path, const std::string& words);
    [[nodiscard]] std::string unwritten(const std::string& path) const;

    /// Of encoder programs.
    [[nodiscard]] std::uint32_t drive() const;

    [[nodiscard]] sound::SoundLibrary& sound() const { return needs_.core.sound; }

    const RipNeeds& needs_;
    const base::Comfort& comfort_;
    std::string partFile_;
    sound::Handle encoderChannel_ = sound::kNoHandle; ///< of the last `Encoder`
};

} // namespace tovik::cd
