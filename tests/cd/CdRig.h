// SPDX-License-Identifier: GPL-3.0-or-later
// Drives and the lists of their tracks over a sound library without sound.
#pragma once

#include "cd/CdDrives.h"

#include "player/PlayerRig.h"
#include "support/host/ScriptedPump.h"

#include <string>
#include <vector>

namespace tovik::test {

/// The rows of a list: "file|title|time|seconds".
[[nodiscard]] inline std::vector<std::string> rowsOf(const playlist::stdSS& list) {
    std::vector<std::string> rows;
    for (playlist::Row row = 1; row <= list.ListCount(); ++row) {
        const auto text = [&](playlist::RowText which) {
            return std::string(list.text(row, which));
        };
        EXPECT_EQ(text(playlist::RowText::ItemData), text(playlist::RowText::FileName));
        rows.push_back(text(playlist::RowText::FileName) + "|" + text(playlist::RowText::Title) +
                       "|" + text(playlist::RowText::TimeText) + "|" +
                       std::to_string(list.seconds(row)));
    }
    return rows;
}

class CdRig : public PlayerRig {
protected:
    CdRig() {
        cd_.hooks.clrIMG_Click = [this] { list_.Clear(); };
        cd_.hooks.showDrives = [this](const std::string& letters) { letters_ = letters; };
    }

    /// Puts discs with tracks of so many seconds into drives D, E and so on.
    void insert(const std::vector<std::vector<std::int32_t>>& discs) {
        sound_.drives.clear();
        for (const auto& disc : discs) {
            sound_.drives.push_back({.description = "Drive " + std::to_string(sound_.drives.size()),
                                     .letter = 3 + static_cast<int>(sound_.drives.size()),
                                     .ready = !disc.empty(),
                                     .toc = FakeDiscs::discOf(disc)});
        }
    }

    [[nodiscard]] std::string letters() {
        std::string all;
        if (noLetters_) {
            return all;
        }
        for (const auto& drive : sound_.drives) {
            all += &drive == sound_.drives.data() ? "" : "|";
            all += std::string(drive.letter < 0 ? 0 : 1, static_cast<char>('A' + drive.letter));
        }
        return all;
    }

    ScriptedPump pump_;
    playlist::stdSS tracks_;
    cd::CdState disc_;
    cd::DiscForm form_;
    std::string letters_ = "none"; ///< as menus were told
    bool noLetters_ = false;
    cd::CdDrives cd_{{.tracks = {.core = core_,
                                 .lstTracks = tracks_,
                                 .state = disc_,
                                 .form = form_,
                                 .dialogs = host_.dialogs,
                                 .CdDrives = [this] { return letters(); }},
                      .pump = pump_}};
};

} // namespace tovik::test
