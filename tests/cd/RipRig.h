// SPDX-License-Identifier: GPL-3.0-or-later
// Ripping over a sound library without sound: three tracks of one second each.
#pragma once

#include "cd/Ripping.h"

#include "player/PlayerRig.h"
#include "support/host/ScriptedPump.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace tovik::test {

class RipRig : public PlayerRig {
protected:
    static constexpr std::int64_t kTrackBytes = 176'400;

    RipRig() {
        set("ROP", music());
        set("DOF", "MP3 CBR");
        set("DOB", "1411,128,129,130,131,132");
        set("EPRIO", "2");
        host_.folder.write("Languages/English.lng", english());
        language_.Language_File("English");
        sound_.drives.resize(1);
        sound_.drives.front().toc = FakeDiscs::discOf({1, 1, 1});
        for (std::uint32_t track = 0; track < 3; ++track) {
            const std::string number = std::to_string(track + 1);
            sound_.discTracks[track] = {.kind = FakeKind::disc, .seconds = 1};
            const std::string file = "D:\\Track0" + number + ".cda";
            tracks_.AddItem(file, file, "Song " + number, "00:01", 1);
            form_.List1.push_back("Song " + number);
        }
        form_.Text1 = {"Album", "1999"};
        form_.Text2 = {"Artist", "", "Rock"};
        host_.programs.present = {"lame.exe", "oggenc.exe"};
        sound_.initialized = true;
        ripping_.hooks = {
            .Stop_play = [this] { sound_.calls.emplace_back("Stop_play"); },
            .Init_CD_Ripper = [this] { sound_.calls.emplace_back("Init_CD_Ripper"); },
            .showDisc = [this] { sound_.calls.emplace_back("disc shown"); },
            .unloadDisc = [this] { sound_.calls.emplace_back("disc unloaded"); },
            .forgetOtherDisc = [this] { sound_.calls.emplace_back("other disc forgotten"); },
            .showPanel =
                [this] { sound_.calls.emplace_back(state_.RipRunning ? "rip runs" : "rip over"); }};
        progress_.show = [this](const cd::RipStatus& status) { statuses_.push_back(status); };
    }

    /// Where the files go; it is not there yet.
    [[nodiscard]] std::string music() const { return host_.folder / "Music"; }

    [[nodiscard]] std::string album(const std::string& name) const {
        return music() + "/Artist-Album/" + name;
    }

    /// The calls that begin so.
    [[nodiscard]] std::vector<std::string> callsOf(const std::string& name) const {
        std::vector<std::string> found;
        for (const std::string& call : sound_.calls) {
            if (call.starts_with(name)) {
                found.push_back(call);
            }
        }
        return found;
    }

    /// The texts of the boxes.
    [[nodiscard]] std::vector<std::string> told() const {
        std::vector<std::string> texts;
        for (const host::MessageBox& box : host_.dialogs.boxes) {
            texts.push_back(box.text);
        }
        return texts;
    }

    /// The log of conversions, without date and time.
    [[nodiscard]] std::vector<std::string> converted() const {
        if (!std::filesystem::exists(host_.folder / "Tovik.log")) {
            return {};
        }
        constexpr std::size_t kTime = std::string_view("yyyy-MM-dd HH:mm:ss ").size();
        std::istringstream log(host_.folder.read("Tovik.log"));
        std::vector<std::string> lines;
        for (std::string line; std::getline(log, line);) {
            lines.push_back(line.substr(kTime, line.size() - kTime - 1));
        }
        return lines;
    }

    [[nodiscard]] std::string title(playlist::Row row) const {
        return std::string(tracks_.text(row, playlist::RowText::Title));
    }

    ScriptedPump pump_;
    host::Host bundle_{host_.host(pump_)};
    playlist::stdSS tracks_;
    cd::CdState disc_;
    cd::DiscForm form_;
    config::MultiLNG language_{host_.paths};
    cd::RipWords words_{.language = language_, .Label4 = [](std::size_t index) {
                            return index == 8 ? "[x]%" : "Label " + std::to_string(index);
                        }};
    cd::RipProgress progress_{tracks_, host_.clock};
    cd::RipNeeds needs_{.core = core_,
                        .disc = disc_,
                        .form = form_,
                        .lstTracks = tracks_,
                        .window = handle_,
                        .host = bundle_,
                        .words = words_,
                        .progress = progress_};
    cd::TrackRipper ripper_{needs_, state_.comfort};
    cd::Ripping ripping_{needs_, tagWarning_, tags::TagWork::direct()};
    std::vector<cd::RipStatus> statuses_;

private:
    static std::string english() {
        return "[Prompt]\nitem0=Cancel?\nitem1=Cancel rip\nitem2=[x] is there\nitem3=Overwrite\n";
    }
};

} // namespace tovik::test
