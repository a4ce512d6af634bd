// SPDX-License-Identifier: GPL-3.0-or-later
// The generated media as the decoder tests see them, and ways to decode a whole file.
#pragma once

#include "sound/decode/Decoder.h"

#include <array>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace tovik::sound::test {

/// One row of the listing that comes with the media.
struct MediaFile {
    std::string name;
    std::string kind; ///< wav, adpcm, aiff, mp3, ogg, flac, wma, a module's suffix, short, or bad
    int rate = 0;     ///< Hz; 0 for modules
    int channels = 0; ///< as stored in the file
    std::int64_t frames = 0; ///< exact length, 0 where the format does not tell it
    std::string source;      ///< name of the WAV it was made from, or "-"
};

/// Every family that a create operation may ask for.
inline constexpr std::array kFamilies = {FormatFamily::stream, FormatFamily::music,
                                         FormatFamily::wma, FormatFamily::flac};

[[nodiscard]] std::string mediaPath(const std::string& name);

/// All files of the listing; throws when there are suspiciously few.
[[nodiscard]] const std::vector<MediaFile>& allMedia();

/// Those that a decoder takes, without the few that last no tenth of a second ("short").
[[nodiscard]] std::vector<MediaFile> goodMedia();

[[nodiscard]] bool isModule(const MediaFile& file);
[[nodiscard]] FormatFamily familyOf(const MediaFile& file);

/// Opens a file of the media in the family that takes it; throws if that fails.
[[nodiscard]] std::unique_ptr<Decoder> openMedia(const std::string& name);

/// Reads to the end in blocks of `block` frames, `most` frames at most.
[[nodiscard]] std::vector<float> readAll(Decoder& decoder, std::size_t block = 4096,
                                         std::size_t most = 100'000'000);

/// Reads just `frames` frames, fewer at the end.
[[nodiscard]] std::vector<float> readFrames(Decoder& decoder, std::size_t frames);

/// Length in frames by the scan if there is one, else the decoder's own.
[[nodiscard]] std::int64_t scannedLength(Decoder& decoder);

[[nodiscard]] std::vector<std::byte> fileBytes(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, std::span<const std::byte> bytes);

/// Random numbers that are the same in every run.
[[nodiscard]] std::mt19937 sameRandom();

/// A folder that is gone after the test.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string operator/(const std::string& name) const;

private:
    std::filesystem::path path_;
};

} // namespace tovik::sound::test
