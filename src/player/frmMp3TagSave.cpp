// SPDX-License-Identifier: GPL-3.0-or-later
// What the tag editor saves.
#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "player/BusyGuard.h"
#include "player/frmMp3Tag.h"
#include "playlist/FileNames.h"
#include "tags/FactsDesk.h"

#include <utility>

namespace tovik::player {

namespace {

using tags::TagField;

// The rows of "TovikNotice" in the language files.
constexpr int kLossNotice = 1;
constexpr int kSaveNotice = 2;
constexpr int kCancelNotice = 3;

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

/// Rows of a file that bear the title that its tags had, or its name, get the one that they have.
/// Where they have none the former is its name again.
void retitle(playlist::stdSS& list, const std::string& path, const std::string& before,
             const std::string& title) {
    if (title == before) {
        return;
    }
    for (playlist::Row row = 1; row <= list.ListCount(); ++row) {
        if (base::trimmed(list.text(row, playlist::RowText::FileName)) != path) {
            continue;
        }
        const std::string_view shown = list.text(row, playlist::RowText::Title);
        if (!title.empty() && (shown == before || playlist::isNamedAfter(shown, path))) {
            list.RefreshTitle(row, title);
        } else if (title.empty() && shown == before) {
            list.RefreshTitle(row, playlist::GetLastBackSlash(path));
        }
    }
}

} // namespace

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
    const bool saved = write();
    renew();
    return saved;
}

bool frmMp3Tag::write() {
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

/// What was taken from the file's tags is taken from them anew: titles of rows, and what the window
/// shows of the track that plays.
void frmMp3Tag::renew() {
    const base::Comfort& comfort = needs_.core.state.comfort;
    const std::string path = form_.Text1;
    if (comfort.readsListAhead) {
        const std::string before = tags::listTitle(own_);
        needs_.work.run([&] { own_ = tags::factsOfFile(path); });
        retitle(needs_.core.lists.stdSS, path, before, tags::listTitle(own_));
    }
    if (comfort.readsEveryFormat && needs_.core.facts != nullptr) {
        needs_.core.facts->ask(path, tags::FactsDesk::Urgency::first);
    }
}

bool frmMp3Tag::saveVersion1() {
    if (!form_.Check1) {
        return version1_.RemoveTag();
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
/// fields, and so even a file without one gets a tag.
bool frmMp3Tag::saveVersion2() {
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
