// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/XspfList.h"

#include "base/TimeText.h"
#include "playlist/Lists.h"

#include <gmock/gmock.h>

namespace tovik::playlist {
namespace {

using testing::ElementsAre;

class XspfListTest : public testing::Test {
protected:
    using Entries = std::vector<ListEntry>;

    std::vector<std::string> rowsIn(std::string_view text) {
        stdSS rows;
        for (const ListEntry& entry : xspfEntries(text, manner).value_or(Entries())) {
            rows.AddItem({}, entry.fileName, entry.title, entry.timeText, entry.seconds);
        }
        return rowsOf(rows);
    }

    /// The file of a track with these children.
    std::string fileOf(const std::string& inner) {
        const Entries entries =
            xspfEntries(tracks("<track>" + inner + "</track>"), manner).value_or(Entries());
        return entries.empty() ? std::string() : entries.front().fileName;
    }

    [[nodiscard]] static std::string tracks(const std::string& inner) {
        return R"(<?xml version="1.0" encoding="UTF-8"?><playlist version="1" )"
               R"(xmlns="http://xspf.org/ns/0/"><title>Mine</title><trackList>)" +
               inner + "</trackList></playlist>";
    }

    stdSS list;
    ListManner manner{.comfort = {}, .folder = "/l"};
};

TEST_F(XspfListTest, tracksBecomeRows) {
    EXPECT_THAT(
        rowsIn(tracks("<track><location>file:///m/a%20b.mp3</location><title>A &amp; B</title>"
                      "<duration>215400</duration></track>"
                      "<track>\n<title> T\n</title><creator>C</creator>"
                      "<location>\n  sub/x%C4%8D.ogg\n</location></track>"
                      "<track><title>nowhere</title></track>"
                      "<track><location>http://x/?a=1&amp;b</location><duration>-1</duration>"
                      "</track><other/>")),
        ElementsAre("|/m/a b.mp3|A & B|03:35|215", "|/l/sub/x\xC4\x8D.ogg|C - T|00:00|0",
                    "|http://x/?a=1&b||00:00|0"));
}

TEST_F(XspfListTest, otherWaysToWriteTheSame) {
    EXPECT_THAT(rowsIn("<x:playlist xmlns:x='http://xspf.org/ns/0/'><x:trackList><x:track>"
                       "<x:location><![CDATA[/m/a.mp3]]></x:location><x:duration>x</x:duration>"
                       "</x:track></x:trackList></x:playlist>"),
                ElementsAre("|/m/a.mp3||00:00|0"));
    EXPECT_THAT(rowsIn("<?xml version='1.0' encoding='ISO-8859-1'?><playlist><trackList><track>"
                       "<location>/a</location><title>\xE4</title></track></trackList></playlist>"),
                ElementsAre("|/a|\xC3\xA4|00:00|0"));
    // Made UTF-8 of UTF-16 before it came here.
    EXPECT_THAT(rowsIn("<?xml version='1.0' encoding='UTF-16'?><playlist><trackList><track>"
                       "<location>/a</location></track></trackList></playlist>"),
                ElementsAre("|/a||00:00|0"));
}

TEST_F(XspfListTest, whatIsNoXspfGivesNothing) {
    for (const char* text :
         {"", "x", "<playlist>", "<playlist/>", "<html><trackList/></html>",
          "<playlist><track><location>/a</location></track></playlist>",
          "<!DOCTYPE p [<!ENTITY e '/a'>]><playlist><trackList><track><location>&e;</location>"
          "</track></trackList></playlist>"}) {
        EXPECT_EQ(xspfEntries(text, manner), std::nullopt) << text;
    }
    EXPECT_EQ(xspfEntries(tracks(""), manner), Entries()) << "a list without tracks is one";
}

TEST_F(XspfListTest, theFirstLocationThatCanBePlayedCounts) {
    const std::string first = "<location>magnet:?xt=urn:x</location>";
    const std::string other = "<location>mms://x/a</location>";
    const std::string none = "<location> </location>";
    EXPECT_EQ(fileOf(other + "<location>a.mp3</location><location>b.mp3</location>"), "/l/a.mp3");
    EXPECT_EQ(fileOf(other + none + "<location>HTTP://x/a</location>"), "HTTP://x/a");
    EXPECT_EQ(fileOf("<location>C:\\a.mp3</location><location>/m/a.mp3</location>"), "/m/a.mp3");
    EXPECT_EQ(fileOf("<location>file://other/a</location><location>D:\\Track01.cda</location>"),
              "D:\\Track01.cda");
    EXPECT_EQ(fileOf(none + other + "<location>rtsp://y</location>"), "mms://x/a") << "none can";
    EXPECT_EQ(fileOf(none), "");
    EXPECT_EQ(fileOf(first + "<location>a.mp3</location>"), "/l/a.mp3");
    EXPECT_EQ(fileOf(first), "/l/magnet:?xt=urn:x");
}

TEST_F(XspfListTest, relativeLocationsCountFromTheBase) {
    const auto file = [this](const std::string& base, const std::string& location,
                             const std::string& inner = {}) {
        const auto entries = xspfEntries("<playlist xml:base='" + base + "'><trackList" + inner +
                                             "><track><location>" + location +
                                             "</location></track></trackList></playlist>",
                                         manner);
        return entries && !entries->empty() ? entries->front().fileName : std::string();
    };
    EXPECT_EQ(file("file:///m%20n/", "a%20b.mp3"), "/m n/a b.mp3");
    EXPECT_EQ(file("/m/list.xspf", "sub/a.mp3"), "/m/sub/a.mp3");
    EXPECT_EQ(file("sub/", "a.mp3"), "/l/sub/a.mp3");
    EXPECT_EQ(file("..", "a.mp3"), "/l/../a.mp3");
    EXPECT_EQ(file(".", "a.mp3"), "/l/a.mp3");
    EXPECT_EQ(file("list.xspf", "a.mp3"), "/l/a.mp3");
    EXPECT_EQ(file("", "a.mp3"), "/l/a.mp3");
    EXPECT_EQ(file("file:///m/", "/k/a.mp3"), "/k/a.mp3");
    EXPECT_EQ(file("file:///m/", "http://x/a"), "http://x/a");
    EXPECT_EQ(file("http://x:80/d/list.xspf?u=/y", "a%20b.mp3"), "http://x:80/d/a%20b.mp3");
    EXPECT_EQ(file("http://x", "a.mp3"), "http://x/a.mp3");
    EXPECT_EQ(file("http://x/d/", "/a.mp3"), "http://x/a.mp3");
    EXPECT_EQ(file("https://x/d/", "//y/a.mp3"), "https://y/a.mp3");
    EXPECT_EQ(file("C:/Music/", "a.mp3"), "/l/a.mp3") << "of another system";
    EXPECT_EQ(file("file:///m/%", "a.mp3"), "/l/a.mp3") << "an escape that is none";
    EXPECT_EQ(file("/m/", "a.mp3", " xml:base='in/'"), "/m/in/a.mp3") << "one in the other";
    EXPECT_EQ(fileOf("<location xml:base='/m/'>a.mp3</location>"), "/m/a.mp3");
}

TEST_F(XspfListTest, whatIsWritten) {
    list.AddItem("data", "/l/sub/a b.mp3", "A & <B>", "99:99", 215);
    list.AddItem("", "http://x/?a&b", "", "", 0);
    EXPECT_EQ(xspfText(list, manner), R"(<?xml version="1.0" encoding="UTF-8"?>
<playlist version="1" xmlns="http://xspf.org/ns/0/">
  <trackList>
    <track>
      <location>file:///l/sub/a%20b.mp3</location>
      <title>A &amp; &lt;B&gt;</title>
      <duration>215000</duration>
    </track>
    <track>
      <location>http://x/?a&amp;b</location>
    </track>
  </trackList>
</playlist>
)");
    manner.comfort.savesRelativeNames = true;
    EXPECT_THAT(xspfText(list, manner), testing::HasSubstr("<location>sub/a%20b.mp3</location>"));
}

TEST_F(XspfListTest, whatIsWrittenComesBack) {
    for (const char* file : {"/l/a.mp3", "/k/\xFF\x01.mp3", "/l/sub/100%.mp3", R"(/l/AC\DC)",
                             "http://x/%20", R"(D:\Track01.cda)", "/l/a\nb", "/l/ "}) {
        list.AddItem("", file, "Title", "01:05", 65);
    }
    list.AddItem("", "/a", "\xC4\x8D", "00:00", 0);
    list.AddItem("", "/b", "", base::lastFive(2147483647), 2147483647);
    EXPECT_EQ(rowsIn(xspfText(list, manner)), rowsOf(list));
    manner.comfort.savesRelativeNames = true;
    EXPECT_EQ(rowsIn(xspfText(list, manner)), rowsOf(list));
}

TEST_F(XspfListTest, titlesThatNoDocumentCanHold) {
    list.AddItem("", "/a", "x\x01y\xE4\xEF\xBF\xBE", "", 0);
    list.AddItem("", "/b", "x\x01y\xC3\xA4\xEF\xBF\xBE", "", 0);
    const std::vector<std::string> rows = rowsIn(xspfText(list, manner));
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1], "|/b|x y\xC3\xA4|00:00|0");
}

} // namespace
} // namespace tovik::playlist
