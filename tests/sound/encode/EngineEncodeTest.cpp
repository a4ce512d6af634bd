// SPDX-License-Identifier: GPL-3.0-or-later
// The operations of the library by which sound is written to files.
#include "sound/decode/Media.h"
#include "sound/encode/EncodeRig.h"
#include "sound/engine/Engine.h"
#include "sound/output/SilentOutput.h"
#include "support/host/TemporaryFolder.h"

#include <array>
#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::script;
using tovik::test::TemporaryFolder;

constexpr std::uint32_t kRead = BASS_STREAM_DECODE | BASS_STREAM_AUTOFREE;

class EngineEncode : public testing::Test {
protected:
    EngineEncode() { EXPECT_TRUE(library_.BASS_Init(1, 44100, 0, 0, 0)); }

    EncodeReport endOf(Handle handle) {
        return test::waitForEnd([&] { return library_.encodeReport(handle).value(); });
    }

    Engine engine_{std::make_unique<SilentOutput>()};
    SoundLibrary& library_ = engine_;
    TemporaryFolder folder_;
};

} // namespace

TEST_F(EngineEncode, WhatIsReadOfAChannelGoesToItsEncoder) {
    const std::string source = test::mediaPath("wav_s16_22050_mono.wav");
    const Handle channel = library_.BASS_StreamCreateFile(false, source, 0, 0, kRead);
    ASSERT_NE(channel, kNoHandle);
    EXPECT_EQ(library_.encodeReport(channel), std::nullopt);
    ASSERT_TRUE(library_.BASS_Encode_Start(channel, script("cat > \"$1\"", folder_ / "out"), 0));
    std::vector<std::int16_t> all;
    std::array<std::int16_t, 5000> some{};
    while (library_.BASS_ChannelIsActive(channel) != Activity::stopped) {
        const std::int32_t got = library_.BASS_ChannelGetData(channel, some.data(), 10000);
        all.insert(all.end(), some.begin(), some.begin() + got / 2);
    }
    ASSERT_TRUE(library_.BASS_Encode_Stop(channel));
    EXPECT_EQ(endOf(channel).stage, EncodeStage::finished);
    const std::string out = folder_.read("out");
    ASSERT_EQ(out.size(), 44 + all.size() * 2);
    // RIFF, size unknown; PCM, mono, 22050 Hz, 44100 bytes a second, 2 bytes, 16 bits; unknown.
    EXPECT_EQ(
        out.substr(0, 44),
        std::string("RIFF\xff\xff\xff\xffWAVEfmt \x10\0\0\0\x01\0\x01\0\x22\x56\0\0\x44\xac\0\0"
                    "\x02\0\x10\0data\xff\xff\xff\xff",
                    44));
    EXPECT_EQ(out.substr(44), std::string(std::string_view(
                                  // NOLINTNEXTLINE(*-reinterpret-cast): samples as bytes
                                  reinterpret_cast<const char*>(all.data()), all.size() * 2)));
    ASSERT_TRUE(library_.BASS_StreamFree(channel));
    EXPECT_EQ(library_.encodeReport(channel), std::nullopt);
}

TEST_F(EngineEncode, RefusesWhatCannotBe) {
    const std::string source = test::mediaPath("wav_s16_22050_mono.wav");
    const Handle heard = library_.BASS_StreamCreateFile(false, source, 0, 0, 0);
    EXPECT_FALSE(library_.BASS_Encode_Start(heard, script("cat"), 0));
    EXPECT_EQ(library_.BASS_ErrorGetCode(), ErrorCode::notAvailable);
    EXPECT_FALSE(library_.BASS_Encode_Start(kNoHandle, script("cat"), 0));
    EXPECT_EQ(library_.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
    const Handle read = library_.BASS_StreamCreateFile(false, source, 0, 0, kRead);
    EXPECT_FALSE(library_.BASS_Encode_Stop(read));
    EXPECT_FALSE(library_.BASS_Encode_Start(read, {.program = "/no/such"}, 0));
    EXPECT_EQ(library_.BASS_ErrorGetCode(), ErrorCode::cannotCreateFile);
    EXPECT_EQ(library_.BASS_WMA_EncodeOpenFile(0, 0, 128000, folder_ / "x.wma"), kNoHandle);
    EXPECT_EQ(library_.BASS_WMA_EncodeOpenFile(44100, 0, 0, folder_ / "x.wma"), kNoHandle);
    EXPECT_FALSE(library_.BASS_WMA_EncodeClose(read));
    EXPECT_EQ(library_.BASS_ErrorGetCode(), ErrorCode::invalidHandle);
}

TEST_F(EngineEncode, WritesWma) {
    const Handle file = library_.BASS_WMA_EncodeOpenFile(44100, 65536, 64000, folder_ / "x.wma");
    ASSERT_NE(file, kNoHandle);
    EXPECT_TRUE(library_.BASS_WMA_EncodeSetTag(file, "Title", "Song"));
    EXPECT_TRUE(library_.BASS_WMA_EncodeSetTag(file, "", ""));
    const std::vector<std::int16_t> samples = test::ramp(88200);
    EXPECT_TRUE(library_.BASS_WMA_EncodeWrite(file, std::as_bytes(std::span(samples))));
    EXPECT_TRUE(library_.BASS_WMA_EncodeClose(file));
    EXPECT_EQ(endOf(file).stage, EncodeStage::finished);
    EXPECT_NE(library_.BASS_WMA_StreamCreateFile(false, folder_ / "x.wma", 0, 0, kRead), kNoHandle);

    const Handle full = library_.BASS_WMA_EncodeOpenFile(44100, 65536, 64000, "/dev/full");
    static_cast<void>(library_.BASS_WMA_EncodeWrite(full, std::as_bytes(std::span(samples))));
    static_cast<void>(library_.BASS_WMA_EncodeClose(full));
    EXPECT_EQ(endOf(full).stage, EncodeStage::failed);
    EXPECT_FALSE(library_.BASS_WMA_EncodeWrite(full, std::as_bytes(std::span(samples))));
    EXPECT_EQ(library_.BASS_ErrorGetCode(), ErrorCode::cannotCreateFile);
    // The ends of both make room for the next.
    static_cast<void>(library_.BASS_WMA_EncodeOpenFile(44100, 65536, 64000, folder_ / "y.wma"));
    EXPECT_EQ(library_.encodeReport(full), std::nullopt);
}

} // namespace tovik::sound
