// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Media.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tovik::sound::test {
namespace {

constexpr std::size_t kFewestFiles = 70;

std::vector<MediaFile> readListing() {
    std::ifstream in(mediaPath("media.tsv"));
    std::vector<MediaFile> files;
    for (std::string line; std::getline(in, line);) {
        std::istringstream row(line);
        MediaFile file;
        row >> file.name >> file.kind >> file.rate >> file.channels >> file.frames >> file.source;
        files.push_back(file);
    }
    if (files.size() < kFewestFiles) {
        throw std::runtime_error("the media listing is too short");
    }
    return files;
}

} // namespace

std::string mediaPath(const std::string& name) {
    const char* folder = std::getenv("TOVIK_MEDIA");
    if (folder == nullptr) {
        throw std::runtime_error("TOVIK_MEDIA names no folder");
    }
    return std::string(folder) + "/" + name;
}

const std::vector<MediaFile>& allMedia() {
    static const std::vector<MediaFile> files = readListing();
    return files;
}

std::vector<MediaFile> goodMedia() {
    std::vector<MediaFile> files;
    std::ranges::copy_if(allMedia(), std::back_inserter(files), [](const MediaFile& file) {
        return file.kind != "bad" && file.kind != "short";
    });
    return files;
}

bool isModule(const MediaFile& file) {
    constexpr std::array kinds = {"mod", "s3m", "xm", "it", "mtm", "umx"};
    return std::ranges::count(kinds, file.kind) > 0;
}

FormatFamily familyOf(const MediaFile& file) {
    if (isModule(file)) {
        return FormatFamily::music;
    }
    if (file.kind == "wma") {
        return FormatFamily::wma;
    }
    return file.kind == "flac" ? FormatFamily::flac : FormatFamily::stream;
}

std::unique_ptr<Decoder> openMedia(const std::string& name) {
    const auto& files = allMedia();
    const auto file = std::ranges::find(files, name, &MediaFile::name);
    if (file == files.end()) {
        throw std::runtime_error("no such file in the listing: " + name);
    }
    OpenResult result = openDecoder(familyOf(*file), mediaPath(name));
    if (!result.decoder) {
        throw std::runtime_error("cannot open " + name);
    }
    return std::move(result.decoder);
}

std::vector<float> readAll(Decoder& decoder, std::size_t block, std::size_t most) {
    const auto channels = static_cast<std::size_t>(decoder.channels());
    std::vector<float> part(block * channels);
    std::vector<float> all;
    for (;;) {
        const std::size_t got = decoder.read(part);
        all.insert(all.end(), part.begin(),
                   part.begin() + static_cast<std::ptrdiff_t>(got * channels));
        if (got < block || all.size() >= most * channels) {
            return all;
        }
    }
}

std::vector<float> readFrames(Decoder& decoder, std::size_t frames) {
    const auto channels = static_cast<std::size_t>(decoder.channels());
    std::vector<float> part(frames * channels);
    part.resize(decoder.read(part) * channels);
    return part;
}

std::int64_t scannedLength(Decoder& decoder) {
    const std::unique_ptr<PacketScan> scan = decoder.lengthScan();
    if (!scan) {
        return decoder.lengthFrames();
    }
    while (!scan->run(std::chrono::milliseconds(10))) {
    }
    return scan->lengthFrames();
}

std::vector<std::byte> fileBytes(const std::filesystem::path& path) {
    std::vector<std::byte> bytes(std::filesystem::file_size(path));
    std::ifstream in(path, std::ios::binary);
    for (std::byte& byte : bytes) {
        byte = static_cast<std::byte>(in.get());
    }
    return bytes;
}

void writeBytes(const std::filesystem::path& path, std::span<const std::byte> bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    for (const std::byte byte : bytes) {
        out.put(std::to_integer<char>(byte));
    }
}

std::mt19937 sameRandom() {
    return std::mt19937(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): a failure must come again
}

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tovik-decode-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::operator/(const std::string& name) const {
    return path_.string() + "/" + name;
}

} // namespace tovik::sound::test
