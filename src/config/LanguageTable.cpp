// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/LanguageTable.h"

#include "config/LanguageRows.h"

#include <algorithm>
#include <array>

namespace tovik::config {

namespace {

using namespace rows;

constexpr auto kRows = std::to_array<Row>({
    put(S::MainMenu, 0, "mnuAbout"),
    put(S::MainMenu, 1, "mnuPlay"),
    put(S::MainMenu, 2, "mnuFile"),
    put(S::MainMenu, 3, "mnuFolder"),
    put(S::MainMenu, 4, "mnuLocation"),
    put(S::MainMenu, 5, "mnuMainWin"),
    tab(5, "mainbt"),
    put(S::MainMenu, 6, "mnuEQWin"),
    tab(6, "eqbt"),
    tab(6, "EQ_off"),
    put(S::MainMenu, 7, "mnuPlaylistWin"),
    tab(7, "plbt"),
    name(S::MainMenu, 7, "stdSS"),
    put(S::MainMenu, 8, "mnuRipWin"),
    tab(8, "ripbt"),
    put(S::MainMenu, 9, "mnuIRTWin"),
    tab(9, "irtbt"),
    put(S::MainMenu, 10, "mnuPreWin"),
    tab(10, "prebt"),
    put(S::MainMenu, 11, "mnuOptions"),
    put(S::MainMenu, 12, "mnuTop"),
    put(S::MainMenu, 13, "mnuElapsed"),
    put(S::MainMenu, 14, "mnuRemaining"),
    put(S::MainMenu, 15, "mnuLoop"),
    put(S::MainMenu, 16, "mnuShuffle"),
    put(S::MainMenu, 17, "mnucrossfade"),
    put(S::MainMenu, 18, "mnuSld"),
    put(S::MainMenu, 19, "mnuExit"),
    put(S::MainMenu, 20, "mnuPlayback"),
    run(S::MainMenu, 21, "mnuplbitem1", 1, 5),
    run(S::MainMenu, 26, "mnuplbitem1", 7, 8),
    inMain(S::MainMenu, 27, "stopNote", K::Caption),
    run(S::MainMenu, 34, "mnuplbitem1", 16, 3),

    run(S::VisMenu, 0, "sp", 0),
    run(S::VisMenu, 1, "sp", 2),

    put(S::PlMenu, 0, "mnuplsPlay"),
    put(S::PlMenu, 1, "mnuplsDel"),
    put(S::PlMenu, 2, "mnuplsinfo"),

    put(S::PresetMenu, 0, "mnuldpreset"),
    put(S::PresetMenu, 1, "mnuldpreset2"),
    put(S::PresetMenu, 2, "mnusvpreset"),

    put(S::RipMenu, 0, "mnuRipSet"),
    put(S::RipMenu, 1, "mnuRipAll"),
    put(S::RipMenu, 2, "mnuRipSel"),

    run(S::PlayerWin, 0, "lbltag", 0, 5),
    name(S::PlayerWin, 0, "lblinfo", 0, 5),
    run(S::PlayerWin, 5, "lblPos", 3),
    run(S::PlayerWin, 6, "lblPos", 0),
    tip(S::PlayerWin, 6, "posbar"),
    tip(S::PlayerWin, 6, "track"),
    name(S::PlayerWin, 6, "posbar"),
    run(S::PlayerWin, 7, "lblPos", 4),
    tip(S::PlayerWin, 7, "qpl_but"),
    name(S::PlayerWin, 7, "List1"),
    run(S::PlayerWin, 8, "lblPos", 1, 2),
    tip(S::PlayerWin, 8, "volbar"),
    tip(S::PlayerWin, 8, "volbarIMG"),
    name(S::PlayerWin, 8, "volbar"),
    name(S::PlayerWin, 8, "shwchange", 0, 2),
    tip(S::PlayerWin, 9, "balbar", kEveryElement),
    name(S::PlayerWin, 9, "balbar"),
    tip(S::PlayerWin, 10, "Picture1"),
    tip(S::PlayerWin, 11, "backupIMG"),
    tip(S::PlayerWin, 12, "playup"),
    tip(S::PlayerWin, 13, "pauseup"),
    tip(S::PlayerWin, 14, "stopup"),
    tip(S::PlayerWin, 15, "nextup"),
    tip(S::PlayerWin, 16, "fileup"),
    tip(S::PlayerWin, 17, "minon"),
    tip(S::PlayerWin, 18, "closeup"),
    tip(S::PlayerWin, 19, "Label2"),
    tip(S::PlayerWin, 20, "ShuffleBT"),
    name(S::PlayerWin, 20, "Shuffle"),
    tip(S::PlayerWin, 21, "LoopBT"),
    name(S::PlayerWin, 21, "loopImg"),
    tip(S::PlayerWin, 22, "CfdBT"),
    name(S::PlayerWin, 22, "CFD"),
    tip(S::PlayerWin, 23, "sldBT"),
    name(S::PlayerWin, 23, "Sld"),
    tip(S::PlayerWin, 24, "EQ_on"),
    tip(S::PlayerWin, 25, "presetbt"),
    tip(S::PlayerWin, 26, "resetbt"),
    tip(S::PlayerWin, 27, "addfileIMG"),
    tip(S::PlayerWin, 28, "adddirIMG"),
    tip(S::PlayerWin, 29, "addlocIMG"),
    tip(S::PlayerWin, 30, "delIMG"),
    tip(S::PlayerWin, 31, "clrIMG"),
    tip(S::PlayerWin, 32, "loadImg"),
    tip(S::PlayerWin, 33, "SaveImg"),
    tip(S::PlayerWin, 34, "ripperbt"),
    tip(S::PlayerWin, 35, "Image1", 0, 5),
    tip(S::PlayerWin, 40, "timed", kEveryElement),
    put(S::PlayerWin, 41, "Label3"),
    run(S::PlayerWin, 42, "Label4", 0, 9),
    put(S::PlayerWin, 51, "slDRV"),
    tip(S::PlayerWin, 51, "cmbCDDrives"),
    name(S::PlayerWin, 51, "cmbCDDrives"),
    put(S::PlayerWin, 52, "musicSearchTxt", K::Text),
    tip(S::PlayerWin, 52, "musicSearchTxt"),
    name(S::PlayerWin, 52, "musicSearchTxt"),
    tip(S::PlayerWin, 52, "srchIMG"),
    put(S::PlayerWin, 53, "PublicText", K::Kept),

    title(S::frmPreferences),
    put(S::frmPreferences, 0, "TabStrip1", K::Name),
    put(S::frmPreferences, 1, "TabStrip1", K::Tab, 0, 7),
    put(S::frmPreferences, 2, "List1", K::Name),
    put(S::frmPreferences, 6, "VersionHist", K::Name),
    put(S::frmPreferences, 7, "Shortcuts", K::Name),
    put(S::frmPreferences, 8, "Command1"),
    put(S::frmPreferences, 9, "Command7"),
    put(S::frmPreferences, 10, "Command5"),
    put(S::frmPreferences, 11, "Frame6"),
    put(S::frmPreferences, 12, "Frame2"),
    put(S::frmPreferences, 13, "Frame7"),
    put(S::frmPreferences, 14, "Frame9"),
    put(S::frmPreferences, 15, "Frame11"),
    put(S::frmPreferences, 15, "Combo3", K::Name),
    put(S::frmPreferences, 16, "Frame12"),
    put(S::frmPreferences, 17, "Check13"),
    put(S::frmPreferences, 18, "Check9"),
    put(S::frmPreferences, 19, "Check4"),
    put(S::frmPreferences, 20, "Check5"),
    put(S::frmPreferences, 21, "Check3"),
    put(S::frmPreferences, 22, "Check2"),
    put(S::frmPreferences, 23, "Check15"),
    put(S::frmPreferences, 24, "Check1"),
    run(S::frmPreferences, 25, "Command2", 0, 3),
    put(S::frmPreferences, 28, "Check6"),
    put(S::frmPreferences, 29, "Check7"),
    put(S::frmPreferences, 30, "Label4"),
    put(S::frmPreferences, 31, "Check8"),
    put(S::frmPreferences, 32, "Label5"),
    put(S::frmPreferences, 33, "Check10"),
    put(S::frmPreferences, 34, "Check11"),
    run(S::frmPreferences, 35, "Label6", 0, 2),
    run(S::frmPreferences, 35, "Label6", 2),
    put(S::frmPreferences, 37, "Label8"),
    put(S::frmPreferences, 38, "Label9"),
    put(S::frmPreferences, 39, "Frame3"),
    put(S::frmPreferences, 39, "Combo2", K::Name),
    put(S::frmPreferences, 40, "Combo2", K::ListEntry, 0, 5),
    put(S::frmPreferences, 45, "Frame5"),
    put(S::frmPreferences, 46, "Check12"),
    put(S::frmPreferences, 47, "Check14"),
    put(S::frmPreferences, 48, "Frame4"),
    put(S::frmPreferences, 49, "Label13"),
    put(S::frmPreferences, 49, "Label3", K::Name),
    put(S::frmPreferences, 50, "Frame10"),
    put(S::frmPreferences, 51, "Label12"),
    put(S::frmPreferences, 51, "Label1", K::Name),
    put(S::frmPreferences, 52, "Label2"),
    put(S::frmPreferences, 52, "List4", K::Name),
    put(S::frmPreferences, 53, "List4", K::ListEntry, 0),
    put(S::frmPreferences, 54, "Frame13"),
    put(S::frmPreferences, 54, "Slider4", K::Name),
    run(S::frmPreferences, 55, "Label11", 0, 2),
    put(S::frmPreferences, 57, "Label10"),
    put(S::frmPreferences, 58, "List4", K::ListEntry, 1),
    put(S::frmPreferences, 59, "Check17"),

    title(S::FrmLoadPreset),
    run(S::FrmLoadPreset, 1, "Command1", 0, 3),

    title(S::frmAddDir),
    put(S::frmAddDir, 1, "Check1"),
    put(S::frmAddDir, 2, "Command1"),
    put(S::frmAddDir, 3, "Command2"),

    title(S::frmSearchSong),
    put(S::frmSearchSong, 1, "Frame1"),
    put(S::frmSearchSong, 2, "PublicText", K::Kept),
    put(S::frmSearchSong, 3, "Command1"),
    run(S::frmSearchSong, 4, "Check1", 0, 2),

    title(S::frmAddStation),
    put(S::frmAddStation, 1, "Label1"),
    run(S::frmAddStation, 2, "Command1", 0, 2),

    title(S::frmCdInfo),
    put(S::frmCdInfo, 1, "Frame1"),
    run(S::frmCdInfo, 2, "Frame2", 0),
    put(S::frmCdInfo, 3, "Frame3"),
    run(S::frmCdInfo, 4, "Frame2", 1),
    put(S::frmCdInfo, 5, "Frame4"),
    run(S::frmCdInfo, 6, "Command1", 0, 3),
    run(S::frmCdInfo, 9, "Command1", 4),

    title(S::Update),
    run(S::Update, 1, "Label1", 0, 2),
    run(S::Update, 3, "Command1", 0, 2),

    title(S::frmOutPutPath),
    run(S::frmOutPutPath, 1, "Command1", 0, 2),

    title(S::frmAbout),
    put(S::frmAbout, 1, "Label2"),
    run(S::frmAbout, 2, "Command1", 1),
    run(S::frmAbout, 3, "Command1", 0),
    put(S::frmAbout, 4, "Label4"),

    title(S::frmMp3Tag),
    put(S::frmMp3Tag, 1, "Check1"),
    // The words beside the fields; the first seven serve the panes of both versions.
    run(S::frmMp3Tag, 2, "Label1", 0, 12),
    put(S::frmMp3Tag, 14, "Check2"),
    run(S::frmMp3Tag, 15, "Command2", 0, 2),
    // The other two tabs bear names of formats.
    put(S::frmMp3Tag, 17, "TabStrip1", K::Tab, 2),
    run(S::frmMp3Tag, 18, "Label3", 0),
    put(S::frmMp3Tag, 19, "SizeText", K::Kept),
    run(S::frmMp3Tag, 20, "Label3", 1, 7),
    put(S::frmMp3Tag, 27, "YesText", K::Kept),
    put(S::frmMp3Tag, 28, "NoText", K::Kept),
    run(S::frmMp3Tag, 29, "Label3", 8, 3),
    run(S::frmMp3Tag, 32, "Command1", 0),
    run(S::frmMp3Tag, 33, "Command1", 2),
    run(S::frmMp3Tag, 34, "Command1", 1),

    title(S::frmJump2Time),
    put(S::frmJump2Time, 1, "Frame1"),
    put(S::frmJump2Time, 2, "Label1"),
    put(S::frmJump2Time, 3, "Label2"),
    put(S::frmJump2Time, 4, "Command1"),
    put(S::frmJump2Time, 5, "Command2"),

    title(S::frmJump2Track),
    put(S::frmJump2Track, 1, "Frame1"),
    run(S::frmJump2Track, 2, "Label1", 0, 5),
    run(S::frmJump2Track, 7, "Command1", 0, 2),

    put(S::Shortcuts, 0, "Shortcuts", K::ListEntry, 0, 36),

    name(S::TovikNames, 0, "Text4"),
    name(S::TovikNames, 1, "EQ_on"),
    put(S::TovikNames, 1, "eqHeading"),
    name(S::TovikNames, 2, "qpl_but"),
    name(S::TovikNames, 3, "minmodeUP"),
    name(S::TovikNames, 4, "cancelrip"),
    name(S::TovikNames, 5, "timed", 1),
    name(S::TovikNames, 6, "songname"),
    name(S::TovikNames, 7, "mono_img"),
    name(S::TovikNames, 8, "musicinfo_img"),
    name(S::TovikNames, 9, "lstTracks"),
    name(S::TovikNames, 10, "RadioLst"),
    name(S::TovikNames, 11, "lblRDinfo"),
    name(S::TovikNames, 12, "eq_sld", 0, 11),
    inWindow(S::TovikNames, 23, W::frmTSR, "mnuMain", K::Caption),
    inWindow(S::TovikNames, 24, W::frmTSR, "mnuRip", K::Caption),
    inWindow(S::TovikNames, 25, W::frmTSR, "mnuPreset", K::Caption),
    inWindow(S::TovikNames, 26, W::frmTSR, "vis", K::Caption),
    inWindow(S::TovikNames, 27, W::frmTSR, "mnupls", K::Caption),
    inWindow(S::TovikNames, 28, W::frmTSR, "mnuDevice", K::Caption),
    name(S::TovikNames, 29, "riplbl"),
    inWindow(S::TovikNames, 30, W::frmTSR, "mnuplsUndo", K::Caption),

    put(S::TovikLists, 0, "List1"),
    put(S::TovikLists, 0, "stdSS"),
    put(S::TovikLists, 1, "lstTracks"),
    put(S::TovikLists, 2, "RadioLst"),

    put(S::TovikPreferences, 0, "Check16"),
    put(S::TovikPreferences, 1, "ShortcutHeading", K::Kept, 0, 3),
    put(S::TovikPreferences, 4, "ShortcutLabel"),
    put(S::TovikPreferences, 5, "ShortcutClear"),
    put(S::TovikPreferences, 6, "ShortcutText", K::Kept, 0, 5),
    put(S::TovikPreferences, 11, "NextStart", K::Kept),
    inWindow(S::TovikPreferences, 12, W::frmRipDir, "Text1", K::Name),
    inWindow(S::TovikPreferences, 13, W::frmRipDir, "Dir1", K::Name),
    put(S::TovikPreferences, 14, "ShortcutText", K::Kept, 5, 2),
    put(S::TovikPreferences, 16, "Check18"),
    put(S::TovikPreferences, 17, "NextTime"),

    put(S::TovikAbout, 0, "LibrariesCaption"),
    put(S::TovikAbout, 1, "Licence"),
    put(S::TovikAbout, 2, "NoUpdater", K::Kept),

    {S::TovikDiscs, 0, 1, W::frmCdNFO, "List1", 0, K::Name},
    put(S::TovikDiscs, 1, "SearchText", K::Kept, 0, 11),
    inWindow(S::TovikDiscs, 12, W::frmDiscMatch, "", K::Caption),
    inWindow(S::TovikDiscs, 13, W::frmDiscMatch, "Label1", K::Caption),
    {S::TovikDiscs, 14, 2, W::frmDiscMatch, "Command1", 0, K::Caption},

    put(S::TovikComfort, 0, "TabStrip1", K::Tab, 7),
    run(S::TovikComfort, 1, "Comfort", 0, 1 + static_cast<int>(base::kComfortSwitches.size())),
    put(S::TovikComfort, 2 + static_cast<int>(base::kComfortSwitches.size()), "FrameComfort"),
    put(S::TovikComfort, 3 + static_cast<int>(base::kComfortSwitches.size()), "ComfortOfRun"),
});

/// Sections in the order of the enumeration, rows in the order of sections and items, and each item
/// within its section.
constexpr bool wellFormed() {
    for (std::size_t i = 0; i < kSections.size(); ++i) {
        const LanguageSectionRow& section = kSections.at(i);
        const auto words = static_cast<int>(section.english.size());
        if (static_cast<std::size_t>(section.section) != i ||
            (words != 0 && words != section.items)) {
            return false;
        }
    }
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        const Row& row = kRows.at(i);
        if (row.item + row.count > kSections.at(static_cast<std::size_t>(row.section)).items) {
            return false;
        }
        if (i > 0 &&
            (row.section < kRows.at(i - 1).section ||
             (row.section == kRows.at(i - 1).section && row.item < kRows.at(i - 1).item))) {
            return false;
        }
    }
    return true;
}

static_assert(wellFormed());

} // namespace

std::span<const LanguageSectionRow, kLanguageSections> languageSections() noexcept {
    return kSections;
}

std::span<const LanguageRow> languageRows() noexcept {
    return kRows;
}

std::span<const LanguageRow> languageRowsOf(LanguageSection section) noexcept {
    const auto* const first = std::ranges::lower_bound(kRows, section, {}, &LanguageRow::section);
    const auto* const last = std::ranges::upper_bound(kRows, section, {}, &LanguageRow::section);
    return {first, last};
}

} // namespace tovik::config
