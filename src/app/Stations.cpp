// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Stations.h"

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
}

Stations::~Stations() {
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
        commands.bind(id, [this] { windows_.open(window::WindowId::addStation); });
    }
    commands.bind(CommandId::startRecording, [this] { player.record(true); });
    commands.bind(CommandId::endRecording, [this] { player.record(false); });
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
    lost_ = !list_.load(paths_.of(host::DataItem::Stations));
}

void Stations::saveStations() {
    if (lost_ && (RadioLst_.ListCount() == 0 ||
                  !radio::StationList::setAside(paths_.of(host::DataItem::Stations)))) {
        return;
    }
    const playlist::Row count =
        std::min<playlist::Row>(RadioLst_.ListCount(), radio::kMostStations);
    list_.WriteStationList(paths_.of(host::DataItem::Stations), static_cast<std::int16_t>(count));
}

} // namespace tovik::app
