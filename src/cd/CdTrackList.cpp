// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/CdTrackList.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/TimeText.h"
#include "cd/CdTexts.h"
#include "config/Errors.h"
#include "config/ErrorTexts.h"

namespace tovik::cd {

namespace {

constexpr std::int64_t kBytesPerSecond = 176'400;
constexpr std::int32_t kHour = 3600;
constexpr std::int32_t kTwoDigits = 10;

constexpr const char* kNoCount = "Error retreiving number of tracks."; // as it is spelled

std::string fileOf(const std::string& letter, std::int32_t number) {
    return letter + ":\\Track" + (number < kTwoDigits ? "0" : "") + std::to_string(number) + ".cda";
}

std::string plainName(std::int32_t number) {
    return "Track " + std::to_string(number);
}

/// A deliberate oddity: the number, which the row has, too, stands in front of it, unless
/// `Comfort::leavesNumberToRow` says otherwise.
std::string titleOf(const CdTexts& texts, std::int32_t number, const base::Comfort& comfort) {
    if (!comfort.leavesNumberToRow) {
        return std::to_string(number) + texts.title(number) + " / " + texts.performer(number);
    }
    const std::string& told = texts.title(number);
    const std::string& singer = texts.performer(number);
    const std::string_view title = base::trimmed(told);
    const std::string_view performer = base::trimmed(singer);
    std::string whole = title.empty() ? plainName(number) : std::string(title);
    return performer.empty() ? whole : whole.append(" / ").append(performer);
}

void addRow(playlist::stdSS& target, const std::string& letter, std::int32_t track,
            const std::string& title, std::int64_t bytes) {
    const std::string file = fileOf(letter, track + 1);
    const std::int32_t seconds = base::toInt32(static_cast<double>(bytes) / kBytesPerSecond);
    target.AddItem(file, file, title, Seconds2HMS(seconds), seconds);
}

} // namespace

std::string Seconds2HMS(std::int32_t seconds) {
    return base::shortTime(seconds);
}

std::string CdTrackList::currentLetter() const {
    const std::string letters = needs_.CdDrives();
    std::string_view rest = letters;
    for (std::int32_t drive = 0; drive < needs_.state.CDDrive; ++drive) {
        const std::size_t bar = rest.find('|');
        rest.remove_prefix(bar == std::string_view::npos ? rest.size() : bar + 1);
    }
    rest = rest.substr(0, rest.find('|'));
    if (rest.empty()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return std::string(rest);
}

std::int64_t CdTrackList::lengthOf(std::int32_t track) const {
    return needs_.core.sound.BASS_CD_GetTrackLength(
        static_cast<std::uint32_t>(needs_.state.CDDrive), static_cast<std::uint32_t>(track));
}

void CdTrackList::LoadTrackList(playlist::stdSS& target, bool addFlag) {
    const base::Comfort& comfort = needs_.core.state.comfort;
    if (&target == &needs_.lstTracks || !comfort.keepsRipList) {
        needs_.lstTracks.Clear();
    }
    sound::SoundLibrary& sound = needs_.core.sound;
    const auto drive = static_cast<std::uint32_t>(needs_.state.CDDrive);
    if (!sound.BASS_CD_IsReady(drive)) {
        return;
    }
    const std::int32_t count = sound.BASS_CD_GetTracks(drive);
    if (count < 0) {
        needs_.dialogs.showMessage({.text = kNoCount, .title = host::kProgramTitle});
        return;
    }
    if (const auto text = sound.BASS_CD_GetID(drive, sound::BASS_CDID_TEXT)) {
        LoadTrackListFromCDText(*text, count, target);
        return;
    }
    needs_.form.tell({}, {});
    const std::string letter = currentLetter();
    for (std::int32_t track = 0; track < count; ++track) {
        const std::string name = plainName(track + 1);
        addRow(target, letter, track, name, lengthOf(track));
        if (addFlag) {
            List1_.push_back(name);
        }
    }
}

void CdTrackList::LoadTrackListFromCDText(std::string_view text, std::int32_t count,
                                          playlist::stdSS& target) {
    try {
        loadFromText(text, count, target);
    } catch (...) {
        config::ShowRoutineError(needs_.dialogs, "LoadTrackListFromCDText", "Player",
                                 config::currentError());
    }
}

void CdTrackList::loadFromText(std::string_view text, std::int32_t count, playlist::stdSS& target) {
    const base::Comfort& comfort = needs_.core.state.comfort;
    const CdTexts texts(text, count, comfort.skipsStrayCdText);
    const std::string letter = currentLetter();
    needs_.form.tell(texts.title(0), texts.performer(0));
    for (std::int32_t track = 0; track < count; ++track) {
        const std::int64_t bytes = lengthOf(track);
        if (bytes <= 0) {
            continue;
        }
        addRow(target, letter, track, titleOf(texts, track + 1, comfort), bytes);
    }
}

} // namespace tovik::cd
