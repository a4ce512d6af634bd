// SPDX-License-Identifier: GPL-3.0-or-later
// Tracks through the encoders that are installed, by the real sound library.
#include "cd/RipRig.h"

#include "sound/decode/Media.h"
#include "sound/engine/Engine.h"
#include "sound/output/SilentOutput.h"

#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

using sound::FormatFamily;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class RealEncoder : public test::RipRig {
protected:
    RealEncoder() {
        std::filesystem::create_directories(host_.folder / "helpers");
        std::filesystem::create_directories(music());
        for (const char* program : {"lame", "oggenc"}) {
            std::filesystem::create_symlink("/usr/bin/" + std::string(program),
                                            host_.folder / "helpers/" + program + ".exe");
        }
        host_.programs.folder = host_.folder / "helpers/";
    }

    /// Encodes a piece of noise.
    [[nodiscard]] RipEnd encode(std::string_view type, const std::string& path) {
        return real_.Encoder(source_, type, 192, path, false, 0);
    }

    [[nodiscard]] static std::int64_t frames(const std::string& path) {
        auto opened = sound::openDecoder(FormatFamily::stream, path);
        if (opened.status != sound::OpenStatus::opened) {
            ADD_FAILURE() << path;
            return 0;
        }
        return static_cast<std::int64_t>(sound::test::readAll(*opened.decoder).size()) /
               opened.decoder->channels();
    }

    const std::string source_ = sound::test::mediaPath("wav_s16_44100_stereo.wav");
    sound::Engine engine_{std::make_unique<sound::SilentOutput>()};
    player::Core realCore_{.state = state_,
                           .sound = engine_,
                           .settings = settings_,
                           .errors = errors_,
                           .lists = core_.lists,
                           .timers = host_.clock,
                           .screen = screen_,
                           .news = news_};
    RipNeeds realNeeds_{.core = realCore_,
                        .disc = disc_,
                        .form = form_,
                        .lstTracks = tracks_,
                        .window = handle_,
                        .host = bundle_,
                        .words = words_,
                        .progress = progress_};
    TrackRipper real_{realNeeds_};
};

} // namespace

TEST_F(RealEncoder, KeepEverySample) {
    for (const auto& [type, name] : {std::pair("MP3C", "a.mp3"), std::pair("MP3V", "b \"c\".mp3"),
                                     std::pair("OGGC", "-d.ogg"), std::pair("OGGV", "e.ogg")}) {
        const std::string path = music() + "/" + name;
        EXPECT_EQ(encode(type, path), RipEnd::done) << type;
        EXPECT_EQ(frames(path), frames(source_)) << type;
    }
    EXPECT_THAT(converted(), SizeIs(0));
    EXPECT_EQ(title(1), "Track 1 100%");
}

TEST_F(RealEncoder, SayWhyTheyCannotWrite) {
    std::filesystem::create_symlink("/dev/full", music() + "/full.mp3");
    EXPECT_EQ(encode("MP3C", music() + "/full.mp3"), RipEnd::failed);
    EXPECT_EQ(encode("MP3C", music() + "/none/x.mp3"), RipEnd::failed);
    std::filesystem::create_symlink("/dev/full", music() + "/full.ogg");
    EXPECT_EQ(encode("OGGV", music() + "/full.ogg"), RipEnd::failed);
    EXPECT_THAT(told(), ElementsAre(HasSubstr("full.mp3 cannot be written.\nError writing"),
                                    HasSubstr("Can't init outfile"),
                                    HasSubstr("full.ogg cannot be written.\nFailed writing")));
    EXPECT_THAT(converted(), SizeIs(3));
}

} // namespace tovik::cd
