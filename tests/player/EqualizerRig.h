// SPDX-License-Identifier: GPL-3.0-or-later
// The equalizer over a sound library without sound, with a track on each leg.
#pragma once

#include "player/Equalizer.h"
#include "player/EqualizerStore.h"
#include "player/PlayerRig.h"

#include <array>

namespace tovik::test {

class EqualizerRig : public PlayerRig {
protected:
    using Sliders = std::array<std::int32_t, player::Equalizer::kBands>;

    EqualizerRig() {
        sound_.BASS_Init(-1, 44100, 0, 0, 0);
        state_.PrimaryChannel = open("first.mp3");
        state_.SecondaryChannel = open("second.mp3");
        state_.CrossfadeLeg = 2;
    }

    sound::Handle open(const std::string& name) {
        return sound_.BASS_StreamCreateFile(false, track(name, {.seconds = 60}), 0, 0,
                                            sound::BASS_SAMPLE_FX);
    }

    void put(const Sliders& values) {
        for (std::size_t band = 0; band < values.size(); ++band) {
            equalizer_.eq_sld(band, values.at(band));
        }
    }

    void putAll(std::int32_t value) {
        Sliders values{};
        values.fill(value);
        put(values);
    }

    [[nodiscard]] Sliders sliders() {
        Sliders values{};
        for (std::size_t band = 0; band < values.size(); ++band) {
            values.at(band) = equalizer_.eq_sld(band);
        }
        return values;
    }

    [[nodiscard]] std::int32_t master() const {
        return equalizer_.eq_sld(player::Equalizer::kMaster);
    }

    void master(std::int32_t value) { equalizer_.eq_sld(player::Equalizer::kMaster, value); }

    [[nodiscard]] std::vector<float> gains() const { return sound_.gains(state_.PrimaryChannel); }

    player::Equalizer equalizer_{core_, host_.dialogs};
    player::EqualizerStore store_{settings_, equalizer_};
};

} // namespace tovik::test
