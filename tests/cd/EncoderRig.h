// SPDX-License-Identifier: GPL-3.0-or-later
// One track, ripped over a sound library without sound.
#pragma once

#include "cd/RipRig.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace tovik::test {

class EncoderRig : public RipRig {
protected:
    EncoderRig() { std::filesystem::create_directories(music()); }

    [[nodiscard]] cd::RipEnd encode(std::string_view type = "MP3C",
                                    const std::string& source = "1") {
        return ripper_.Encoder(source, type, 128, path_, true, 1);
    }

    /// What a disc says of the stream that is read.
    void discSays(const sound::DiscReport& report, sound::Handle stream = sound::kNoHandle) {
        pump_.inStep = [this, report, stream] {
            sound_.discReports[stream != sound::kNoHandle ? stream : lastStream()] = report;
            return true;
        };
    }

    /// A stream ends behind its first block.
    void breakOff(sound::Handle stream) {
        for (auto& [number, track] : sound_.discTracks) {
            track.seconds = 100;
        }
        pump_.inStep = [this, stream] {
            if (sound_.lives(stream) && sound_.channel(stream).position > 0) {
                sound_.channel(stream).activity = sound::Activity::stopped;
            }
            return true;
        };
    }

    [[nodiscard]] sound::Handle lastStream() {
        sound::Handle last = 1;
        while (sound_.lives(last + 1)) {
            ++last;
        }
        return last;
    }

    const std::string path_ = music() + "/x.mp3";
};

} // namespace tovik::test
