// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/LaidFiles.h"

#include "base/Digest.h"
#include "host/EarlierFiles.h"
#include "support/host/FullDisk.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::host {
namespace {

namespace fs = std::filesystem;

/// A shipped file of the time before folders remembered.
constexpr std::string_view kEarlierServer =
    R"(; The server that the player asks for the titles of a disc: any that speaks the CDDB protocol over
; HTTP. A port and a path may stand behind its name ("db.example:8880/~cddb/cddb.cgi"), "https://" in
; front of it. Without a name nothing is asked for. The mail address is sent along; without one the
; player says "anonymous".
[server]
host=gnudb.gnudb.org
mail=
)";

class LaidFilesTest : public testing::Test {
protected:
    LaidFilesTest() {
        folder_.write("shipped/db/settings.xml", "<Settings/>");
        folder_.write("shipped/Languages/English.lng", "new words");
        folder_.write("shipped/vh.txt", "new history");
        folder_.write("data/db/settings.xml", "<Settings>mine</Settings>");
        folder_.write("data/Languages/English.lng", "old words");
        folder_.write("data/vh.txt", "old history");
    }

    std::error_code renew() { return renewShippedFiles(paths_, folder_ / "shipped", laid_); }

    void remember(const std::string& name, const std::string& bytes) {
        laid_.digests[name] = base::digestOf(bytes);
    }

    [[nodiscard]] bool remembers(const std::string& name, const std::string& bytes) const {
        const auto row = laid_.digests.find(name);
        return row != laid_.digests.end() && row->second == base::digestOf(bytes);
    }

    test::TemporaryFolder folder_;
    Paths paths_{folder_ / "data"};
    LaidFiles laid_{.version = "0.1.0", .digests = {}};
};

TEST_F(LaidFilesTest, theMemoryIsReadAsItWasWritten) {
    remember("Languages/My own words.lng", "x");
    remember("vh.txt", "y");
    ASSERT_FALSE(writeLaidFiles(paths_, laid_));
    const auto read = readLaidFiles(paths_);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->version, "0.1.0");
    EXPECT_EQ(read->digests, laid_.digests);
    EXPECT_EQ(folder_.read("data/db/laid.txt"),
              "Tovik 0.1.0\naf63f54c86021707 Languages/My own words.lng\n"
              "af63f44c86021554 vh.txt\n");
}

TEST_F(LaidFilesTest, noMemoryAndADamagedOneAreNone) {
    EXPECT_FALSE(readLaidFiles(paths_));
    for (const char* text : {"", "\n", "Tovi", "0123456789abcdef vh.txt\n"}) {
        folder_.write("data/db/laid.txt", text);
        EXPECT_FALSE(readLaidFiles(paths_)) << text;
    }
    EXPECT_EQ(LaidFiles::fromText("Tovik 1\nrubbish\n\n")->digests.size(), 0U);
}

TEST_F(LaidFilesTest, versionsAreComparedByTheirNumbers) {
    for (const auto& [newer, older] : {std::pair{"0.10", "0.9"},
                                       {"1", "0.99.99"},
                                       {"0.1.1", "0.1"},
                                       {"0.1.0", ""},
                                       {"0.1", "rubbish"}}) {
        EXPECT_TRUE(isNewer(newer, older)) << newer;
        EXPECT_FALSE(isNewer(older, newer)) << newer;
    }
    EXPECT_FALSE(isNewer("0.1.0", "0.1"));
    EXPECT_FALSE(isNewer("0.1", "0.1.0"));
}

TEST_F(LaidFilesTest, aMissingFileIsLaid) {
    fs::remove(folder_ / "data/vh.txt");
    fs::remove_all(folder_ / "data/Languages");
    EXPECT_FALSE(renew());
    EXPECT_EQ(folder_.read("data/vh.txt"), "new history");
    EXPECT_EQ(folder_.read("data/Languages/English.lng"), "new words");
    EXPECT_TRUE(remembers("vh.txt", "new history"));
}

