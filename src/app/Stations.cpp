// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Stations.h"

#include "cd/RipNames.h"
#include "player/LiveSetting.h"
#include "radio/StationFile.h"
#include "radio/StreamTitle.h"

#include <algorithm>

namespace tovik::app {

using commands::CommandId;

Stations::Stations(const Needs& needs, const host::Host& host)
    : player(needs.core, needs.playback, needs.language, needs.RadioLst, host.paths.dataFolder()),
      addStation(needs.core, needs.RadioLst), core_(needs.core), RadioLst_(needs.RadioLst),
      windows_(needs.windows), dialogs_(host.dialogs), paths_(host.paths),
      list_(needs.RadioLst, needs.core.errors) {
    RadioLst_.setEvents(this);
    RadioLst_.addObserver(*this);
    player.songFolder = [this] {
        const auto asItIs = [](const std::string& text) { return text; };
        const std::string folder =
            player::readLiveOr(core_.settings, "IROP", asItIs, std::string());
        return folder.empty() ? folder : cd::ripFolder(paths_, folder);
    };
}

Stations::~Stations() {
    RadioLst_.removeObserver(*this);
    RadioLst_.setEvents(nullptr);
}

void Stations::bind(commands::Commands& commands) {
    commands.bind(CommandId::radioPlay, [this] {
        if (has()) {
            RadioLst_.Play(RadioLst_.SelectedIndex);
        }
    });
    commands.bind(CommandId::radioDelete, [this] {
        if (has()) {
            RadioLst_.Remove(RadioLst_.SelectedIndex);
        }
    });
    commands.bind(CommandId::radioInfo, [this] { tellInfo(); });
    // The only locations that are kept are stations.
    for (const CommandId id : {CommandId::addStation, CommandId::addLocation}) {
        commands.bind(id, [this] {
            addStation.addTo(nullptr);
            windows_.open(window::WindowId::addStation);
        });
    }
    commands.bind(CommandId::startRecording, [this] { player.record(true); });
    commands.bind(CommandId::endRecording, [this] { player.record(false); });
}

void Stations::askForAddress(playlist::stdSS& playlist) {
    addStation.addTo(&playlist);
    windows_.open(window::WindowId::addStation);
}

void Stations::Play(const std::string& /*itemData*/) {
    player.playRow(RadioLst_.SelectedIndex);
}

/// It may have been stopped since, or play and be wanted anew: both is a start.
void Stations::PlayedAgain() {
    player.playRow(RadioLst_.SelectedIndex);
}

void Stations::tellInfo() {
    const playlist::Row row = RadioLst_.SelectedIndex;
    if (row < 1 || row > RadioLst_.ListCount()) {
        return;
    }
    const std::string name = radio::shownText(RadioLst_.text(row, playlist::RowText::Title));
    std::string text = radio::shownText(RadioLst_.text(row, playlist::RowText::ItemData));
    if (RadioLst_.isPlayed(row) && !core_.screen.playing.infoText.empty()) {
        text += "\n" + core_.screen.playing.infoText;
    }
    dialogs_.showMessage({.text = text, .title = name, .icon = host::MessageIcon::Information});
}

void Stations::readStations() {
    read_ = false;
    lost_ =
        !list_.load(paths_.of(host::DataItem::Stations), core_.state.comfort.keepsLongAddresses);
    read_ = true;
}

void Stations::rowsInserted(playlist::Row /*first*/, playlist::Row /*count*/) {
    keepAtOnce();
}

void Stations::rowsRemoved(std::span<const playlist::Row> /*rows*/) {
    keepAtOnce();
}

void Stations::rowMoved(playlist::Row /*from*/, playlist::Row /*to*/) {
    keepAtOnce();
}

void Stations::rowsCleared() {
    keepAtOnce();
}

void Stations::rowChanged(playlist::Row /*row*/) {
    keepAtOnce();
}

/// A file that could not be read waits for the end, which sets it aside.
void Stations::keepAtOnce() {
    if (core_.state.comfort.keepsStationsAtOnce && read_ && !lost_) {
        writer_.write(paths_.of(host::DataItem::Stations), list_.fileText(count()));
    }
}

std::int16_t Stations::count() const {
    return static_cast<std::int16_t>(
        std::min<playlist::Row>(RadioLst_.ListCount(), radio::kMostStations));
}

void Stations::saveStations() {
    if (lost_ && (RadioLst_.ListCount() == 0 ||
                  !radio::StationList::setAside(paths_.of(host::DataItem::Stations)))) {
        return;
    }
    writer_.wait(); // what is older must not come behind it
    list_.WriteStationList(paths_.of(host::DataItem::Stations), count());
}

} // namespace tovik::app
