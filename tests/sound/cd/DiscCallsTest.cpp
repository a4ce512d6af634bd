// SPDX-License-Identifier: GPL-3.0-or-later
// What is told of drives and discs, and when.
#include "sound/cd/DiscRig.h"

#include <chrono>
#include <gtest/gtest.h>

namespace tovik::sound {

using test::DiscRig;
using test::DriveScript;
using test::EngineRig;
using test::kHeard;
using test::tocOf;
using namespace std::chrono_literals;

TEST(DiscCalls, TellNothingWithoutADrive) {
    EngineRig rig;
    SoundLibrary& engine = rig.engine;
    test::awaitLook(engine);
    EXPECT_FALSE(engine.BASS_CD_GetDriveDescription(0));
    EXPECT_EQ(engine.BASS_ErrorGetCode(), ErrorCode::illegalDevice);
    EXPECT_EQ(engine.BASS_CD_GetDriveLetter(0), -1);
    BASS_CD_INFO info;
    EXPECT_FALSE(engine.BASS_CD_GetInfo(0, info));
    EXPECT_FALSE(engine.BASS_CD_IsReady(0));
    EXPECT_EQ(engine.BASS_CD_GetTracks(0), -1);
    EXPECT_EQ(engine.BASS_CD_GetTrackLength(0, 0), -1);
    EXPECT_FALSE(engine.BASS_CD_GetID(0, BASS_CDID_TEXT));
    EXPECT_FALSE(engine.BASS_CD_Door(0, BASS_CD_DOOR_LOCK));
    EXPECT_EQ(engine.BASS_CD_StreamCreate(0, 0, kHeard), kNoHandle);
    EXPECT_EQ(engine.discNumber(0), 0U);
    EXPECT_FALSE(engine.discToc(0));
}

TEST(DiscCalls, TellOfNoDriveBeforeTheFirstLook) {
    const auto script = std::make_shared<DriveScript>();
    EngineRig rig({.drives = DriveScript::options({script})});
    EXPECT_FALSE(rig.engine.BASS_CD_GetDriveDescription(0));
    test::awaitLook(rig.engine);
    EXPECT_EQ(rig.engine.BASS_CD_GetDriveDescription(0), "Drive of a test");
}

TEST(DiscCalls, LookByThemselvesForWhoPlaysATrackFirst) {
    const auto script = std::make_shared<DriveScript>();
    script->insert(tocOf({75}));
    EngineRig rig({.drives = DriveScript::options({script})});
    EXPECT_EQ(rig.engine.BASS_CD_GetDriveLetter(0), 3);
    EXPECT_NE(rig.engine.BASS_CD_StreamCreate(0, 0, kHeard), kNoHandle);
    EXPECT_EQ(script->facts().looks, 1);
}

TEST(DiscCalls, WaitForAFirstLookNoLongerThanForAFile) {
    const auto script = std::make_shared<DriveScript>();
    script->change([](auto& facts) { facts.hangs = true; });
    EngineRig rig({.openPatience = 30ms, .drives = DriveScript::options({script})});
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_EQ(rig.engine.BASS_CD_GetDriveLetter(0), 3);
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 1s);
    EXPECT_EQ(rig.engine.BASS_CD_GetDriveDescription(0), "0"); // its name, while nothing is known
    script->change([](auto& facts) { facts.hangs = false; });
}

TEST(DiscCalls, CountDrivesFromDAndTracksFromNought) {
    const auto first = std::make_shared<DriveScript>();
    const auto second = std::make_shared<DriveScript>();
    second->insert(tocOf({750, -300, 75}), std::string("TITLE0=A\0\0", 10));
    EngineRig rig({.drives = DriveScript::options({first, second})});
    SoundLibrary& engine = rig.engine;
    test::awaitLook(engine);
    EXPECT_EQ(engine.BASS_CD_GetDriveLetter(0), 3);
    EXPECT_EQ(engine.BASS_CD_GetDriveLetter(1), 4);
    EXPECT_EQ(engine.BASS_CD_GetDriveLetter(2), -1);
    EXPECT_FALSE(engine.BASS_CD_IsReady(0)); // there is no disc in it
    EXPECT_EQ(engine.BASS_CD_GetTracks(0), -1);
    EXPECT_TRUE(engine.BASS_CD_IsReady(1));
    EXPECT_EQ(engine.BASS_CD_GetTracks(1), 3);
    EXPECT_EQ(engine.BASS_CD_GetTrackLength(1, 0), 1764000);
    EXPECT_EQ(engine.BASS_CD_GetTrackLength(1, 1), 0); // data
    EXPECT_EQ(engine.BASS_CD_GetTrackLength(1, 2), 176400);
    EXPECT_EQ(engine.BASS_CD_GetTrackLength(1, 3), -1);
    EXPECT_EQ(engine.BASS_CD_GetID(1, BASS_CDID_TEXT), std::string("TITLE0=A\0\0", 10));
    EXPECT_FALSE(engine.BASS_CD_GetID(1, 1));
    EXPECT_EQ(engine.discToc(1), tocOf({750, -300, 75}));
}

