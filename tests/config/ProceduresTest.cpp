// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Procedures.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tovik::config {
namespace {

/// The words of the procedures, module by module.
const std::map<std::string, std::vector<std::string>> kWords{
    {"Player",
     {"api_msg",
      "balbar",
      "button_closeup",
      "cmbCDdrives",
      "Test!",
      "CrossFade",
      "Initialize",
      "Keydown",
      "Load",
      "MouseDown",
      "MouseMove",
      "MouseUp",
      "label2",
      "posbar_mousedown",
      "timer1",
      "timer2",
      "timer3",
      "Timer4",
      "timer5",
      "timer6",
      "timer7",
      "sldTimer",
      "playlist_play",
      "BurnBaby",
      "volbar_mousedown",
      "Next_track",
      "Last_track",
      "last_track2",
      "Crossfade_BurnBaby",
      "Autoload_Playlist",
      "UpdateEQ",
      "SetEQ",
      "Translate_EQ_Value",
      "pGetPicture",
      "kill process",
      "Seconds2HMS",
      "Switch_Win",
      "GenShuffle",
      "StopPlay",
      "playup_mouseup",
      "pauseup_mouseup",
      "list1_dragdrop"}},
    {"TSR", {"Load", "timer1", "RipAll", "RipSel", "WriteMp3Tag", "Extract2WMA"}},
    {"About",
     {"Load", "MouseDown", "MouseUp", "command1", "Click", "image1_click", "image2_click",
      "image3_click", "Label2_click", "Label3_click", "label6_click", "label7_click"}},
    {"AddStation",
     {"Load", "Command1", "ReadStationList", "WriteStationList", "Play", "DoMeta", "record"}},
    {"CDNFO",
     {"Load", "command1", "list1_click", "text2_change", "Get_Selected", "load_local_cddb"}},
    {"Title", {"keydown"}},
    {"OSD", {"Load", "timer1", "ShowTitle"}},
};

/// The titles of the boxes, all of them of the main window.
const std::map<std::string, std::string> kTitles{
    {"api_msg", " in api_msg_change"},
    {"balbar", " in sub Balbar_Click"},
    {"button_closeup", " in Sub Closeup_MouseUp"},
    {"cmbCDdrives", " in sub cmbCDDrives_Click"},
    {"CrossFade", " in Sub crossfade_Timer"},
    {"Initialize", " in sub Form_Initialize"},
    {"label2", " in sub Label2_DblClick"},
    {"posbar_mousedown", " in sub Posbar_MouseDown"},
    {"timer6", " in sub Timer6_Timer"},
    {"timer7", " in sub Timer7_Timer"},
    {"sldTimer", " in sub SLD_Timer"},
    {"playlist_play", " in sub  Stdss_Play"},
    {"timer1", " in sub Timer1_Timer"},
    {"timer2", " in sub Timer2_Timer"},
    {"BurnBaby", " in Function  function Burnbaby"},
    {"timer3", " in Sub Timer3_Timer"},
    {"Timer4", " in sub Timer4_Timer"},
    {"timer5", " in sub Timer5_Timer"},
    {"volbar_mousedown", " in sub volbar_MouseDown"},
    {"Next_track", " in sub Next_Track"},
    {"Last_track", " in sub Last_Track"},
    {"last_track2", " in sub LastTrack2"},
    {"Crossfade_BurnBaby", " in function Crossfade_burnbaby"},
    {"Autoload_Playlist", " in sub Autoload_Playlist"},
    {"UpdateEQ", " in UpdateEQ function"},
    {"SetEQ", " in sub Set_EQ"},
    {"Translate_EQ_Value", " in Function Translate_EQ_Value"},
    {"pGetPicture", " in Function pGetPicture"},
    {"kill process", " in sub Kill_me"},
    {"Switch_Win", " in Function Switch_Win"},
    {"GenShuffle", " in Function gen_shuffle"},
    {"StopPlay", " in Function Stop_Play"},
    {"playup_mouseup", " in sub playup_mouseup"},
    {"pauseup_mouseup", " in sub pauseup_Mouseup"},
    {"list1_dragdrop", " in sub Stdss_OleDragDrop"},
};

TEST(Procedures, theTableHoldsEachOnceAndNoOther) {
    std::set<std::pair<std::string, std::string>> expected;
    for (const auto& [module, words] : kWords) {
        for (const std::string& word : words) {
            expected.emplace(module, word);
        }
    }
    std::set<std::pair<std::string, std::string>> found;
    for (const Procedure& row : kProcedures) {
        EXPECT_TRUE(found.emplace(row.module, row.procedure).second) << row.procedure;
    }
    EXPECT_EQ(found, expected);
}

TEST(Procedures, titlesAreThoseOfTheMainWindow) {
    std::map<std::string, std::string> found;
    for (const Procedure& row : kProcedures) {
        EXPECT_EQ(row.showsBox(), !row.tail.empty());
        if (row.showsBox()) {
            EXPECT_EQ(row.module, "Player");
            found.emplace(row.procedure, row.tail);
        }
    }
    EXPECT_EQ(found, kTitles);
}

TEST(Procedures, areFoundByTheirWords) {
    static_assert(player("Next_track").tail == " in sub Next_Track");
    static_assert(!player("Load").showsBox());
    static_assert(procedureOf("OSD", "timer1").module == "OSD");
    EXPECT_EQ(&player("api_msg"), kProcedures.data());
}

} // namespace
} // namespace tovik::config
