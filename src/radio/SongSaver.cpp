// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/SongSaver.h"

#include "base/FileName.h"
#include "tags/FreshTags.h"

#include <utility>

namespace tovik::radio {

namespace {

constexpr std::size_t kMostHead = std::size_t{4} << 20;
constexpr std::size_t kMostChanges = 64;
constexpr std::size_t kLongestEnding = 5;
constexpr std::string_view kParting = " - ";
constexpr std::string_view kNameless = "Radio";

/// "artist - title", as stations tell it; else all is title.
std::pair<std::string, std::string> artistAndTitle(const std::string& song) {
    const std::size_t parting = song.find(kParting);
    if (parting == std::string::npos || parting == 0) {
        return {{}, song};
    }
    return {song.substr(0, parting), song.substr(parting + kParting.size())};
}

/// Nothing else can be written there, either.
bool endsAll(std::error_code failure) {
    return failure == std::errc::no_space_on_device || failure == std::errc::read_only_file_system;
}

std::string nameOf(const std::string& title, const SavingWays& ways) {
    for (const std::string& text : {title, ways.station}) {
        if (std::string name = base::cleanFileName(text, kLongestEnding); !name.empty()) {
            return name;
        }
    }
    return std::string(kNameless);
}

} // namespace

bool SongSaver::saves(const base::Comfort& comfort) const {
    const UnitRule* const rule = units_.rule();
    return rule == nullptr || (rule->isMpeg() ? comfort.savesPlainSongs : comfort.savesAnyFormat);
}

SongSaver::Answer SongSaver::take(Bytes block, Turn turn) {
    Answer answer;
    for (TitleChange& change : turn.titles) {
        if (changes_.size() >= kMostChanges) {
            changes_.pop_front();
        }
        changes_.push_back(std::move(change));
    }
    units_.feed(block, [&](const SoundUnit& unit) {
        if (unit.head) {
            takeHead(unit);
        } else {
            takeUnit(unit, turn, answer);
        }
    });
    flush(answer);
    if (!turn.recording || block.empty()) {
        file_.close();
        cut_ = true;
    }
    if (!turn.recording) {
        interrupted_ = {};
        song_ = {};
    }
    if (turn.recording && turn.ways.comfort.savesAnyFormat && units_.isUnknown() &&
        !std::exchange(told_, true)) {
        answer = {.failure = std::make_error_code(std::errc::not_supported), .ends = true};
    }
    return answer;
}

void SongSaver::takeHead(const SoundUnit& unit) {
    if (unit.fresh) {
        head_.clear();
        headOver_ = false;
    }
    if (head_.size() + unit.bytes.size() <= kMostHead) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters
        head_.append(reinterpret_cast<const char*>(unit.bytes.data()), unit.bytes.size());
    }
}

/// What was told while a unit came in counts from the next one on. A head that tells its title is
/// right: what comes beside it was found in it by who decodes, when that is heard.
void SongSaver::applyTitles(const SoundUnit& unit) {
    while (!changes_.empty() && changes_.front().after <= unit.begin) {
        std::string title = std::move(changes_.front().title);
        changes_.pop_front();
        if (headTells_) {
            continue;
        }
        cut_ = cut_ || title != title_.value_or("");
        title_ = std::move(title);
    }
    if (!units_.rule()->hasHead() || std::exchange(headOver_, true)) {
        return;
    }
    cut_ = true;
    std::string title = units_.rule()->titleOf(head_);
    headTells_ = !title.empty();
    if (headTells_) {
        title_ = std::move(title);
    }
}

void SongSaver::takeUnit(const SoundUnit& unit, const Turn& turn, Answer& answer) {
    const UnitRule& rule = *units_.rule();
    if (rule.hasHead() && head_.empty()) {
        return; // no file can begin here
    }
    applyTitles(unit);
    if (!turn.recording || !saves(turn.ways.comfort) ||
        (!title_ && !turn.ways.comfort.savesUntitled)) {
        cut_ = true;
        return;
    }
    cut_ = cut_ || ending_ != rule.ending();
    if (cut_) {
        flush(answer);
        file_.close();
        begin(turn, answer);
    }
    if (file_.isOpen()) {
        ready_.insert(ready_.end(), unit.bytes.begin(), unit.bytes.end());
    }
}

void SongSaver::begin(const Turn& turn, Answer& answer) {
    const base::Comfort& comfort = turn.ways.comfort;
    const UnitRule& rule = *units_.rule();
    const std::string song = title_.value_or("");
    const auto [artist, title] = artistAndTitle(song);
    std::string head = rule.hasHead() ? rule.headOf(head_, artist, title) : std::string();
    tail_.clear();
    if (comfort.tagsSavedSongs && !rule.hasHead()) {
        const tags::FreshTags tags{.title = title.empty() ? turn.ways.station : title,
                                   .artist = artist,
                                   .album = turn.ways.station};
        head = tags::freshHead(tags);
        tail_ = tags::freshTail(tags);
    }
    ending_ = rule.ending();
    std::error_code failure = std::make_error_code(std::errc::no_such_file_or_directory);
    const OpenSong before = std::exchange(interrupted_, {});
    if (!before.path.empty() && before.title == song) {
        failure = file_.goOn(before.path, tail_);
    }
    if (failure && !limit_.mayOpen()) {
        return; // the next unit may
    }
    if (failure) {
        failure = file_.begin(
            turn.ways.folder, nameOf(song, turn.ways), ending_,
            comfort.numbersSavedSongs ? SavedSong::Names::numbered : SavedSong::Names::one, head);
    }
    cut_ = false;
    song_ = failure ? OpenSong{} : OpenSong{file_.path(), song};
    if (failure) {
        // The song has no file; the next one may have.
        answer = {.failure = failure, .ends = endsAll(failure)};
    }
}

void SongSaver::flush(Answer& answer) {
    if (ready_.empty()) {
        return;
    }
    const std::error_code failure = file_.write(ready_, tail_);
    ready_.clear();
    if (failure) {
        file_.close();
        answer = {.failure = failure, .ends = true};
    }
}

} // namespace tovik::radio
