// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/frmMp3Tag.h"

#include "base/Numbers.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "tags/FactsDesk.h"
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

// The rows of "TovikNotice" in the language files.
constexpr int kLossNotice = 1;
constexpr int kSaveNotice = 2;
constexpr int kCancelNotice = 3;
constexpr int kNoMpegNotice = 4;

TagField shownField(const std::string& bytes) {
    return TagField(tags::shownField(bytes));
}

TagField trimmedField(const std::string& bytes) {
    return TagField(base::trimmed(bytes));
}

std::string trimmed(const TagField& field) {
    return std::string(base::trimmed(field.bytes()));
}

bool isNumeric(const TagField& field) {
    try {
        static_cast<void>(base::textToNumber(field.bytes()));
        return true;
    } catch (const base::RuntimeError&) {
        return false;
    }
}

/// Raises 6 outside of a byte.
std::uint8_t trackNumber(const TagField& field) {
    const std::int16_t number = base::toInt16(base::textToNumber(field.bytes()));
    if (number < 0 || number > UINT8_MAX) {
        throw base::RuntimeError(base::ErrorNumber::Overflow);
    }
    return static_cast<std::uint8_t>(number);
}

class BusyGuard {
public:
    explicit BusyGuard(bool& busy) : busy_(busy) { busy_ = true; }

    ~BusyGuard() { busy_ = false; }

    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;

private:
    bool& busy_;
};

/// Lets go of what is known of a file that is written, also where writing fails halfway.
class FactsGuard {
public:
    FactsGuard(tags::FactsDesk* desk, const std::string& path) : desk_(desk), path_(path) {}

    ~FactsGuard() {
        if (desk_ != nullptr) {
            desk_->forget(path_);
        }
    }

    FactsGuard(const FactsGuard&) = delete;
    FactsGuard& operator=(const FactsGuard&) = delete;

private:
    tags::FactsDesk* desk_;
    const std::string& path_;
};

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
    own_ = {};
    lost_.clear();
    lostWithoutFields_.clear();
    needs_.work.run([&] {
        const base::RegularFile file(form_.Text1, base::RegularFile::Access::Read);
        if (!file.failure()) {
            fileBytes = file.size();
            form_.mayWrite = kept_.kind == tags::TagKind::none ? tags::isMpegAudio(file) : true;
        }
        if (comfort_.tellsOwnSound || comfort_.findsAllHeaders) {
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

bool frmMp3Tag::acceptsLosses() {
    const std::vector<std::string>& lost = form_.Check2 ? lost_ : lostWithoutFields_;
    if (lost.empty() || toldFiles_.contains(form_.Text1)) {
        return true;
    }
    std::string names;
    for (const std::string& name : lost) {
        names += (names.empty() ? "" : ", ") + name;
    }
    const host::MessageAnswer answer = needs_.dialogs.showMessage(
        {.text = base::replaceAll(needs_.words.get_Notice_String(kLossNotice), "[x]", names),
         .title = host::kProgramTitle,
         .icon = host::MessageIcon::Exclamation,
         .buttons = host::MessageButtons::OkCancel,
         .defaultAnswer = host::MessageAnswer::Cancel,
         .okCaption = needs_.words.get_Notice_String(kSaveNotice),
         .cancelCaption = needs_.words.get_Notice_String(kCancelNotice)});
    if (answer != host::MessageAnswer::Ok) {
        return false;
    }
    toldFiles_.insert(form_.Text1);
    return true;
}

bool frmMp3Tag::save() {
    if (!form_.mayWrite) {
        return false;
    }
    const BusyGuard busy(busy_);
    // Another program may have put something else there since it was shown.
    lookAtFile();
    if (!form_.mayWrite || !acceptsLosses()) {
        return false;
    }
    needs_.warning.TagSaving = true;
    const FactsGuard outOfDate(needs_.core.facts, form_.Text1);
    if (keepsFrames()) {
        return saveKept();
    }
    for (TagField* const track : {&form_.Text3, &form_.Text5}) {
        if (!isNumeric(*track)) {
            *track = {};
        }
    }
    const bool first = saveVersion1();
    return saveVersion2() && first;
}

bool frmMp3Tag::saveVersion1() {
    if (!form_.Check1) {
        if (comfort_.looksForTagFirst && !version1_.HasID3v1Tag()) {
            return true;
        }
        return comfort_.cutsRemovedTag && version1_.HasID3v1Tag() ? version1_.CutTag()
                                                                  : version1_.RemoveTag();
    }
    version1_.MP3File(form_.Text1);
    version1_.Title(trimmed(form_.Text2[0]));
    version1_.Artist(trimmed(form_.Text2[1]));
    version1_.Album(trimmed(form_.Text2[2]));
    version1_.Year(trimmed(form_.Text2[3]));
    version1_.genre(genreOf(form_.genre));
    version1_.Comment(trimmed(form_.Text2[4]));
    if (!form_.Text5.bytes().empty()) {
        version1_.track(trackNumber(form_.Text5));
    }
    version1_.Update();
    return true;
}

/// A deliberate oddity: the tag is written also where its tick box is clear, then without the
/// fields, and so even a file without one gets a tag (`Comfort::leavesUntickedTag` leaves the
/// file).
bool frmMp3Tag::saveVersion2() {
    if (!form_.Check2 && comfort_.leavesUntickedTag) {
        return true;
    }
    version2_.MP3File(form_.Text1);
    if (form_.Check2) {
        if (!form_.Text3.bytes().empty()) {
            version2_.track(trimmed(form_.Text3));
        }
        version2_.Title(trimmed(form_.Text4[0]));
        version2_.Artist(trimmed(form_.Text4[1]));
        version2_.Year(trimmed(form_.Text4[2]));
        version2_.Album(trimmed(form_.Text4[9]));
        version2_.genre(genreOf(form_.Genre2));
        version2_.Comment(trimmed(form_.Text4[3]));
        version2_.Composer(trimmed(form_.Text4[4]));
        version2_.OriginalArtist(trimmed(form_.Text4[5]));
        version2_.Copyright(trimmed(form_.Text4[6]));
        version2_.ArtistURL(trimmed(form_.Text4[7]));
        version2_.EncodedBy(trimmed(form_.Text4[8]));
    }
    return version2_.Update();
}

} // namespace tovik::player
