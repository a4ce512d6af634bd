// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor where it keeps what it does not change.
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "player/frmMp3Tag.h"

#include <array>
#include <charconv>
#include <string_view>

namespace tovik::player {

namespace {

using tags::EditField;
using tags::TagField;

// In the order of the fields on the pages.
constexpr std::array kFields1{EditField::title, EditField::artist, EditField::album,
                              EditField::year, EditField::comment};
constexpr std::array kFields2{EditField::title,     EditField::artist,    EditField::year,
                              EditField::comment,   EditField::composer,  EditField::originalArtist,
                              EditField::copyright, EditField::artistUrl, EditField::encodedBy,
                              EditField::album};

constexpr int kNoNumber = -1;

/// The number that a text is, from 0 on; below that it is none.
int numberOf(std::string_view text) {
    int number = kNoNumber;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() && read.ptr == text.data() + text.size() ? number : kNoNumber;
}

std::string trimmedText(const TagField& field) {
    return std::string(base::trimmed(field.text()));
}

/// Whether writing is forbidden there, and not only failed.
bool isReadOnly(std::error_code failure) {
    return failure == std::errc::permission_denied ||
           failure == std::errc::operation_not_permitted ||
           failure == std::errc::read_only_file_system;
}

std::string tagNameOf(tags::TagKind kind) {
    switch (kind) {
    case tags::TagKind::xiph:
        return "Vorbis";
    case tags::TagKind::windows:
        return "WMA";
    case tags::TagKind::mpeg:
    case tags::TagKind::none:
        break;
    }
    return "ID3v2";
}

} // namespace

bool frmMp3Tag::keepsFrames() const {
    return comfort_.decodesFrames && comfort_.readsSevenBits && comfort_.readsWholeGenre &&
           comfort_.savesWithoutAlarm && comfort_.looksForTagFirst && comfort_.cutsRemovedTag;
}

void frmMp3Tag::loadKept() {
    needs_.work.run([this] { kept_ = tags::readEditTags(form_.Text1); });
    if (!comfort_.editsEveryFormat && kept_.kind != tags::TagKind::mpeg) {
        kept_ = {};
    }
    form_.editsVersion1 = kept_.kind == tags::TagKind::mpeg || kept_.kind == tags::TagKind::none;
    form_.tagName = tagNameOf(kept_.kind);
    form_.Check1 = kept_.version1.there;
    for (std::size_t i = 0; i < kFields1.size(); ++i) {
        form_.Text2.at(i) = TagField(kept_.version1.text(kFields1.at(i)));
    }
    form_.Text5 = TagField(kept_.version1.text(EditField::track));
    form_.genre = entryOfGenre(kept_.version1.text(EditField::genre));
    form_.Check2 = form_.albumEnabled = kept_.version2.there;
    for (std::size_t i = 0; i < kFields2.size(); ++i) {
        form_.Text4.at(i) = TagField(kept_.version2.text(kFields2.at(i)));
    }
    form_.Text3 = TagField(kept_.version2.text(EditField::track));
    const std::string& genre = kept_.version2.text(EditField::genre);
    form_.Genre2 = comfort_.showsOwnGenre ? entryOfGenre(genre) : form_.genre;
    if (form_.Genre2 == kForeignGenre) {
        form_.foreignGenre = genre;
    }
    loadedGenre1_ = form_.genre;
    loadedGenre2_ = form_.Genre2;
}

std::int32_t frmMp3Tag::entryOfGenre(const std::string& genre) const {
    if (const int number = numberOf(genre); number != kNoNumber) {
        return entryOf(number);
    }
    const std::vector<std::string> names = genres();
    for (std::size_t entry = 1; entry < names.size(); ++entry) {
        if (!genre.empty() && base::equalsIgnoringCase(names.at(entry), genre)) {
            return static_cast<std::int32_t>(entry);
        }
    }
    return genre.empty() ? 0 : kForeignGenre;
}

void frmMp3Tag::noteChange(tags::TagChange& change, const tags::EditTag& tag, EditField field,
                           const std::string& text) const {
    const std::string_view old = base::trimmed(tag.text(field));
    if (text != old || !comfort_.savesOnlyChanges) {
        change.texts.at(static_cast<std::size_t>(field)) = text;
    }
}

tags::TagChange frmMp3Tag::change1() const {
    // A tag that was not shown, as one that could not be read, is not taken away, either.
    tags::TagChange change{.keep = form_.Check1 || !kept_.version1.there || !form_.editsVersion1};
    if (!form_.Check1) {
        return change;
    }
    for (std::size_t i = 0; i < kFields1.size(); ++i) {
        noteChange(change, kept_.version1, kFields1.at(i), trimmedText(form_.Text2.at(i)));
    }
    noteChange(change, kept_.version1, EditField::track, trimmedText(form_.Text5));
    if (form_.genre != loadedGenre1_ || (!kept_.version1.there && change.any())) {
        change.texts.at(static_cast<std::size_t>(EditField::genre)) =
            std::to_string(int{genreOf(form_.genre)});
    }
    return change;
}

tags::TagChange frmMp3Tag::change2() const {
    tags::TagChange change{.keep = form_.Check2 || !kept_.version2.there ||
                                   !comfort_.leavesUntickedTag};
    if (!form_.Check2) {
        return change;
    }
    for (std::size_t i = 0; i < kFields2.size(); ++i) {
        noteChange(change, kept_.version2, kFields2.at(i), trimmedText(form_.Text4.at(i)));
    }
    noteChange(change, kept_.version2, EditField::track, trimmedText(form_.Text3));
    if (form_.Genre2 != loadedGenre2_) {
        change.texts.at(static_cast<std::size_t>(EditField::genre)) =
            genres().at(static_cast<std::size_t>(form_.Genre2));
    }
    return change;
}

bool frmMp3Tag::saveKept() {
    if (!form_.Text5.bytes().empty() && numberOf(trimmedText(form_.Text5)) == kNoNumber) {
        form_.Text5 = {};
    }
    if (numberOf(trimmedText(form_.Text5)) > UINT8_MAX) {
        throw base::RuntimeError(base::ErrorNumber::Overflow);
    }
    const tags::TagChanges changes{.version1 = change1(), .version2 = change2()};
    std::error_code failure;
    needs_.work.run([&] { failure = tags::saveEditTags(form_.Text1, changes); });
    if (!failure) {
        return true;
    }
    if (isReadOnly(failure)) {
        needs_.warning.showOnce();
    } else {
        needs_.dialogs.showMessage({.text = form_.Text1 + "\n" + failure.message(),
                                    .title = host::kProgramTitle,
                                    .icon = host::MessageIcon::Exclamation});
    }
    return false;
}

} // namespace tovik::player
