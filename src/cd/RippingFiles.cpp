// SPDX-License-Identifier: GPL-3.0-or-later
// The files of a rip: their names, their tags, and their end when the user has cancelled.
#include "base/FileErrors.h"
#include "base/FileName.h"
#include "base/PathText.h"
#include "cd/RipNames.h"
#include "cd/Ripping.h"
#include "host/BesideJob.h"
#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"
#include "tags/FreshTags.h"
#include "tags/TagField.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>

namespace tovik::cd {

namespace {

constexpr int kMostNumbers = 10'000;

/// A text of the form as a tag holds it.
std::string tagBytes(const std::string& text) {
    tags::TagField field;
    field.type(text);
    return field.bytes();
}

} // namespace

/// The name without an extension.
std::string Ripping::nameOf(const Job& job, const Track& track) const {
    if (job.format.branch == RipBranch::wav) {
        return plainTrackFile(track.number, "");
    }
    const std::string title = trackTitle(needs_.form, static_cast<std::size_t>(track.number));
    return comfort_.cleansRipNames ? cleanRipName(title) : ripName(title);
}

/// A deliberate oddity: a file of that name is written over, whoever wrote it; and WMA files of an
/// album without a name land beside its folder.
std::optional<std::string> Ripping::pathOf(const Job& job, const Track& track) {
    const bool byProgram =
        job.format.branch == RipBranch::mp3 || job.format.branch == RipBranch::ogg;
    const bool beside = job.format.branch == RipBranch::wma && !comfort_.keepsWmaInAlbum &&
                        albumName(needs_.form).empty();
    const std::string extension =
        byProgram && job.alone ? shortExtension(job.format) : std::string(job.format.extension);
    const auto numbered = [folder = beside ? job.root : job.folder, name = nameOf(job, track),
                           extension](int number) {
        return base::joinPath(folder, base::numberedFileName(name, number, extension));
    };
    const auto written = comfort_.numbersEqualNames ? written_ : std::set<std::string>();
    const auto path = std::make_shared<std::string>();
    const bool kept = comfort_.keepsEarlierRips;
    const auto find = [path, numbered, written, kept] {
        std::error_code none;
        for (int number = 1; number < kMostNumbers; ++number) {
            *path = numbered(number);
            if (!written.contains(*path) && !(kept && std::filesystem::exists(*path, none))) {
                break;
            }
        }
    };
    if (!kept) {
        find();
    } else if (!host::runBeside(needs_.host.pump, find)) {
        return std::nullopt; // any name may be that of an earlier file
    }
    written_.insert(*path);
    return *path;
}

/// Whether the user has ended the job with this track.
bool Ripping::endCancelled() {
    if (!needs_.disc.CancelRip) {
        return false;
    }
    if (const std::string part = ripper_.partFile(); comfort_.removesPartFiles && !part.empty()) {
        // An end of the program does not keep it from going.
        static_cast<void>(host::runBeside(needs_.host.pump, [part] {
            std::error_code none;
            std::filesystem::remove(part, none);
        }));
    }
    return comfort_.endsJobWithCancel;
}

/// Both tags, complete.
void Ripping::writeTags(const std::string& path, std::int32_t track) {
    const tags::FreshTags told = tagsOf(needs_.form, track);
    std::error_code failure;
    work_.run([&] { failure = tags::tagFreshFile(path, told); });
    base::raiseFailure(failure);
}

void Ripping::WriteMp3Tag(const std::string& path, std::int32_t track) {
    config::guard(needs_.core.errors, config::procedureOf("TSR", "WriteMp3Tag"), [&] {
        if (comfort_.fillsBothTags) {
            writeTags(path, track);
            return;
        }
        const DiscForm& form = needs_.form;
        const std::string title = tagBytes(trackTitle(form, static_cast<std::size_t>(track)));
        const std::string year = tagBytes(form.Text1[1]);
        tags::cMP3ID3v1 first(warning_);
        first.MP3File(path);
        first.Artist(tagBytes(form.Text2[0]));
        first.Title(title);
        first.Year(year);
        if (form.V1Genre >= 0) {
            first.genre(static_cast<std::uint8_t>(form.V1Genre));
        }
        first.track(static_cast<std::uint8_t>(track + 1));
        first.Update();

        tags::cMP3ID3v2 second(warning_, work_);
        second.MP3File(path);
        second.Album(tagBytes(form.Text1[0]));
        second.Title(title);
        second.Year(year);
        second.track(std::to_string(track + 1));
        second.EncodedBy("Tovik");
        if (form.V2Genre >= 0) {
            second.genre(static_cast<std::uint8_t>(form.V2Genre));
        }
        static_cast<void>(second.Update());
    });
}

} // namespace tovik::cd
