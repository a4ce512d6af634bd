// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ErrHandler.h"

#include "config/RaisedNumber.h"
#include "config/SettingsFixture.h"
#include "support/host/FullDisk.h"
#include "support/host/Unprivileged.h"

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;
using test::raisedNumber;
using test::raisedText;

/// A clock that stands.
class FixedClock final : public host::Clock {
public:
    host::LocalTime time{.year = 2026, .month = 3, .day = 4, .hour = 5, .minute = 6, .second = 7};

    [[nodiscard]] std::int64_t monotonicMs() const override { return 0; }

    [[nodiscard]] host::LocalTime localTime() const override { return time; }
};

class ErrHandlerTest : public test::SettingsFixture {
protected:
    void SetUp() override { writeSettings("<TKXV>1,42</TKXV><TKV2>3</TKV2><A>1</A>"); }

    [[nodiscard]] std::string log() const { return host_.folder.read("db/err.log"); }

    FixedClock clock_;
    ErrHandler handler_{host_.paths, clock_, host_.operatingSystem};
};

TEST_F(ErrHandlerTest, aLineHasEightFieldsInTheirOrder) {
    handler_.SaveLog("Type mismatch", 13, "Player", "Next_track");
    EXPECT_EQ(log(), "04.03.2026/05:06:07,Type mismatch,13,Player,Next_track,1.3,42,6.1\r\n");
}

TEST_F(ErrHandlerTest, linesAreAppendedInOrder) {
    host_.folder.write("db/err.log", "before\r\n");
    clock_.time = {.year = 999, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 59};
    handler_.SaveLog("one", 0, "OSD", "Load");
    handler_.SaveLog("two", -5, "TSR", "RipAll");
    EXPECT_EQ(log(), "before\r\n31.12.0999/23:59:59,one,0,OSD,Load,1.3,42,6.1\r\n"
                     "31.12.0999/23:59:59,two,-5,TSR,RipAll,1.3,42,6.1\r\n");
}

TEST_F(ErrHandlerTest, nothingIsEscaped) {
    handler_.SaveLog("a, \"b\" caf\xE9", 5, "M", "kill process");
    EXPECT_EQ(log(), "04.03.2026/05:06:07,a, \"b\" caf\xE9,5,M,kill process,1.3,42,6.1\r\n");
}

TEST_F(ErrHandlerTest, withComfortAFieldIsQuotedWhereItNeedsToBe) {
    base::Comfort comfort;
    comfort.quotesLog = true;
    handler_.obey(comfort);
    handler_.SaveLog("a, \"b\"\r\ncaf\xE9", 5, "M", "kill process");
    handler_.SaveLog("plain", 5, "M", "kill process");
    EXPECT_EQ(log(), "04.03.2026/05:06:07,\"a, \"\"b\"\"  caf\xE9\",5,M,kill process,1.3,42,6.1\r\n"
                     "04.03.2026/05:06:07,plain,5,M,kill process,1.3,42,6.1\r\n");
}

TEST_F(ErrHandlerTest, withComfortALongLogLosesItsOlderHalf) {
    const std::string line = std::string(98, 'x') + "\r\n";
    std::string old = "the first\r\n";
    const std::string last = "04.03.2026/05:06:07,e,1,M,p,1.3,42,6.1\r\n";
    constexpr auto kMost = static_cast<std::size_t>(ErrHandler::kMostLogBytes);
    while (old.size() + 2 * line.size() <= kMost) {
        old += line;
    }
    old += std::string(kMost - old.size() - last.size() - 2, 'y') + "\r\n"; // one more fits
    host_.folder.write("db/err.log", old);
    base::Comfort comfort;
    handler_.obey(comfort);
    handler_.SaveLog("e", 1, "M", "p");
    EXPECT_EQ(log(), old + last);
    host_.folder.write("db/err.log", old);
    comfort.cutsLog = true;
    handler_.SaveLog("e", 1, "M", "p");
    EXPECT_EQ(log(), old + last) << "it is as long as it may be";
    handler_.SaveLog("f", 1, "M", "p");
    const std::string cut = log();
    EXPECT_LE(cut.size(), kMost / 2 + 100);
    EXPECT_GT(cut.size(), kMost / 2 - 100);
    EXPECT_TRUE(cut.starts_with(line)) << "from the beginning of a line on";
    EXPECT_TRUE(cut.ends_with(last + "04.03.2026/05:06:07,f,1,M,p,1.3,42,6.1\r\n"));
    handler_.SaveLog("g", 1, "M", "p");
    EXPECT_TRUE(log().starts_with(cut));
}

