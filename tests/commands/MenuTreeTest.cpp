// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/MenuTree.h"

#include <gmock/gmock.h>

#include <map>
#include <set>
#include <sstream>

namespace tovik::commands {
namespace {

/// The tree as words, as a user sees it.
std::string written() {
    std::ostringstream text;
    for (const MenuEntry& entry : menuTree()) {
        text << std::string(static_cast<std::size_t>(entry.depth) * 2, ' ') << entry.key() << ' '
             << (entry.separator ? "-" : std::string(entry.words())) << '\n';
    }
    return text.str();
}

TEST(MenuTree, isWhatAUserSees) {
    EXPECT_EQ(written(), R"(mnuMain Main
  mnuAbout About
  mnusep1 -
  mnuPlay Play
    mnuFile File
    mnuFolder Folder
    mnublank1 -
    mnuDevice1 Audio CD
    mnuDevice2 Audio CD
    mnuDevice3 Audio CD
    mnuDevice4 Audio CD
    mnuDevice5 Audio CD
    mnublank2 -
    mnuLocation Location
  mnusep_1 -
  mnuMainWin Main
  mnuEQWin EQ
  mnuPlaylistWin Playlist
  mnuRipWin Audio CD Ripper
  mnuIRTWin Internet Radio Tuner
  mnuPreWin Preferences
  mnusep_2 -
  mnuPlayback Playback
    mnuplbitem1(1) Previous
    mnuplbitem1(2) Play
    mnuplbitem1(3) Pause
    mnuplbitem1(4) Stop
    mnuplbitem1(5) Next
    mnuplbitem1(6) -
    mnuplbitem1(7) Stop with fadeout
    mnuplbitem1(8) Stop after current
    mnuplbitem1(9) Back 5 seconds
    mnuplbitem1(10) Fwd  5 seconds
    mnuplbitem1(11) Start of list
    mnuplbitem1(12) End of list
    mnuplbitem1(13) 10 tracks back
    mnuplbitem1(14) 10 tracks fwd
    mnuplbitem1(15) -
    mnuplbitem1(16) Jump to time
    mnuplbitem1(17) Jump to track
    mnuplbitem1(18) Music search
  mnuOptions Options
    mnuTop Always On Top
    mnusep2 -
    mnuElapsed Time Elapsed
    mnuRemaining Time Remaining
    mnusep3 -
    mnuLoop Repeat
    mnuShuffle Shuffle
    mnucrossfade Crossfade
    mnuSld Silence Detection
  mnusep_3 -
  mnuExit Exit
mnuRip Rip
  mnuRipSet Ripper Settings
  empty2 -
  mnuRipAll Rip All Tracks
  mnuRipSel Rip Selected Track(s)
mnuPreset Preset
  mnuldpreset Load
  empty -
  mnuldpreset2 Load from file
  mnusvpreset Save to file
vis Vis
  sp(0) None
  sp(1) -
  sp(2) Spectrum analyzer(internal)
mnupls playlist
  mnuplsPlay Play
  mnuplsDel Delete
  mnuplsUndo Undo
  mnuplstre -
  mnuplsinfo View file info
)");
}

TEST(MenuTree, everyEntryRunsACommandOpensSomethingOrIsALine) {
    const auto tree = menuTree();
    std::set<std::string> keys;
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const MenuEntry& entry = tree[i];
        const bool opens = i + 1 < tree.size() && tree[i + 1].depth > entry.depth;
        EXPECT_EQ((entry.command != CommandId::none) + opens + entry.separator, 1) << entry.key();
        EXPECT_TRUE(keys.insert(entry.key()).second) << entry.key();
    }
}

/// A key that a language table names for a command must be that of the entry that runs it.
TEST(MenuTree, entriesOfACommandAreNamedByTheItemOfTheLanguageThatNamesTheCommand) {
    std::map<std::pair<std::string, int>, LanguageItem> items;
    for (const config::LanguageRow& row : config::languageRows()) {
        if (row.window == config::TextWindow::frmTSR) {
            for (int i = 0; i < row.count; ++i) {
                items[{std::string(row.element), row.index + i}] = {row.section, row.item + i};
            }
        }
    }
    int compared = 0;
    for (const MenuEntry& entry : menuTree()) {
        if (entry.command == CommandId::none || !commandOf(entry.command).language) {
            continue;
        }
        const auto found = items.find({std::string(entry.name), entry.index.value_or(0)});
        ASSERT_NE(found, items.end()) << entry.key();
        EXPECT_EQ(found->second, commandOf(entry.command).language) << entry.key();
        ++compared;
    }
    EXPECT_EQ(compared, 46);
}

TEST(MenuTree, imagesStandBesideTheirEntries) {
    std::string images;
    for (const MenuEntry& entry : menuTree()) {
        if (!entry.image.empty()) {
            images += entry.key() + ":" + std::string(entry.image) + " ";
        }
    }
    EXPECT_EQ(images, "mnuAbout:help mnuPlay:play mnuFile:ViewOpen mnuFolder:Folder "
                      "mnuDevice1:cdaudio mnuDevice2:cdaudio mnuDevice3:cdaudio "
                      "mnuDevice4:cdaudio mnuDevice5:cdaudio mnuLocation:location mnuMainWin:main "
                      "mnuEQWin:eq mnuPlaylistWin:Playlist mnuRipWin:Rip mnuIRTWin:radio "
                      "mnuPreWin:Pre mnuPlayback:playback mnuOptions:options mnuExit:delete ");
}

} // namespace
} // namespace tovik::commands
