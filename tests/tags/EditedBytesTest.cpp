// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/EditedBytes.h"

#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>

namespace tovik::tags {
namespace {

std::string allOf(EditedBytes& bytes) {
    return bytes.read(0, static_cast<std::size_t>(bytes.size()));
}

TEST(EditedBytes, takesInsertsRemovalsAndOverwriting) {
    EditedBytes bytes("abcdef");
    bytes.replace(2, 0, "XY");
    EXPECT_EQ(allOf(bytes), "abXYcdef");
    bytes.replace(0, 3, "");
    EXPECT_EQ(allOf(bytes), "Ycdef");
    bytes.replace(3, 10, "end");
    EXPECT_EQ(allOf(bytes), "Ycdend");
    bytes.replace(8, 0, "!");
    EXPECT_EQ(allOf(bytes), std::string("Ycdend\0\0!", 9)) << "what is behind the end is filled up";
    EXPECT_EQ(bytes.read(4, 100), std::string("nd\0\0!", 5));
    EXPECT_EQ(bytes.read(9, 1), "");
    EXPECT_EQ(bytes.read(-1, 1), "");
}

TEST(EditedBytes, isWhatAPlainTextWouldBe) {
    std::mt19937 random(7);
    std::string plain = "0123456789";
    EditedBytes bytes(plain);
    for (int i = 0; i < 500; ++i) {
        const std::size_t offset = random() % (plain.size() + 1);
        const std::size_t count = std::min<std::size_t>(random() % 4, plain.size() - offset);
        const std::string fresh(random() % 4, static_cast<char>('a' + i % 26));
        plain.replace(offset, count, fresh);
        bytes.replace(static_cast<std::int64_t>(offset), static_cast<std::int64_t>(count), fresh);
        ASSERT_EQ(allOf(bytes), plain);
        ASSERT_EQ(bytes.read(3, 5), plain.size() > 3 ? plain.substr(3, 5) : "");
    }
}

TEST(EditedBytes, nothingIsWrittenBeforeItIsCopied) {
    const test::TemporaryFolder folder;
    const std::string path = folder.path() + "/a";
    const std::string old(700000, 'o');
    std::ofstream(path) << old;
    EditedBytes bytes(path, base::RegularFile::Access::Read);
    ASSERT_FALSE(bytes.failure());
    bytes.replace(300000, 1, "new");
    std::string now;
    ASSERT_FALSE(base::readWholeFile(path, now));
    EXPECT_EQ(now, old);
    base::AtomicFile copy(path);
    ASSERT_FALSE(bytes.copyTo(copy));
    ASSERT_FALSE(copy.commit(base::Flush::No));
    ASSERT_FALSE(base::readWholeFile(path, now));
    EXPECT_EQ(now, std::string(300000, 'o') + "new" + std::string(399999, 'o'));
}

TEST(EditedBytes, whatIsNoFileIsTold) {
    const test::TemporaryFolder folder;
    EXPECT_TRUE(EditedBytes(folder.path() + "/none", base::RegularFile::Access::Read).failure());
    EditedBytes bytes(folder.path(), base::RegularFile::Access::Read);
    EXPECT_TRUE(bytes.failure());
    EXPECT_EQ(bytes.size(), 0);
    EXPECT_EQ(bytes.read(0, 10), "");
}

} // namespace
} // namespace tovik::tags
