// SPDX-License-Identifier: GPL-3.0-or-later
// The switches by which a user chooses comfort: which there are, what each says, and which members
// of `Comfort` it turns. Settings, preferences, words, tests and docs/oddities.md go by this table.
// Any thread.
#pragma once

#include "base/Comfort.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace tovik::base {

/// The key of the master: "1" is comfort, absent or anything else is none.
inline constexpr std::string_view kComfortKey = "CMF";

/// One group of `Comfort`. Its key overrules the master with "0" or "1"; absent, or with another
/// text, it follows the master.
struct ComfortSwitch {
    std::string_view key;
    std::string_view words;    ///< what it changes, in English: one line
    std::string_view former{}; ///< the key of old, which counts while there is none of the new name
};

/// The switches by their numbers, from 1.
inline constexpr auto kComfortSwitches = std::to_array<ComfortSwitch>({
    {"CMF01", "Play goes on after a pause; a start goes on where the last session ended"},
    {"CMF02", "The balance outlives new tracks and changes of the volume", "KEEPPAN"},
    {"CMF03", "Tracks play to their last sample, and the next one follows without a gap"},
    {"CMF04", "A crossfade begins before the end, fades both tracks and spares albums"},
    {"CMF05", "Shuffle plays each row once before any comes again; Previous goes back", "PICKROW"},
    {"CMF06", "Rows that cannot be played are marked and skipped"},
    {"CMF07", "The equalizer is flat while it is off, and stays off; gains keep fractions"},
    {"CMF08", "Only unbroken silence is skipped, from the level that is set"},
    {"CMF09", "Playlists are read and saved as other players do it"},
    {"CMF10", "Files are added once and in order; adding and removing can be undone"},
    {"CMF11", "Each double click starts its row; a click alone does not change what follows"},
    {"CMF12", "Title, artist, length and cover are shown for files of all kinds"},
    {"CMF13", "Saving tags keeps whatever was not changed"},
    {"CMF14", "Settings that are missing take the shipped values; a damaged file is kept"},
    {"CMF15", "Words that a language lacks are the English ones"},
    {"CMF16", "The search takes words in any order and without accents"},
    {"CMF17", "Ripping ends with a cancel, fills in all tags and overwrites nothing"},
    {"CMF18", "Recordings of the radio are cut and named by songs; stations are kept at once"},
    {"CMF19", "The spectrum has one scale of decibels and bars to the right end"},
    {"CMF20", "Pictures that a skin lacks are the built-in ones"},
    {"CMF21", "Times have one form everywhere, with hours"},
    {"CMF22", "Windows minimise, keep their places, and leave hiding to the tray"},
});

/// Which switch turns a member.
struct ComfortRow {
    bool Comfort::*member;
    std::size_t number; ///< of the switch, from 1
};

