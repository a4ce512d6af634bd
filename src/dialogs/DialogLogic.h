// SPDX-License-Identifier: GPL-3.0-or-later
// What the dialogs show and drive. Whoever composes the player fills it. Interface thread.
#pragma once

namespace tovik::config {
class MultiLNG;
}

namespace tovik::player {
struct Core;
class frmJump2File;
class frmJump2Track;
class frmjump2time;
class frmLoadPreset;
class frmOpenDirectory;
class frmMp3Tag;
} // namespace tovik::player

namespace tovik::preferences {
class frmPreferences;
}

namespace tovik::window {
class frmAbout;
}

namespace tovik::radio {
class frmaddst;
}

namespace tovik::cd {
struct DiscForm;
class frmCdNFO;
class frmDiscMatch;
} // namespace tovik::cd

namespace tovik::dialogs {

/// All of it outlives the dialogs.
struct DialogLogic {
    const player::Core& core;
    config::MultiLNG& language;
    player::frmLoadPreset& loadPreset;
    player::frmOpenDirectory& openDirectory;
    player::frmJump2File& jump2File;
    player::frmJump2Track& jump2Track;
    player::frmjump2time& jump2time;
    player::frmMp3Tag& mp3Tag;
    preferences::frmPreferences& preferences;
    window::frmAbout& about;
    radio::frmaddst& addStation;
    const cd::DiscForm& discForm;
    cd::frmCdNFO& discInfo;
    cd::frmDiscMatch& discMatch;
};

} // namespace tovik::dialogs
