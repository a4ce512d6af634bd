// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/UnpackSkin.h"

#include "base/RuntimeError.h"
#include "skin/HuffmanEncoder.h"
#include "skin/LittleEndian.h"
#include "skin/PackageBytes.h"
#include "skin/SkinPackage.h"
#include "skin/Streams.h"
#include "support/host/TestHost.h"
#include "support/host/Unprivileged.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

namespace tovik::skin {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

class UnpackSkinTest : public testing::Test {
protected:
    void put(const std::string& package) { host_.folder.write("skins/base.tsf", package); }

    void unpack() { UnpackSkin(host_.paths, host_.dialogs); }

    /// The files of the skin's folder with their bytes.
    [[nodiscard]] std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> found;
        for (const auto& file : fs::directory_iterator(host_.folder / "skins/CurrentSkin")) {
            const std::string name = file.path().filename();
            found[name] = host_.folder.read("skins/CurrentSkin/" + name);
        }
        return found;
    }

    [[nodiscard]] bool scratchIsThere() const {
        return fs::exists(host_.folder / "skins/base.bin");
    }

    void expectFailure() const {
        ASSERT_THAT(host_.dialogs.boxes, SizeIs(1));
        EXPECT_EQ(host_.dialogs.boxes[0].text, "error!");
        EXPECT_EQ(host_.dialogs.boxes[0].title, "Tovik");
    }

    test::TestHost host_;
};

TEST_F(UnpackSkinTest, expandsThePackageOnce) {
    put(header(2) + entry("main.bmp", storedStream("picture")) +
        entry("play.bmp", huffmanStream("other picture")));
    unpack();
    EXPECT_THAT(files(),
                ElementsAre(Pair("main.bmp", "picture"), Pair("play.bmp", "other picture")));
    EXPECT_FALSE(scratchIsThere());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    host_.folder.write("skins/CurrentSkin/main.bmp", "changed");
    unpack();
    EXPECT_EQ(files()["main.bmp"], "changed");
}

TEST_F(UnpackSkinTest, oneStrayFileIsEnoughForAnUnpackedSkin) {
    put(header(1) + entry("main.bmp", storedStream("picture")));
    host_.folder.write("skins/CurrentSkin/notes.txt", "");
    unpack();
    EXPECT_THAT(files(), ElementsAre(Pair("notes.txt", "")));
    EXPECT_FALSE(scratchIsThere());
}

TEST_F(UnpackSkinTest, aFolderInsideIsNoFile) {
    put(header(1) + entry("main.bmp", storedStream("picture")));
    fs::create_directories(host_.folder / "skins/CurrentSkin/old");
    unpack();
    EXPECT_EQ(host_.folder.read("skins/CurrentSkin/main.bmp"), "picture");
}

TEST_F(UnpackSkinTest, foldersAreFoundInAnyCase) {
    host_.folder.write("Skins/Base.TSF", header(1) + entry("main.bmp", storedStream("picture")));
    fs::create_directories(host_.folder / "Skins/currentskin");
    unpack();
    EXPECT_EQ(host_.folder.read("Skins/currentskin/main.bmp"), "picture");
    EXPECT_FALSE(fs::exists(host_.folder / "skins"));
}

TEST_F(UnpackSkinTest, namesThatDifferInCaseAreOneFile) {
    put(header(2) + entry("Main.BMP", storedStream("the first one")) +
        entry("main.bmp", storedStream("second")));
    unpack();
    EXPECT_THAT(files(), ElementsAre(Pair("Main.BMP", "second")));
}

TEST_F(UnpackSkinTest, aPackageWithoutFilesIsUnpackedAtEachStart) {
    put(header(0));
    unpack();
    EXPECT_THAT(files(), IsEmpty());
    EXPECT_FALSE(scratchIsThere());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    put(header(1) + entry("main.bmp", storedStream("picture")));
    unpack();
    EXPECT_THAT(files(), SizeIs(1));
}

