// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/CoverFiles.h"

#include "base/AtomicFile.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "tags/FileFacts.h"
#include "tags/TagPicture.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

namespace tovik::desktop {

namespace fs = std::filesystem;

namespace {

constexpr std::array kPictureNames = {"cover.jpg",  "cover.png", "folder.jpg",
                                      "folder.png", "front.jpg", "front.png"};
constexpr std::size_t kNoPicture = kPictureNames.size();

constexpr std::size_t kNameDigits = 32; ///< of a kept picture, in front of its ending

std::size_t rankOf(std::string_view name) {
    return static_cast<std::size_t>(
        std::ranges::find_if(
            kPictureNames,
            [&](const char* picture) { return base::equalsIgnoringCase(name, picture); }) -
        kPictureNames.begin());
}

std::string hexadecimal(std::uint64_t value) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    constexpr unsigned kBits = 64;
    std::string text;
    for (unsigned shift = kBits; shift > 0; shift -= 4) {
        text += kDigits.at((value >> (shift - 4)) & 0xFU);
    }
    return text;
}

/// FNV-1a of 64 bits.
std::uint64_t digestOf(std::string_view bytes) {
    std::uint64_t digest = 0xCBF29CE484222325U;
    for (const char byte : bytes) {
        digest = (digest ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    return digest;
}

bool isKeptName(const std::string& name) {
    return name.size() == kNameDigits + 4 && (name.ends_with(".jpg") || name.ends_with(".png")) &&
           name.find_first_not_of("0123456789abcdef") == kNameDigits;
}

struct Kept {
    fs::file_time_type used;
    std::uintmax_t bytes;
    fs::path path;
};

/// What else lies in the folder stays.
void dropOldest(const std::string& folder, const CoverLimits& limits) {
    std::vector<Kept> all;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (!isKeptName(entry->path().filename().native())) {
            continue;
        }
        std::error_code gone;
        Kept kept{entry->last_write_time(gone), 0, entry->path()};
        kept.bytes = gone ? 0 : entry->file_size(gone);
        if (!gone) {
            all.push_back(std::move(kept));
        }
    }
    std::ranges::sort(all, std::ranges::greater(), &Kept::used);
    std::size_t files = 0;
    std::uintmax_t bytes = 0;
    for (const Kept& kept : all) {
        bytes += kept.bytes;
        if (++files > 1 && (files > limits.files || bytes > limits.bytes)) {
            fs::remove(kept.path, failure);
        }
    }
}

bool holds(const std::string& path, const std::string& bytes) {
    std::string there;
    return !base::readWholeFile(path, there, static_cast<std::int64_t>(bytes.size())) &&
           there == bytes;
}

std::string keep(const tags::TagPicture& picture, const std::string& folder,
                 const CoverLimits& limits) {
    const std::string name = hexadecimal(digestOf(picture.bytes)) +
                             hexadecimal(picture.bytes.size()) +
                             (picture.form == tags::PictureForm::jpeg ? ".jpg" : ".png");
    std::string path = base::joinPath(folder, name);
    std::error_code failure;
    if (holds(path, picture.bytes)) {
        fs::last_write_time(path, fs::file_time_type::clock::now(), failure);
        return path;
    }
    fs::create_directories(folder, failure);
    if (base::replaceFile(path, picture.bytes, base::Flush::No)) {
        return {};
    }
    dropOldest(folder, limits);
    return path;
}

} // namespace

std::string coverFolder(const host::Environment& environment) {
    return base::joinPath(host::folderOf(environment.cacheHome, environment.home, ".cache"),
                          "tovik/covers");
}

std::string folderPicture(const std::string& trackPath) {
    const fs::path folder = fs::path(trackPath).parent_path();
    std::size_t best = kNoPicture;
    std::string found;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string& path = entry->path().native();
        const std::size_t rank = rankOf(entry->path().filename().native());
        std::error_code gone;
        // Of names that differ only in the case of letters always the same one.
        const bool better = rank < best || (rank < kNoPicture && rank == best && path < found);
        if (better && entry->is_regular_file(gone)) {
            best = rank;
            found = path;
        }
    }
    return found;
}

std::string coverOf(const std::string& trackPath, const std::string& covers,
                    const CoverLimits& limits, CoverTags tags) {
    if (!trackPath.starts_with('/')) {
        return {}; // an address, or a track of a disc
    }
    std::string found = folderPicture(trackPath);
    if (found.empty()) {
        auto picture = tags::pictureOfFile(trackPath);
        if (!picture && tags == CoverTags::everyFormat) {
            picture = tags::pictureOfAnyFile(trackPath);
        }
        if (picture) {
            found = keep(*picture, covers, limits);
        }
    }
    return found;
}

} // namespace tovik::desktop
