// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog of the disc information as logic, over a drive and a server of a test's own.
#pragma once

#include "cd/frmCdNFO.h"

#include "player/PlayerRig.h"
#include "support/host/ScriptedPump.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace tovik::test {

/// The disc "2 150 15150 302".
class CdNFORig : public PlayerRig, public cd::CdNFOView {
protected:
    CdNFORig() {
        set("ASOT", "0");
        set("DOF", "MP3 CBR");
        sound_.drives.resize(1);
        sound_.drives.front().toc = FakeDiscs::discOf({200, 100});
        for (const char* const row : {"D:\\Track01.cda", "D:\\Track02.cda"}) {
            tracks_.AddItem(row, row, row, "", 1);
        }
    }

    /// The file of the disc in the data folder.
    [[nodiscard]] static std::string discFile() { return "CDDB/06012c02"; }

    void serverIni(const std::string& text = "[server]\nhost=db.example\nmail=me@home.example\n") {
        host_.folder.write("CDDB/server.ini", text);
    }

    /// The server answers so.
    [[nodiscard]] discs::Fetched answer(const discs::TextRequest& request) {
        asked_.push_back(request.url);
        if (whenAsked_) {
            whenAsked_();
        }
        const bool reads = request.url.find("cddb+read") != std::string::npos;
        return {.end = discs::FetchEnd::complete, .text = reads ? read_ : query_};
    }

    /// The dialog opens and comes to the screen.
    void open() {
        dialog_.Form_Load(*this, [this] { ++worded_; });
        dialog_.Form_Activate();
    }

    /// The user closes it.
    void close(cd::frmCdNFO::Button button = cd::frmCdNFO::Button::close) {
        EXPECT_TRUE(dialog_.Command1_Click(button));
        dialog_.Form_Unload();
    }

    void showData() override { ++shown_; }

    void showTrack(std::size_t track) override { told_.push_back(track); }

    void showSearch() override { searches_.push_back(dialog_.searching()); }

    ScriptedPump pump_;
    playlist::stdSS tracks_;
    cd::DiscForm form_;
    discs::FREEDB freedb_{{.drives = sound_,
                           .pump = pump_,
                           .fetch = [this](const discs::TextRequest& request,
                                           const std::stop_token&) { return answer(request); }}};
    cd::frmCdNFO dialog_{{.core = core_,
                          .form = form_,
                          .lstTracks = tracks_,
                          .FREEDB = freedb_,
                          .paths = host_.paths,
                          .pump = pump_}};

    std::string query_ = "200 rock 06012c02 A / B\r\n";
    std::string read_ = "210 x\r\nDTITLE=The A / The B\r\nDYEAR=1999\r\nDGENRE=Rock\r\n"
                        "TTITLE0=One\r\nTTITLE1=Two\r\n.\r\n";
    std::vector<std::string> asked_;
    std::function<void()> whenAsked_; ///< on the thread that waits for the network

    int worded_ = 0;
    int shown_ = 0;
    std::vector<std::size_t> told_;
    std::vector<bool> searches_; ///< what `searching` was at each telling
};

} // namespace tovik::test
