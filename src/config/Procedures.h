// SPDX-License-Identifier: GPL-3.0-or-later
// The procedures that guard themselves, with the words they go by in the log and in the titles of
// boxes. Any thread.
#pragma once

#include <array>
#include <stdexcept>
#include <string_view>

namespace tovik::config {

/// A procedure that takes its own failures.
struct Procedure {
    std::string_view module;
    std::string_view procedure;
    std::string_view tail; ///< the title of its box; empty: it only logs

    [[nodiscard]] constexpr bool showsBox() const { return !tail.empty(); }
};

/// All of them. Spelling, case and blanks of the words are as users know them from their logs.
inline constexpr std::array kProcedures{
    Procedure{"Player", "api_msg", " in api_msg_change"},
    Procedure{"Player", "balbar", " in sub Balbar_Click"},
    Procedure{"Player", "button_closeup", " in Sub Closeup_MouseUp"},
    Procedure{"Player", "cmbCDdrives", " in sub cmbCDDrives_Click"},
    Procedure{"Player", "Test!", ""},
    Procedure{"Player", "CrossFade", " in Sub crossfade_Timer"},
    Procedure{"Player", "Initialize", " in sub Form_Initialize"},
    Procedure{"Player", "Keydown", ""},
    Procedure{"Player", "Load", ""},
    Procedure{"Player", "MouseDown", ""},
    Procedure{"Player", "MouseMove", ""},
    Procedure{"Player", "MouseUp", ""},
    Procedure{"Player", "label2", " in sub Label2_DblClick"},
    Procedure{"Player", "posbar_mousedown", " in sub Posbar_MouseDown"},
    Procedure{"Player", "timer1", " in sub Timer1_Timer"},
    Procedure{"Player", "timer2", " in sub Timer2_Timer"},
    Procedure{"Player", "timer3", " in Sub Timer3_Timer"},
    Procedure{"Player", "Timer4", " in sub Timer4_Timer"},
    Procedure{"Player", "timer5", " in sub Timer5_Timer"},
    Procedure{"Player", "timer6", " in sub Timer6_Timer"},
    Procedure{"Player", "timer7", " in sub Timer7_Timer"},
    Procedure{"Player", "sldTimer", " in sub SLD_Timer"},
    Procedure{"Player", "playlist_play", " in sub  Stdss_Play"},
    Procedure{"Player", "BurnBaby", " in Function  function Burnbaby"},
    Procedure{"Player", "volbar_mousedown", " in sub volbar_MouseDown"},
    Procedure{"Player", "Next_track", " in sub Next_Track"},
    Procedure{"Player", "Last_track", " in sub Last_Track"},
    Procedure{"Player", "last_track2", " in sub LastTrack2"},
    Procedure{"Player", "Crossfade_BurnBaby", " in function Crossfade_burnbaby"},
    Procedure{"Player", "Autoload_Playlist", " in sub Autoload_Playlist"},
    Procedure{"Player", "UpdateEQ", " in UpdateEQ function"},
    Procedure{"Player", "SetEQ", " in sub Set_EQ"},
    Procedure{"Player", "Translate_EQ_Value", " in Function Translate_EQ_Value"},
    Procedure{"Player", "pGetPicture", " in Function pGetPicture"},
    Procedure{"Player", "kill process", " in sub Kill_me"},
    Procedure{"Player", "Seconds2HMS", ""},
    Procedure{"Player", "Switch_Win", " in Function Switch_Win"},
    Procedure{"Player", "GenShuffle", " in Function gen_shuffle"},
    Procedure{"Player", "StopPlay", " in Function Stop_Play"},
    Procedure{"Player", "playup_mouseup", " in sub playup_mouseup"},
    Procedure{"Player", "pauseup_mouseup", " in sub pauseup_Mouseup"},
    Procedure{"Player", "list1_dragdrop", " in sub Stdss_OleDragDrop"},
    Procedure{"TSR", "Load", ""},
    Procedure{"TSR", "timer1", ""},
    Procedure{"TSR", "RipAll", ""},
    Procedure{"TSR", "RipSel", ""},
    Procedure{"TSR", "WriteMp3Tag", ""},
    Procedure{"TSR", "Extract2WMA", ""},
    Procedure{"About", "Load", ""},
    Procedure{"About", "MouseDown", ""},
    Procedure{"About", "MouseUp", ""},
    Procedure{"About", "command1", ""},
    Procedure{"About", "Click", ""},
    Procedure{"About", "image1_click", ""},
    Procedure{"About", "image2_click", ""},
    Procedure{"About", "image3_click", ""},
    Procedure{"About", "Label2_click", ""},
    Procedure{"About", "Label3_click", ""},
    Procedure{"About", "label6_click", ""},
    Procedure{"About", "label7_click", ""},
    Procedure{"AddStation", "Load", ""},
    Procedure{"AddStation", "Command1", ""},
    Procedure{"AddStation", "ReadStationList", ""},
    Procedure{"AddStation", "WriteStationList", ""},
    Procedure{"AddStation", "Play", ""},
    Procedure{"AddStation", "DoMeta", ""},
    Procedure{"AddStation", "record", ""},
    Procedure{"CDNFO", "Load", ""},
    Procedure{"CDNFO", "command1", ""},
    Procedure{"CDNFO", "list1_click", ""},
    Procedure{"CDNFO", "text2_change", ""},
    Procedure{"CDNFO", "Get_Selected", ""},
    Procedure{"CDNFO", "load_local_cddb", ""},
    Procedure{"Title", "keydown", ""},
    Procedure{"OSD", "Load", ""},
    Procedure{"OSD", "timer1", ""},
    Procedure{"OSD", "ShowTitle", ""},
};

/// A row of the table, found while compiling: words that are in no row do not compile.
[[nodiscard]] consteval const Procedure& procedureOf(std::string_view module,
                                                     std::string_view procedure) {
    for (const Procedure& row : kProcedures) {
        if (row.module == module && row.procedure == procedure) {
            return row;
        }
    }
    throw std::invalid_argument("no such procedure");
}

/// A procedure of the main window.
[[nodiscard]] consteval const Procedure& player(std::string_view procedure) {
    return procedureOf("Player", procedure);
}

} // namespace tovik::config
