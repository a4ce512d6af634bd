// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a stored curve of the equalizer. Gains are read or refused; what a slider can
// hold is written and read again as the same.
#include "base/RuntimeError.h"
#include "config/Fields.h"
#include "player/EqualizerGains.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tovik;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const config::Fields gains(text, '/');
    std::vector<std::int32_t> sliders;
    try {
        for (const std::string& gain : gains.all()) {
            const std::int32_t slider = player::sliderOfGain(gain);
            // 16 bits of gain reach no further.
            demand(slider >= -27296 && slider <= 27317);
            if (slider >= player::kSliderTop && slider <= player::kSliderBottom) {
                sliders.push_back(slider);
            }
        }
    } catch (const base::RuntimeError& error) {
        demand(error.number() == 13 || error.number() == 6);
    }
    const config::Fields again(player::curveText(sliders), '/');
    demand(again.all().size() == sliders.size());
    for (std::size_t place = 0; place < sliders.size(); ++place) {
        demand(player::sliderOfGain(again.at(place)) == sliders[place]);
    }
    return 0;
}
