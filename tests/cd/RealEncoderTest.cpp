// SPDX-License-Identifier: GPL-3.0-or-later
// Tracks through the encoders that are installed, by the real sound library.
#include "cd/RipRig.h"

#include "sound/decode/Media.h"
#include "sound/engine/Engine.h"
#include "sound/output/SilentOutput.h"
#include "support/sound/FakeCdDrive.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

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

    /// Two tracks of one second each, listed and looked at.
    void insertDisc() {
        script_->insert(test::FakeDiscs::discOf({1, 1}));
        sound::SoundLibrary& engine = engine_;
        engine.lookAtDrives();
        for (int i = 0; i < 10'000 && engine.lookingAtDrives(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        tracks_.Clear();
        for (const char* const file : {"D:\\Track01.cda", "D:\\Track02.cda"}) {
            tracks_.AddItem(file, file, "Song", "00:01", 1);
        }
    }

    std::shared_ptr<test::DriveScript> script_ = std::make_shared<test::DriveScript>();
    sound::Engine engine_{std::make_unique<sound::SilentOutput>(),
                          {.drives = test::DriveScript::options({script_})}};
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
    TrackRipper real_{realNeeds_, state_.comfort};
    Ripping ripAll_{realNeeds_, tagWarning_, tags::TagWork::direct()};
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

// Long titles do that, since a name may have 255 bytes at most.
TEST_F(RealEncoder, ANameThatNoDiskTakesFailsItsTrackAlone) {
    insertDisc();
    form_.List1 = {std::string(300, 'x'), "-o \"x\""};
    ripAll_.Rip_All();
    EXPECT_THAT(told(), ElementsAre(HasSubstr("xxx.mp3 cannot be written.\n")));
    EXPECT_THAT(converted(), ElementsAre("Couldn't create the file 33 occured when Tovik tried to "
                                         "play/convert: 0"));
    EXPECT_EQ(frames(album("-o \"x\".mp3")), 44'100);
    EXPECT_FALSE(state_.RipRunning);
}

TEST_F(RealEncoder, AnAlbumThatNoDiskTakesIsTold) {
    insertDisc();
    form_.Text1[0] = std::string(300, 'x');
    ripAll_.Rip_All();
    EXPECT_THAT(told(), ElementsAre(HasSubstr(form_.Text1[0])));
    EXPECT_THAT(logged(), ElementsAre(HasSubstr("TSR,RipAll")));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(music()), {}), 0);
}

} // namespace tovik::cd
