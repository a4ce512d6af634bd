// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/FolderLock.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <optional>
#include <thread>

namespace tovik::host {
namespace {

using namespace std::chrono_literals;

TEST(FolderLock, oneHoldsItAtATimeAndTheNextOneWaits) {
    const test::TemporaryFolder folder;
    std::optional<FolderLock> first(std::in_place, folder.path());
    ASSERT_TRUE(first->held());
    EXPECT_FALSE(FolderLock(folder.path(), 0ms).held());
    std::atomic<bool> released = false;
    std::thread holder([&] {
        std::this_thread::sleep_for(20ms);
        released = true;
        first.reset();
    });
    const FolderLock second(folder.path());
    EXPECT_TRUE(released);
    EXPECT_TRUE(second.held());
    holder.join();
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(FolderLock, aFolderThatIsMissingIsNotWaitedFor) {
    const test::TemporaryFolder folder;
    EXPECT_FALSE(FolderLock(folder / "none").held());
}

} // namespace
} // namespace tovik::host
