// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationRig.h"

namespace tovik::test {

StationRig::StationRig() {
    sound_.initialized = true;
    player_.screen.readWords();
    playback_.clock.begin();
}

sound::Handle StationRig::start(const std::string& address, const std::string& name) {
    radio::addStation(RadioLst_, address, name);
    player_.playRow(RadioLst_.ListCount());
    return stream();
}

void StationRig::sounds(const std::vector<std::string>& headers) {
    sound_.answer(stream(), headers);
    look();
    sound_.sounds(stream());
    look();
}

void StationRig::over(sound::StreamStage stage, sound::StreamTrouble trouble) {
    sound_.over(stream(), stage, trouble);
    look();
}

void StationRig::heard(const std::string& metadata) {
    station().report.heardMetadata = metadata;
    look();
}

} // namespace tovik::test
