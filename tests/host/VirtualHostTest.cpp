// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/virtual/RenderHost.h"
#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace tovik::host {
namespace {

TEST(VirtualClock, timeGoesOnOnlyWhenTold) {
    const Dispatcher dispatcher;
    VirtualClock clock(dispatcher);
    EXPECT_EQ(clock.monotonicMs(), 0);
    clock.advanceTo(500);
    EXPECT_EQ(clock.monotonicMs(), 500);
    clock.advanceTo(100);
    EXPECT_EQ(clock.monotonicMs(), 500);
}

TEST(VirtualClock, wallTimeRunsOverTheEndsOfDaysAndYears) {
    const Dispatcher dispatcher;
    VirtualClock clock(dispatcher, {1999, 12, 31, 23, 59, 58});
    EXPECT_EQ(clock.localTime(), (LocalTime{1999, 12, 31, 23, 59, 58}));
    clock.advanceTo(1999);
    EXPECT_EQ(clock.localTime(), (LocalTime{1999, 12, 31, 23, 59, 59}));
    clock.advanceTo(2000);
    EXPECT_EQ(clock.localTime(), (LocalTime{2000, 1, 1, 0, 0, 0}));
    clock.advanceTo(2000 + (31LL + 28) * 86400000 + 3723000);
    EXPECT_EQ(clock.localTime(), (LocalTime{2000, 2, 29, 1, 2, 3}));
}

TEST(UnattendedDialogs, boxesHaveTheirDefaultAndDialogsAreCancelled) {
    UnattendedDialogs dialogs;
    testing::internal::CaptureStderr();
    EXPECT_EQ(dialogs.showMessage({.text = "Stop the rip?",
                                   .title = "Rip",
                                   .icon = MessageIcon::Question,
                                   .buttons = MessageButtons::YesNo,
                                   .defaultAnswer = MessageAnswer::No}),
              MessageAnswer::No);
    EXPECT_TRUE(dialogs.openFiles({}).empty());
    EXPECT_EQ(dialogs.saveFile({}), std::nullopt);
    EXPECT_EQ(dialogs.chooseFolder({}), std::nullopt);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::HasSubstr("tovik: [Rip] Stop the rip?\n"));
}

/// The times and chances of a run with the program's usual timers.
std::vector<std::string> run() {
    test::TemporaryFolder folder;
    RenderHost render(folder.path(), {6, 1}, "");
    const Host host = render.host();
    std::vector<std::string> story;
    std::vector<std::unique_ptr<Timer>> timers;
    for (const int interval : {500, 250, 1000, 180, 100}) {
        timers.push_back(host.timers.makeTimer([&story, host, interval] {
            story.push_back(std::to_string(interval) + "@" +
                            std::to_string(host.clock.monotonicMs()) + " " +
                            std::to_string(host.random.next()));
        }));
        timers.back()->setInterval(interval);
        timers.back()->setEnabled(true);
    }
    while (render.clock().nextDue().value_or(10001) <= 10000) {
        render.clock().advanceTo(*render.clock().nextDue());
    }
    return story;
}

TEST(RenderHost, everyRunIsTheSame) {
    const auto first = run();
    EXPECT_EQ(first.size(), 20U + 40 + 10 + 55 + 100);
    EXPECT_EQ(first, run());
}

TEST(RenderHost, isNoInstanceStartsNothingAndNotesTheEnd) {
    test::TemporaryFolder folder;
    RenderHost render(folder.path(), {6, 1}, "/usr/bin:/bin");
    const Host host = render.host();
    EXPECT_TRUE(host.lock.hold());
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    EXPECT_TRUE(host.programs.start("true.exe", {}));
    EXPECT_FALSE(host.programs.start("nowhere.exe", {}));
    EXPECT_EQ(render.endStatus(), std::nullopt);
    host.closing.endProcess(4);
    EXPECT_EQ(render.endStatus(), 4);
    EXPECT_FALSE(host.pump.Step());
}

} // namespace
} // namespace tovik::host
