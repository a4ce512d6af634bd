// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmMp3Tag.h"

#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "player/BusyGuard.h"
#include "tags/LostFrames.h"
#include "tags/ShownField.h"
#include "tags/SoundStart.h"

#include <utility>

namespace tovik::player {

namespace {

using tags::TagField;

constexpr int kGenres = 148;
constexpr std::int32_t kNoEntry = 0;
constexpr int kNoGenre = 255;

// A deliberate oddity: the last genre counts as none, unless `Comfort::showsLastGenre` is on.
constexpr int kLastShownGenre = 146;

/// A row of "TovikNotice" in the language files.
constexpr int kNoMpegNotice = 4;

TagField shownField(const std::string& bytes) {
    return TagField(tags::shownField(bytes));
}

TagField trimmedField(const std::string& bytes) {
    return TagField(base::trimmed(bytes));
}

} // namespace

frmMp3Tag::frmMp3Tag(const Needs& needs)
    : needs_(needs), version1_(needs.warning), version2_(needs.warning, needs.work) {}

std::int32_t frmMp3Tag::entryOf(int genre) const {
    const int last = comfort_.showsLastGenre ? kGenres - 1 : kLastShownGenre;
    return genre <= last ? genre + 1 : kNoEntry;
}

std::uint8_t frmMp3Tag::genreOf(std::int32_t entry) {
    return static_cast<std::uint8_t>(entry <= kNoEntry || entry > kGenres ? kNoGenre : entry - 1);
}

std::vector<std::string> frmMp3Tag::genres() {
    std::vector<std::string> entries(1);
    for (int genre = 0; genre < kGenres; ++genre) {
        entries.emplace_back(tags::cMP3ID3v1::GenreName(genre));
    }
    return entries;
}

void frmMp3Tag::Form_Load() {
    if (busy_) {
        return;
    }
    const BusyGuard busy(busy_);
    playlist::stdSS& list = needs_.core.lists.stdSS;
    list.GetData(list.SelectedIndex);
    comfort_ = needs_.core.state.comfort;
    form_ = {};
    facts_ = {};
    kept_ = {};
    form_.Text1 = base::trimmed(list.OutFileName);
    if (keepsFrames()) {
        loadKept();
    } else {
        loadVersion1();
        loadVersion2();
    }
    loadFacts();
}

void frmMp3Tag::loadVersion1() {
    version1_.MP3File(form_.Text1);
    form_.Check1 = version1_.HasID3v1Tag();
    if (!form_.Check1) {
        return;
    }
    form_.Text2 = {shownField(version1_.Title()), shownField(version1_.Artist()),
                   shownField(version1_.Album()), shownField(version1_.Year()),
                   shownField(version1_.Comment())};
    form_.Text5 = TagField(std::to_string(version1_.track()));
    form_.genre = entryOf(version1_.genre());
}

void frmMp3Tag::loadVersion2() {
    version2_.MP3File(form_.Text1);
    form_.Check2 = form_.albumEnabled = version2_.HasID3v2Tag();
    if (!form_.Check2) {
        return;
    }
    form_.Text4 = {trimmedField(version2_.Title()),     trimmedField(version2_.Artist()),
                   trimmedField(version2_.Year()),      trimmedField(version2_.Comment()),
                   trimmedField(version2_.Composer()),  trimmedField(version2_.OriginalArtist()),
                   trimmedField(version2_.Copyright()), trimmedField(version2_.ArtistURL()),
                   trimmedField(version2_.EncodedBy()), trimmedField(version2_.Album())};
    form_.Text3 = trimmedField(version2_.track());
    // A deliberate oddity: the genre of version 1, which is number 0 without a tag.
    form_.Genre2 = entryOf(comfort_.showsOwnGenre ? version2_.genre() : version1_.genre());
}

std::int64_t frmMp3Tag::lookAtFile() {
    std::int64_t fileBytes = 0;
    const bool keeps = keepsFrames();
    const bool readsOwn = comfort_.tellsOwnSound || comfort_.findsAllHeaders ||
                          needs_.core.state.comfort.readsListAhead;
    own_ = {};
    lost_.clear();
    lostWithoutFields_.clear();
    needs_.work.run([&] {
        const base::RegularFile file(form_.Text1, base::RegularFile::Access::Read);
        if (!file.failure()) {
            fileBytes = file.size();
            form_.mayWrite = kept_.kind == tags::TagKind::none ? tags::isMpegAudio(file) : true;
        }
        if (readsOwn) {
            own_ = tags::factsOfFile(form_.Text1);
        }
        if (!keeps) {
            lost_ = tags::lostFrames(form_.Text1, shownGenre_);
            lostWithoutFields_ = tags::lostFrames(form_.Text1, std::nullopt);
        }
    });
    return fileBytes;
}

void frmMp3Tag::loadFacts() {
    shownGenre_ = genreOf(form_.Genre2);
    const std::int64_t fileBytes = lookAtFile();
    facts_.size = std::to_string(fileBytes);
    loadSound(fileBytes);
    loadHeader();
}

bool frmMp3Tag::Command1_Click(Button button) {
    if (busy_) {
        return false;
    }
    needs_.warning.TagWarned = false;
    switch (button) {
    case Button::save:
        return save();
    case Button::reload:
        Form_Load();
        return false;
    case Button::close:
        break;
    }
    return true;
}

void frmMp3Tag::Command2_Click(Copy copy) {
    if (busy_ || !form_.mayWrite || !form_.editsVersion1) {
        return;
    }
    const std::array<std::pair<TagField*, TagField*>, 6> pairs{{
        {form_.Text2.data(), form_.Text4.data()},
        {&form_.Text2[1], &form_.Text4[1]},
        {&form_.Text2[3], &form_.Text4[2]},
        {&form_.Text2[4], &form_.Text4[3]},
        {&form_.Text2[2], &form_.Text4[9]},
        {&form_.Text5, &form_.Text3},
    }};
    if (copy == Copy::toVersion2) {
        form_.Check2 = true;
        form_.albumEnabled = form_.albumEnabled || comfort_.enablesAlbum;
        form_.Genre2 = form_.genre;
    } else {
        form_.Check1 = true;
        form_.genre = form_.Genre2 == kForeignGenre ? kNoEntry : form_.Genre2;
    }
    for (const auto& [first, second] : pairs) {
        (copy == Copy::toVersion2 ? *second : *first) = copy == Copy::toVersion2 ? *first : *second;
    }
}

void frmMp3Tag::Check1_Click(bool checked) {
    form_.Check1 = checked;
    if (!checked) {
        form_.Text2 = {};
        form_.Text5 = {};
        form_.genre = kNoEntry;
    }
}

void frmMp3Tag::Check2_Click(bool checked) {
    form_.Check2 = checked;
    const bool takesAlbum = comfort_.enablesAlbum;
    form_.albumEnabled = takesAlbum ? checked : form_.albumEnabled;
    if (!checked) {
        TagField album = std::move(form_.Text4.back());
        form_.Text4 = {};
        form_.Text4.back() = takesAlbum ? TagField() : std::move(album);
        form_.Text3 = {};
        form_.Genre2 = kNoEntry;
    }
}

std::string frmMp3Tag::reason() const {
    return form_.mayWrite ? "" : needs_.words.get_Notice_String(kNoMpegNotice);
}

} // namespace tovik::player