TEST_F(UnpackSkinTest, lessThanNoFilesAreNone) {
    put(header(-1));
    unpack();
    EXPECT_THAT(files(), IsEmpty());
    EXPECT_FALSE(scratchIsThere());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(UnpackSkinTest, whatFollowsTheLastFileIsNotRead) {
    put(header(1) + entry("main.bmp", storedStream("picture")) + "\x01\xFF\xFF\xFF\xFF tail");
    unpack();
    EXPECT_THAT(files(), SizeIs(1));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(UnpackSkinTest, anotherSignatureIsRefusedInSilence) {
    for (const std::string& signature : {"aTovik1234"s, "tovik12345"s, "Tovi\0Tovik"s}) {
        const std::string head = header(1, signature);
        put(head + entry("main.bmp", storedStream("picture")));
        unpack();
        EXPECT_THAT(files(), IsEmpty());
        EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
        // The copy of the header stays behind.
        EXPECT_EQ(host_.folder.read("skins/base.bin"), head);
    }
}

TEST_F(UnpackSkinTest, theRestOfTheSignatureIsFree) {
    put(header(1, "Tovik\0\0\0\0\0"s) + entry("main.bmp", storedStream("picture")));
    unpack();
    EXPECT_THAT(files(), SizeIs(1));
}

TEST_F(UnpackSkinTest, aMissingPackageIsTold) {
    unpack();
    expectFailure();
    EXPECT_THAT(files(), IsEmpty());
    EXPECT_FALSE(scratchIsThere());
}

TEST_F(UnpackSkinTest, aFailureKeepsWhatWasUnpackedAndIsNotTriedAgain) {
    HandMade damaged{.codes = {{'a', "0"}}, .bits = "00", .original = "aaa", .length = 2};
    const std::string head = header(3);
    put(head + entry("one.bmp", storedStream("1")) + entry("two.bmp", damaged.stream()) +
        entry("three.bmp", storedStream("3")));
    unpack();
    expectFailure();
    EXPECT_THAT(files(), ElementsAre(Pair("one.bmp", "1")));
    EXPECT_EQ(host_.folder.read("skins/base.bin"), head);
    put(header(1) + entry("main.bmp", storedStream("picture")));
    unpack();
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_THAT(files(), ElementsAre(Pair("one.bmp", "1")));
}

TEST_F(UnpackSkinTest, aFirstFileThatFailsLeavesNothingSoTheNextStartTriesAgain) {
    put(header(1) + entry("one.bmp", "HE3\r"));
    unpack();
    expectFailure();
    EXPECT_THAT(files(), IsEmpty());
    put(header(1) + entry("one.bmp", storedStream("1")));
    unpack();
    EXPECT_THAT(files(), SizeIs(1));
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(1));
}

TEST_F(UnpackSkinTest, aPackageCutAnywhereIsTold) {
    const std::string whole =
        header(2) + entry("one.bmp", storedStream("1")) + entry("two.bmp", storedStream("2"));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        fs::remove_all(host_.folder / "skins");
        host_.dialogs.boxes.clear();
        put(whole.substr(0, length));
        unpack();
        ASSERT_THAT(host_.dialogs.boxes, SizeIs(1)) << length;
        EXPECT_TRUE(scratchIsThere()) << length;
    }
}

TEST_F(UnpackSkinTest, payloadSizesOutsideTheFileAreTold) {
    for (const std::int32_t size : {-1, std::numeric_limits<std::int32_t>::min(), 100,
                                    std::numeric_limits<std::int32_t>::max()}) {
        fs::remove_all(host_.folder / "skins");
        host_.dialogs.boxes.clear();
        std::string bad = entry("one.bmp", storedStream("1"));
        std::string field;
        appendLittleEndian(field, size);
        put(header(1) + bad.replace(1, 4, field));
        unpack();
        expectFailure();
        EXPECT_THAT(files(), IsEmpty());
    }
}

TEST_F(UnpackSkinTest, anEmptyPayloadIsTold) {
    put(header(1) + entry("one.bmp", ""));
    unpack();
    expectFailure();
}

TEST_F(UnpackSkinTest, noNameLeavesTheFolder) {
    for (const std::string& name :
         {"../main.bmp"s, "..\\main.bmp"s, "/tmp/tovik-outside.bmp"s, "sub/main.bmp"s,
          "sub\\main.bmp"s, ".."s, "."s, ""s, "main.bmp\0.txt"s, "../CurrentSkin/main.bmp"s}) {
        SCOPED_TRACE(name);
        fs::remove_all(host_.folder / "skins");
        host_.dialogs.boxes.clear();
        put(header(2) + entry(name, storedStream("picture")) +
            entry("next.bmp", storedStream("picture")));
        fs::create_directories(host_.folder / "skins/CurrentSkin/sub");
        unpack();
        expectFailure();
        EXPECT_TRUE(fs::is_empty(host_.folder / "skins/CurrentSkin/sub"));
        fs::remove(host_.folder / "skins/CurrentSkin/sub");
        EXPECT_THAT(files(), IsEmpty());
        EXPECT_FALSE(fs::exists(host_.folder / "skins/main.bmp"));
        EXPECT_FALSE(fs::exists("/tmp/tovik-outside.bmp"));
    }
}

TEST_F(UnpackSkinTest, aPackageThatIsAFolderIsTold) {
    fs::create_directories(host_.folder / "skins/base.tsf");
    unpack();
    expectFailure();
}

TEST_F(UnpackSkinTest, aScratchFileThatCannotBeMadeIsTold) {
    put(header(1) + entry("one.bmp", storedStream("1")));
    fs::create_directories(host_.folder / "skins/base.bin");
    unpack();
    expectFailure();
    EXPECT_THAT(files(), IsEmpty());
}