/// Every member once.
inline constexpr auto kComfortRows = std::to_array<ComfortRow>({
    {&Comfort::goesOnAfterPause, 1},
    {&Comfort::resumesSession, 1},

    {&Comfort::keepsBalance, 2},
    {&Comfort::tellsBalanceOfStart, 2},

    {&Comfort::endsExactly, 3},
    {&Comfort::watchesCdTracks, 3},
    {&Comfort::endsModules, 3},
    {&Comfort::keepsOutputLevel, 3},
    {&Comfort::clampsSkips, 3},

    {&Comfort::fadesIn, 4},
    {&Comfort::crossesBeforeEnd, 4},
    {&Comfort::keepsTitleOfOldTrack, 4},
    {&Comfort::shortensManualNext, 4},

    {&Comfort::alwaysPicksRow, 5},
    {&Comfort::remembersPicks, 5},
    {&Comfort::restartsOnlyTrack, 5},
    {&Comfort::stopsAtListEnd, 5},

    {&Comfort::tellsUnplayable, 6},
    {&Comfort::skipsUnplayable, 6},

    {&Comfort::switchesOffFlat, 7},
    {&Comfort::staysOffForTracks, 7},
    {&Comfort::staysOffForSliders, 7},
    {&Comfort::countsOneDecibel, 7},
    {&Comfort::keepsFractions, 7},
    {&Comfort::limitsGains, 7},
    {&Comfort::bendsBothTracks, 7},
    {&Comfort::resetsMaster, 7},

    {&Comfort::takesSilenceShareAsIs, 8},
    {&Comfort::countsUnbrokenSilence, 8},
    {&Comfort::readsThreshold, 8},

    {&Comfort::readsOnAfterStop, 9},
    {&Comfort::resetsTitles, 9},
    {&Comfort::resolvesNames, 9},
    {&Comfort::takesBadLengths, 9},
    {&Comfort::forgetsLengths, 9},
    {&Comfort::readsAllOfPls, 9},
    {&Comfort::namesUntitled, 9},
    {&Comfort::opensMoreLists, 9},
    {&Comfort::loadsChosenList, 9},
    {&Comfort::asksBeforeLoading, 9},
    {&Comfort::savesAnyEnding, 9},
    {&Comfort::savesRelativeNames, 9},
    {&Comfort::escapesPage, 9},

    {&Comfort::keepsListOfFileStart, 10},
    {&Comfort::addsFilesOnce, 10},
    {&Comfort::asksForLocation, 10},
    {&Comfort::clearsOnlyList, 10},
    {&Comfort::findsLargeFiles, 10},
    {&Comfort::opensDroppedLists, 10},
    {&Comfort::deletesMarkedRows, 10},
    {&Comfort::ordersByFolder, 10},
    {&Comfort::scansDroppedFolders, 10},
    {&Comfort::tellsEmptyFolder, 10},
    {&Comfort::selectsNeighbour, 10},
    {&Comfort::keepsRemovedRows, 10},
    {&Comfort::addsHandedOver, 10},
    {&Comfort::keepsListForMissing, 10},
    {&Comfort::takesAnyHandOver, 10},
    {&Comfort::obeysEarlySwitches, 10},

    {&Comfort::restartsEachTime, 11},
    {&Comfort::goesOnFromSoundingRow, 11},
    {&Comfort::keepsLookOnEntry, 11},
    {&Comfort::clearsLookAtStop, 11},
    {&Comfort::keepsPauseAtEnd, 11},

    {&Comfort::writesFirstLength, 12},
    {&Comfort::tellsOwnSound, 12},
    {&Comfort::findsAllHeaders, 12},
    {&Comfort::readsEveryFormat, 12},
    {&Comfort::readsListAhead, 12},
    {&Comfort::tellsWholeTexts, 12},

    {&Comfort::looksForTagFirst, 13},
    {&Comfort::readsSevenBits, 13},
    {&Comfort::decodesFrames, 13},
    {&Comfort::readsWholeGenre, 13},
    {&Comfort::savesWithoutAlarm, 13},
    {&Comfort::showsOwnGenre, 13},
    {&Comfort::showsLastGenre, 13},
    {&Comfort::enablesAlbum, 13},
    {&Comfort::leavesUntickedTag, 13},
    {&Comfort::editsEveryFormat, 13},
    {&Comfort::cutsRemovedTag, 13},
    {&Comfort::savesOnlyChanges, 13},

    {&Comfort::startsWithoutSetting, 14},
    {&Comfort::keepsAnyBytes, 14},
    {&Comfort::writesOnlyChanges, 14},
    {&Comfort::keepsDamagedAside, 14},
    {&Comfort::goesOnAfterStep, 14},
    {&Comfort::quotesLog, 14},
    {&Comfort::cutsLog, 14},
    {&Comfort::tellsTimersInLine, 14},

    {&Comfort::keepsMissingWords, 15},

    {&Comfort::keepsMeaningOfCase, 16},
    {&Comfort::namesSoundingTrack, 16},
    {&Comfort::findsWordsInAnyOrder, 16},
    {&Comfort::keepsRowOfHit, 16},

    {&Comfort::keepsRipList, 17},
    {&Comfort::leavesNumberToRow, 17},
    {&Comfort::skipsStrayCdText, 17},
    {&Comfort::encodesSelectedDrive, 17},
    {&Comfort::ripsRefusedTrack, 17},
    {&Comfort::endsJobWithCancel, 17},
    {&Comfort::fillsBothTags, 17},
    {&Comfort::keepsWmaInAlbum, 17},
    {&Comfort::numbersEqualNames, 17},
    {&Comfort::namesChosenDisc, 17},
    {&Comfort::readsDiscKeys, 17},
    {&Comfort::keepsTypedNames, 17},
    {&Comfort::takesWholeGenre, 17},
    {&Comfort::removesPartFiles, 17},
    {&Comfort::cleansRipNames, 17},
    {&Comfort::keepsEarlierRips, 17},
    {&Comfort::playsWhileRipping, 17},

    {&Comfort::readsTitlesWhole, 18},
    {&Comfort::savesPlainSongs, 18},
    {&Comfort::savesAnyFormat, 18},
    {&Comfort::keepsStationsAtOnce, 18},
    {&Comfort::keepsLongAddresses, 18},
    {&Comfort::showsSavingAsItIs, 18},
    {&Comfort::savesToRadioFolder, 18},
    {&Comfort::numbersSavedSongs, 18},
    {&Comfort::tagsSavedSongs, 18},
    {&Comfort::savesUntitled, 18},
    {&Comfort::tellsDeadStations, 18},

    {&Comfort::spreadsBands, 19},
    {&Comfort::levelsInDecibels, 19},
    {&Comfort::fallsByTime, 19},

    {&Comfort::completesSkin, 20},
    {&Comfort::tellsForeignSkin, 20},
    {&Comfort::startsWithoutPicture, 20},
    {&Comfort::leavesUnknownSignsBlank, 20},

    {&Comfort::showsOneFormOfTime, 21},
    {&Comfort::showsHours, 21},
    {&Comfort::clockShowsHours, 21},

    {&Comfort::titlesFileStart, 22},
    {&Comfort::hidesLampsOverList, 22},
    {&Comfort::pressesTabAtOnce, 22},
    {&Comfort::hidesStationsAtOnce, 22},
    {&Comfort::aimsAtPointer, 22},
    {&Comfort::minimisesToTaskBar, 22},
    {&Comfort::hidesByTray, 22},
    {&Comfort::keepsPlaces, 22},
    {&Comfort::showsSmallTitle, 22},
    {&Comfort::keepsCurrentTab, 22},
});

