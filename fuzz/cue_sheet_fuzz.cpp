// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a cue sheet and asks for the title of each file in it.
#include "ListDemands.h"
#include "playlist/CueSheet.h"

#include <cstdint>

using namespace tovik;
using fuzz::demand;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const playlist::CueSheet sheet = playlist::readCueSheet(text);
    std::size_t tracks = 0;
    for (const playlist::CueFile& file : sheet.files) {
        demand(file.name.size() <= size);
        demand(playlist::cueTitle(sheet, file).size() <= size + std::size_t{3});
        for (const playlist::CueTrack& track : file.tracks) {
            demand(track.startFrames >= 0);
            ++tracks;
        }
    }
    demand(tracks <= playlist::kMostCueTracks && sheet.files.size() <= playlist::kMostCueTracks);
    return 0;
}