TEST_F(UnpackSkinTest, aFolderThatCannotBeMadeIsRaised) {
    fs::permissions(host_.folder.path(), fs::perms(0555));
    const test::Unprivileged user;
    try {
        unpack();
        FAIL() << "nothing was raised";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.number(), 70);
    }
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(UnpackSkinTest, manyFilesAreUnpacked) {
    constexpr std::int16_t kFiles = 2000;
    std::string package = header(kFiles);
    for (int file = 0; file < kFiles; ++file) {
        package += entry("f" + std::to_string(file), storedStream(std::to_string(file)));
    }
    put(package);
    unpack();
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(files(), SizeIs(kFiles));
    EXPECT_EQ(files()["f1999"], "1999");
}

TEST(SkinPackage, readsWhatItMakes) {
    const std::string bytes =
        skinPackage({{"one.bmp", "data"}, {"two.bmp", std::string(500, 'x')}}, "A skin");
    SkinPackageReader reader(bytes);
    EXPECT_TRUE(reader.header().signedAsSkin());
    EXPECT_THAT(reader.header().texts, ElementsAre("A skin", "", "", ""));
    EXPECT_EQ(reader.header().fileCount, 2);
    EXPECT_TRUE(bytes.starts_with(reader.header().bytes));
    const SkinPackageEntry one = reader.next();
    EXPECT_EQ(one.fileName, "one.bmp");
    EXPECT_EQ(one.payload, storedStream("data"));
    const SkinPackageEntry two = reader.next();
    EXPECT_EQ(two.fileName, "two.bmp");
    EXPECT_EQ(HuffmanDecodeString(two.payload), std::string(500, 'x'));
    EXPECT_THROW(static_cast<void>(reader.next()), base::RuntimeError);
}

TEST(SkinPackage, holdsUpTo32767Files) {
    std::vector<SkinFile> files(32767);
    for (std::size_t file = 0; file < files.size(); ++file) {
        files[file].name = std::to_string(file);
    }
    const std::string bytes = skinPackage(files, "");
    SkinPackageReader reader(bytes);
    ASSERT_EQ(reader.header().fileCount, 32767);
    std::string last;
    for (std::size_t file = 0; file < files.size(); ++file) {
        last = reader.next().fileName;
    }
    EXPECT_EQ(last, "32766");
}

TEST(SkinPackage, isNotMadeOfWhatCannotBeUnpacked) {
    const auto made = [](const std::vector<SkinFile>& files) {
        return skinPackage(files, "").size();
    };
    EXPECT_THROW(made({{"../one.bmp", ""}}), base::RuntimeError);
    EXPECT_THROW(made({{"one.bmp", ""}, {"ONE.bmp", ""}}), base::RuntimeError);
    EXPECT_THROW(made({{std::string(70000, 'a'), ""}}), base::RuntimeError);
    EXPECT_THROW(made(std::vector<SkinFile>(32768)), base::RuntimeError);
}

class CompleteSkinTest : public UnpackSkinTest {
protected:
    CompleteSkinTest() {
        fs::create_directories(host_.folder / "skins/CurrentSkin");
        host_.folder.write("skins/CurrentSkin/main.bmp", "mine");
    }

    std::string package(const std::string& name, const std::vector<SkinFile>& files) {
        return host_.folder.write(name, skinPackage(files, ""));
    }

    void complete(const std::vector<std::string>& packages) {
        completeSkin(host_.paths, {"new_a.bmp", "new_b.bmp"}, packages);
        EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    }
};

TEST_F(CompleteSkinTest, takesWhatIsMissingFromTheFirstPackageThatHasIt) {
    const std::string old = package("old.tsf", {{"main.bmp", "old"}});
    const std::string recent =
        package("recent.tsf", {{"New_A.bmp", "a"}, {"main.bmp", "other"}, {"new_b.bmp", "b"}});
    const std::string last = package("last.tsf", {{"new_a.bmp", "z"}});
    complete({host_.folder / "none.tsf", old, recent, last});
    EXPECT_THAT(files(), ElementsAre(Pair("New_A.bmp", "a"), Pair("main.bmp", "mine"),
                                     Pair("new_b.bmp", "b")));
}

TEST_F(CompleteSkinTest, aFolderThatHasSomeOfThemIsLeftAlone) {
    host_.folder.write("skins/CurrentSkin/new_b.bmp", "mine");
    complete({package("recent.tsf", {{"new_a.bmp", "a"}, {"new_b.bmp", "b"}})});
    EXPECT_THAT(files(), ElementsAre(Pair("main.bmp", "mine"), Pair("new_b.bmp", "mine")));
}

TEST_F(CompleteSkinTest, aPackageThatIsNoneOrBrokenIsPassedOver) {
    const std::string foreign = host_.folder.write("foreign.tsf", header(0, "Other12345"));
    const std::string cut = host_.folder.write("cut.tsf", header(3) + "x");
    complete({"", foreign, cut, package("good.tsf", {{"new_a.bmp", "a"}})});
    EXPECT_THAT(files(), ElementsAre(Pair("main.bmp", "mine"), Pair("new_a.bmp", "a")));
}

} // namespace
} // namespace tovik::skin