namespace detail {

constexpr bool hasEachMemberOnce() {
    for (std::size_t i = 0; i < kComfortRows.size(); ++i) {
        const auto isSame = [member = kComfortRows.at(i).member](const ComfortRow& row) {
            return row.member == member;
        };
        if (kComfortRows.at(i).number < 1 || kComfortRows.at(i).number > kComfortSwitches.size() ||
            std::ranges::count_if(kComfortRows, isSame) != 1) {
            return false;
        }
    }
    return kComfortRows.size() == sizeof(Comfort) / sizeof(bool);
}

static_assert(hasEachMemberOnce());

} // namespace detail

/// What a user has chosen.
struct ComfortChoices {
    bool master = false;
    std::array<std::optional<bool>, kComfortSwitches.size()> own{}; ///< none: as the master

    friend bool operator==(const ComfortChoices&, const ComfortChoices&) = default;

    /// Whether the switch of that number, from 1, is on.
    [[nodiscard]] constexpr bool on(std::size_t number) const {
        return own.at(number - 1).value_or(master);
    }

    /// Turns the switch of that number. One that is as the master goes with it from then on.
    constexpr void turn(std::size_t number, bool wanted) {
        own.at(number - 1) = wanted == master ? std::nullopt : std::optional(wanted);
    }

    /// The record that the player looks at.
    [[nodiscard]] constexpr Comfort record() const {
        Comfort comfort;
        for (const ComfortRow& row : kComfortRows) {
            comfort.*row.member = on(row.number);
        }
        return comfort;
    }
};

} // namespace tovik::base