TEST(DiscCalls, WantARecordOfTheRightSize) {
    DiscRig rig(tocOf({75}));
    BASS_CD_INFO info;
    info.size = 20;
    EXPECT_FALSE(rig.engine.BASS_CD_GetInfo(0, info));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
    info.size = 24;
    EXPECT_TRUE(rig.engine.BASS_CD_GetInfo(0, info));
    EXPECT_TRUE(info.canlock);
}

TEST(DiscCalls, LockAndUnlockTheDoorWithoutWaiting) {
    DiscRig rig(tocOf({75}));
    EXPECT_TRUE(rig.engine.BASS_CD_Door(0, BASS_CD_DOOR_LOCK));
    EXPECT_TRUE(rig.engine.BASS_CD_Door(0, BASS_CD_DOOR_UNLOCK));
    EXPECT_FALSE(rig.engine.BASS_CD_Door(0, 4));
    EXPECT_TRUE(eventually([&] {
        return rig.script->facts().doors ==
               std::vector<DoorAction>{DoorAction::lock, DoorAction::unlock};
    }));
    rig.script->change([](auto& facts) { facts.refusesDoor = true; });
    EXPECT_TRUE(rig.engine.BASS_CD_Door(0, BASS_CD_DOOR_OPEN)); // what comes of it is ignored
}

TEST(DiscCalls, UnlockADoorThatIsStillLockedAtTheEnd) {
    const auto script = std::make_shared<DriveScript>();
    script->insert(tocOf({75}));
    {
        EngineRig rig({.drives = DriveScript::options({script})});
        test::awaitLook(rig.engine);
        EXPECT_TRUE(rig.engine.BASS_CD_Door(0, BASS_CD_DOOR_LOCK));
        ASSERT_TRUE(eventually([&] { return script->facts().doors.size() == 1; }));
        script->change([](auto& facts) { facts.hangs = true; });
        rig.engine.lookAtDrives();
        EXPECT_TRUE(rig.engine.BASS_CD_Door(0, BASS_CD_DOOR_UNLOCK)); // it never has its turn
    }
    script->change([](auto& facts) { facts.hangs = false; });
    const std::vector both{DoorAction::lock, DoorAction::unlock};
    EXPECT_TRUE(eventually([&] { return script->facts().doors == both; }));
}

TEST(DiscCalls, HaveNoMoreDrivesThanLetters) {
    const std::vector<std::shared_ptr<DriveScript>> many(25, std::make_shared<DriveScript>());
    EngineRig rig({.drives = DriveScript::options(many)});
    test::awaitLook(rig.engine);
    EXPECT_EQ(rig.engine.BASS_CD_GetDriveLetter(22), 'Z' - 'A');
    EXPECT_EQ(rig.engine.BASS_CD_GetDriveLetter(23), -1);
    EXPECT_FALSE(rig.engine.BASS_CD_GetDriveDescription(23));
}

TEST(DiscCalls, WaitForALookThatWasJustBegun) {
    const auto script = std::make_shared<DriveScript>();
    script->insert(tocOf({75}));
    EngineRig rig({.drives = DriveScript::options({script})});
    rig.engine.lookAtDrives();
    EXPECT_EQ(rig.engine.BASS_CD_GetDriveLetter(0), 'D' - 'A');
    EXPECT_EQ(rig.engine.BASS_CD_GetTracks(0), 1);
}

