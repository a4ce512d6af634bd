// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/INI.h"

#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;

class INITest : public testing::Test {
protected:
    INITest() {
        ini_.Path = folder_ / "x.ini";
        ini_.Section = "S";
        ini_.Key = "K";
    }

    void write(const std::string& bytes) const { folder_.write("x.ini", bytes); }

    [[nodiscard]] std::string file() const { return folder_.read("x.ini"); }

    test::TemporaryFolder folder_;
    INI ini_;
};

TEST_F(INITest, aValueAndItsLength) {
    write("[s]\r\nk = a b \r\n");
    EXPECT_EQ(ini_.Value(), "a b");
    EXPECT_EQ(ini_.LastReturnCode(), 3);
}

TEST_F(INITest, theFileIsReadAnewEachTime) {
    write("[S]\nK=1\n");
    EXPECT_EQ(ini_.Value(), "1");
    write("[S]\nK=2\n");
    EXPECT_EQ(ini_.Value(), "2");
}

TEST_F(INITest, missingReadsAsTheDefault) {
    EXPECT_EQ(ini_.Value(), "");
    EXPECT_EQ(ini_.LastReturnCode(), 0);
    ini_.Default = "none";
    EXPECT_EQ(ini_.Value(), "none");
    EXPECT_EQ(ini_.LastReturnCode(), 4);
    write("[S]\nL=1\n");
    EXPECT_EQ(ini_.Value(), "none");
    write("[S]\nK=\n");
    EXPECT_EQ(ini_.Value(), "") << "it is there, and empty";
}

TEST_F(INITest, valuesAreCutAt254BytesAndNeverInACharacter) {
    write("[S]\nK=" + std::string(255, 'a') + "\nL=" + std::string(253, 'a') + "\u010D\n");
    EXPECT_EQ(ini_.Value(), std::string(254, 'a'));
    EXPECT_EQ(ini_.LastReturnCode(), 254);
    ini_.Key = "L";
    EXPECT_EQ(ini_.Value(), std::string(253, 'a'));
    ini_.Key = "M";
    ini_.Default = std::string(300, 'd');
    EXPECT_EQ(ini_.Value(), std::string(254, 'd'));
}

TEST_F(INITest, aValueIsSetInItsPlace) {
    write("; first\r\n[R]\nK=r\n\n[S]\r\nA=1\r\n k = old \r\nB=2\r\n\r\n[T]\r\nK=t");
    ini_.Value("new");
    EXPECT_EQ(ini_.LastReturnCode(), 1);
    EXPECT_EQ(file(), "; first\r\n[R]\nK=r\n\n[S]\r\nA=1\r\nK=new\r\nB=2\r\n\r\n[T]\r\nK=t");
    EXPECT_EQ(ini_.Value(), "new");
}

TEST_F(INITest, aNewKeyStandsBehindTheOthersOfItsSection) {
    write("[S]\r\nA=1\r\n\r\n[T]\r\nK=t\r\n");
    ini_.Value("new");
    EXPECT_EQ(file(), "[S]\r\nA=1\r\nK=new\r\n\r\n[T]\r\nK=t\r\n");
    ini_.Section = "T";
    ini_.Key = "L";
    ini_.Value("x");
    EXPECT_EQ(file(), "[S]\r\nA=1\r\nK=new\r\n\r\n[T]\r\nK=t\r\nL=x\r\n");
}

TEST_F(INITest, aNewSectionStandsAtTheEnd) {
    write("[T]\r\nK=t");
    ini_.Value("new");
    EXPECT_EQ(file(), "[T]\r\nK=t\r\n[S]\r\nK=new\r\n");
}

TEST_F(INITest, aNewFileComesWithItsFirstKey) {
    ini_.Value("new");
    EXPECT_EQ(ini_.LastReturnCode(), 1);
    EXPECT_EQ(file(), "[S]\r\nK=new\r\n");
}

TEST_F(INITest, aValueIsOneLineWithoutZeros) {
    using namespace std::string_literals;
    ini_.Value("a\0b\r\nL=1"s);
    EXPECT_EQ(file(), "[S]\r\nK=ab  L=1\r\n");
    EXPECT_EQ(ini_.Value(), "ab  L=1");
}

TEST_F(INITest, aValueIsDeleted) {
    write("[S]\nA=1\nK=2\nB=3\n");
    ini_.DeleteValue();
    EXPECT_EQ(ini_.LastReturnCode(), 1);
    EXPECT_EQ(file(), "[S]\nA=1\nB=3\n");
    ini_.DeleteValue();
    EXPECT_EQ(ini_.LastReturnCode(), 1);
    EXPECT_EQ(file(), "[S]\nA=1\nB=3\n");
}

TEST_F(INITest, aSectionIsDeletedWithAllThatIsInIt) {
    const std::string bytes = "[R]\nA=1\n[S]\nK=2\n; note\n\n[T]\nB=3\n";
    write(bytes);
    ini_.DeleteSection();
    EXPECT_EQ(file(), "[R]\nA=1\n[T]\nB=3\n");
    write(bytes);
    ini_.INISection("K=7");
    EXPECT_EQ(file(), "[R]\nA=1\n[T]\nB=3\n") << "a change without a key deletes the section";
    EXPECT_EQ(ini_.LastReturnCode(), 1);
}

TEST_F(INITest, theNamesOfTheKeysOfASection) {
    using namespace std::string_literals;
    write("[R]\nX=1\n[S]\n Second = 1\n;Note=1\nwords\nFirst=2\n[T]\nY=1\n");
    EXPECT_EQ(ini_.INISection(), "Second\0First"s);
    EXPECT_EQ(ini_.LastReturnCode(), 12);
    ini_.Section = "none";
    EXPECT_EQ(ini_.INISection(), "");
    EXPECT_EQ(ini_.LastReturnCode(), 0);
}

TEST_F(INITest, aChangeThatFailsSaysSoAndRaisesNothing) {
    ini_.Path = folder_ / "missing/x.ini";
    ini_.Value("new");
    EXPECT_EQ(ini_.LastReturnCode(), 0);
    EXPECT_FALSE(fs::exists(ini_.Path));
    fs::create_directory(folder_ / "folder.ini");
    ini_.Path = folder_ / "folder.ini";
    ini_.Value("new");
    EXPECT_EQ(ini_.LastReturnCode(), 0);
    ini_.DeleteValue();
    EXPECT_EQ(ini_.LastReturnCode(), 0);
    ini_.DeleteSection();
    EXPECT_EQ(ini_.LastReturnCode(), 0);
    EXPECT_EQ(ini_.Value(), "");
}

} // namespace
} // namespace tovik::config