TEST_F(ErrHandlerTest, whatCannotBeReadOfTheVersionIsEmpty) {
    const std::string start = "04.03.2026/05:06:07,e,1,M,p,";
    const std::vector<std::pair<const char*, const char*>> cases{
        {"<TKXV>1,42</TKXV>", ",42"},
        {"<TKXV>1</TKXV><TKV2>3</TKV2>", "1.3,"},
        {"<TKXV>1,x</TKXV><TKV2>3</TKV2>", "1.3,"},
        {"<TKXV/><TKV2>3</TKV2>", ","},
        {"", ","},
    };
    for (const auto& [elements, fields] : cases) {
        fs::remove(host_.folder / "db/err.log");
        writeSettings(elements);
        handler_.SaveLog("e", 1, "M", "p");
        EXPECT_EQ(log(), start + fields + ",6.1\r\n") << elements;
    }
    for (const char* const damage : {"", "<Settings>"}) {
        fs::remove(host_.folder / "db/err.log");
        writeFile(damage);
        handler_.SaveLog("e", 1, "M", "p");
        EXPECT_EQ(log(), start + ",,6.1\r\n");
    }
}

TEST_F(ErrHandlerTest, theSharedDocumentIsLeftAlone) {
    settings_.withSettings([&](clsXML& xml) {
        xml.WriteNode("/Settings/A", "2");
        handler_.SaveLog("e", 1, "M", "p");
        EXPECT_EQ(xml.ReadNode("/Settings/A"), "2");
    });
    EXPECT_EQ(settings_.getSetting("A"), "2");
}

TEST_F(ErrHandlerTest, aLogThatCannotBeOpenedIsANewError) {
    fs::create_directory(host_.folder / "db/err.log");
    EXPECT_EQ(raisedNumber([&] { handler_.SaveLog("e", 1, "M", "p"); }), 75);
    fs::remove_all(host_.folder / "db");
    EXPECT_EQ(raisedText([&] { handler_.SaveLog("e", 1, "M", "p"); }),
              "Path not found: " + (host_.folder / "db/err.log"));
    EXPECT_FALSE(fs::exists(host_.folder / "db"));
}

TEST_F(ErrHandlerTest, aLogThatIsNoFileIsANewErrorAndNeverWaitedFor) {
    const std::string log = host_.folder / "db/err.log";
    ASSERT_EQ(::mkfifo(log.c_str(), 0600), 0);
    EXPECT_EQ(raisedNumber([&] { handler_.SaveLog("x", 1, "Player", "y"); }), 75);
    const int reader = ::open(log.c_str(), O_RDONLY | O_NONBLOCK); // now it could be written to
    EXPECT_EQ(raisedNumber([&] { handler_.SaveLog("x", 1, "Player", "y"); }), 75);
    EXPECT_EQ(raisedText([&] { handler_.SaveLog("x", 1, "Player", "y"); }),
              "Path/File access error: " + log);
    ::close(reader);
}

TEST_F(ErrHandlerTest, aReadOnlyFolderIsANewError) {
    fs::permissions(host_.folder.path(), fs::perms(0755));
    fs::permissions(host_.folder / "db", fs::perms(0555));
    const test::Unprivileged rights;
    EXPECT_EQ(raisedNumber([&] { handler_.SaveLog("e", 1, "M", "p"); }), 70);
}

TEST_F(ErrHandlerTest, aFullDiskIsANewError) {
    host_.folder.write("db/err.log", "0123456789");
    int number = 0;
    {
        const test::FullDisk full(10);
        number = raisedNumber([&] { handler_.SaveLog("e", 1, "M", "p"); });
    }
    EXPECT_EQ(number, 61);
    EXPECT_EQ(log(), "0123456789");
}

} // namespace
} // namespace tovik::config