TEST(DiscCalls, AnswerWhileADriveDoesNot) {
    DiscRig rig(tocOf({75}));
    rig.script->change([](auto& facts) { facts.hangs = true; });
    rig.engine.lookAtDrives();
    EXPECT_TRUE(rig.engine.lookingAtDrives());
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_EQ(rig.engine.BASS_CD_GetTracks(0), 1); // as it was found before
    EXPECT_TRUE(rig.engine.BASS_CD_Door(0, BASS_CD_DOOR_LOCK));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 50ms);
    rig.script->change([](auto& facts) { facts.hangs = false; });
    EXPECT_TRUE(eventually([&] { return !rig.engine.lookingAtDrives(); }));
}

TEST(DiscCalls, LeaveADriveThatDoesNotAnswerAloneAtTheEnd) {
    const auto script = std::make_shared<DriveScript>();
    script->change([](auto& facts) { facts.hangs = true; });
    const auto begun = std::chrono::steady_clock::now();
    {
        EngineRig rig({.drives = DriveScript::options({script})});
        rig.engine.lookAtDrives();
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 2s);
    script->change([](auto& facts) { facts.hangs = false; });
}

TEST(DiscCalls, GiveAnotherDiscAnotherNumber) {
    DiscRig rig(tocOf({75, 75}));
    const auto first = rig.engine.discNumber(0);
    EXPECT_GT(first, 0U);
    test::awaitLook(rig.engine);
    EXPECT_EQ(rig.engine.discNumber(0), first); // the same one
    rig.script->insert(tocOf({80}));
    test::awaitLook(rig.engine);
    const auto second = rig.engine.discNumber(0);
    EXPECT_NE(second, first);
    EXPECT_EQ(rig.engine.BASS_CD_GetTracks(0), 1);
    rig.script->insert({});
    test::awaitLook(rig.engine);
    EXPECT_NE(rig.engine.discNumber(0), second);
    EXPECT_FALSE(rig.engine.BASS_CD_IsReady(0));
}

TEST(DiscCalls, LookForAnotherDiscByThemselvesWhileWatched) {
    DiscRig rig(tocOf({75}), {.drives = {.watchPeriod = 10ms}});
    const auto first = rig.engine.discNumber(0);
    rig.engine.watchDrive(0, true);
    rig.script->insert(tocOf({90}));
    EXPECT_TRUE(eventually([&] { return rig.engine.discNumber(0) != first; }));
    EXPECT_EQ(rig.engine.BASS_CD_GetTrackLength(0, 0), 90 * 2352);
    rig.engine.watchDrive(0, false);
    const int looks = rig.script->facts().looks;
    EXPECT_EQ(looks, 2); // one for each disc: asking whether it has changed is none
}

TEST(DiscCalls, ForgetADriveThatWasUnplugged) {
    DiscRig rig(tocOf({75}));
    rig.script->change([](auto& facts) { facts.gone = true; });
    test::awaitLook(rig.engine);
    EXPECT_FALSE(rig.engine.BASS_CD_GetDriveDescription(0));
    rig.script->change([](auto& facts) { facts.gone = false; });
    test::awaitLook(rig.engine);
    EXPECT_EQ(rig.engine.BASS_CD_GetTracks(0), 1);
}

TEST(DiscCalls, MakeNoStreamOfWhatIsNoAudioTrack) {
    DiscRig rig(tocOf({75, -75}));
    EXPECT_EQ(rig.engine.BASS_CD_StreamCreate(0, 1, kHeard), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::unsupportedFormat);
    EXPECT_EQ(rig.engine.BASS_CD_StreamCreate(0, 2, kHeard), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::cannotOpenFile);
    EXPECT_EQ(rig.engine.BASS_CD_StreamCreate(0, UINT32_MAX, kHeard), kNoHandle); // "Track0.cda"
    EXPECT_EQ(rig.engine.BASS_CD_StreamCreate(0, 1, test::kRip), kNoHandle);
    rig.engine.BASS_Free();
    EXPECT_EQ(rig.engine.BASS_CD_StreamCreate(0, 0, kHeard), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notInitialized);
    EXPECT_EQ(rig.engine.BASS_CD_GetTracks(0), 2); // drives do not depend on the output
}

} // namespace tovik::sound