TEST_F(LaidFilesTest, aFileAsItWasLaidIsRenewed) {
    remember("Languages/English.lng", "old words");
    EXPECT_FALSE(renew());
    EXPECT_EQ(folder_.read("data/Languages/English.lng"), "new words");
    EXPECT_TRUE(remembers("Languages/English.lng", "new words"));
    EXPECT_EQ(folder_.read("data/vh.txt"), "old history"); // nobody knows who wrote this one
    EXPECT_FALSE(laid_.digests.contains("vh.txt"));
}

TEST_F(LaidFilesTest, aChangedFileStays) {
    remember("vh.txt", "what was laid");
    EXPECT_FALSE(renew());
    EXPECT_EQ(folder_.read("data/vh.txt"), "old history");
    EXPECT_TRUE(remembers("vh.txt", "what was laid"));
}

TEST_F(LaidFilesTest, aFileThatIsTheNewOneAlreadyIsRemembered) {
    folder_.write("data/vh.txt", "new history");
    const auto before = fs::last_write_time(folder_ / "data/vh.txt");
    EXPECT_FALSE(renew());
    EXPECT_TRUE(remembers("vh.txt", "new history"));
    EXPECT_EQ(fs::last_write_time(folder_ / "data/vh.txt"), before);
}

TEST_F(LaidFilesTest, namesInAnotherCaseAreTheSameFile) {
    fs::rename(folder_ / "data/Languages", folder_ / "data/languages");
    remember("Languages/English.lng", "old words");
    EXPECT_FALSE(renew());
    EXPECT_EQ(folder_.read("data/languages/English.lng"), "new words");
    EXPECT_FALSE(fs::exists(folder_ / "data/Languages"));
}

TEST_F(LaidFilesTest, settingsAreTheUsers) {
    remember("db/settings.xml", "<Settings>mine</Settings>");
    EXPECT_FALSE(renew());
    EXPECT_EQ(folder_.read("data/db/settings.xml"), "<Settings>mine</Settings>");
}

TEST_F(LaidFilesTest, aRenewedFileCanBeWritten) {
    fs::permissions(folder_ / "shipped/vh.txt", fs::perms(0444));
    remember("vh.txt", "old history");
    EXPECT_FALSE(renew());
    EXPECT_EQ(fs::status(folder_ / "data/vh.txt").permissions() & fs::perms::owner_write,
              fs::perms::owner_write);
}

TEST_F(LaidFilesTest, aFolderThatCannotBeWrittenKeepsNoOtherFromIt) {
    remember("Languages/English.lng", "old words");
    remember("vh.txt", "old history");
    fs::permissions(folder_.path(), fs::perms(0755));
    fs::permissions(folder_ / "data", fs::perms(0777));
    fs::permissions(folder_ / "data/vh.txt", fs::perms(0666));
    fs::permissions(folder_ / "data/Languages", fs::perms(0555));
    {
        const test::Unprivileged user;
        EXPECT_EQ(renew(), std::errc::permission_denied);
    }
    EXPECT_EQ(folder_.read("data/vh.txt"), "new history");
    EXPECT_EQ(folder_.read("data/Languages/English.lng"), "old words");
    EXPECT_TRUE(
        remembers("Languages/English.lng", "old words")); // so that the next start tries again
}

TEST_F(LaidFilesTest, aFullDiskLeavesTheOldFileWhole) {
    folder_.write("shipped/vh.txt", std::string(1000, 'n'));
    remember("vh.txt", "old history");
    {
        const test::FullDisk full(100);
        EXPECT_EQ(renew(), std::errc::file_too_large);
    }
    EXPECT_EQ(folder_.read("data/vh.txt"), "old history");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "data"), fs::directory_iterator()), 3);
    EXPECT_FALSE(renew());
    EXPECT_EQ(folder_.read("data/vh.txt"), std::string(1000, 'n'));
}

TEST_F(LaidFilesTest, whatWasLaidBeforeThereWasAMemoryIsRecognised) {
    EXPECT_TRUE(recognisedFiles(paths_).digests.empty());
    folder_.write("data/CDDB/server.ini", kEarlierServer);
    const LaidFiles found = recognisedFiles(paths_);
    EXPECT_EQ(found.version, "");
    ASSERT_EQ(found.digests.size(), 1U);
    EXPECT_EQ(found.digests.at("CDDB/server.ini"), base::digestOf(kEarlierServer));
}

} // namespace
} // namespace tovik::host
