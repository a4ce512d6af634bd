// SPDX-License-Identifier: GPL-3.0-or-later
// What counts as a document at all, and in which encodings.
#include "config/StrictXml.h"

#include "config/clsXML.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

namespace tovik::config {
namespace {

using namespace std::string_literals;

class StrictXml : public testing::Test {
protected:
    bool openFile(const std::string& bytes) {
        return xml_.OpenXML(folder_.write("a.xml", bytes), XmlSource::FilePath);
    }

    static std::string nested(int levels) {
        std::string text;
        for (int level = 0; level < levels; ++level) {
            text += "<a>";
        }
        for (int level = 0; level < levels; ++level) {
            text += "</a>";
        }
        return text;
    }

    test::TemporaryFolder folder_;
    clsXML xml_;
};

TEST_F(StrictXml, whatIsNotWellFormedFailsToLoadAndIsNeverRewritten) {
    const std::array broken{
        "<a>rock & roll</a>"s,
        "<a x=\"rock & roll\"/>"s,
        "<a>&nbsp;</a>"s,
        "<a x=\"&nbsp;\"/>"s,
        "<a x=\"1\" x=\"2\"/>"s,
        "<a x=\"<\"/>"s,
        "<a>\x01</a>"s,
        "<a>&#1;</a>"s,
        "<a>&#xFFFF;</a>"s,
        "<a>]]></a>"s,
        "<a><!-- a -- b --></a>"s,
        "<a>caf\xE9</a>"s,
        "<a>\xC0\x80</a>"s,
        "<a>\xED\xA0\x80</a>"s,
        "<a>\xEF\xBF\xBF</a>"s,
        "<1/>"s,
        "<a>\r\n</a >x"s,
        " <?xml version=\"1.0\"?><a/>"s,
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xE9</a>"s,
        "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a/>"s,
        "<?xml version=\"1.0\" encoding=\"no-such-code\"?><a/>"s,
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1//IGNORE\"?><a/>"s,
        "<?xml version=\"1.0\" encoding=\"US-ASCII\"?><a>\xE9</a>"s,
        "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xC3\xA9</a>"s,
        "\xFF\xFE<\0a\0/\0>"s, // half a character
        "\xFF\xFE<\0a\0>\0\0\xD8<\0/\0a\0>\0"s,
    };
    for (const std::string& text : broken) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(openFile(text));
        xml_.WriteNode("/a", "1");
        xml_.Save(folder_ / "a.xml");
        EXPECT_EQ(folder_.read("a.xml"), text);
    }
}

TEST_F(StrictXml, theEncodingOfAFileIsHonoured) {
    struct Case {
        const char* name;
        std::string bytes;
    };

    // "č" in each of them.
    const std::array cases{
        Case{"UTF-8", "<?xml version=\"1.0\" encoding=\"utf-8\"?><a>\xC4\x8D</a>"},
        Case{"none", "<a>\xC4\x8D</a>"},
        Case{"UTF-8 with a mark", "\xEF\xBB\xBF<a>\xC4\x8D</a>"},
        Case{"Windows", "<?xml version='1.0' encoding='windows-1250'?><a>\xE8</a>"},
        Case{"Latin 2", "<?xml version=\"1.0\" encoding = \"ISO-8859-2\" ?><a>\xE8</a>"},
        Case{"UTF-16LE", "\xFF\xFE<\0a\0>\0\x0D\x01<\0/\0a\0>\0"s},
        Case{"UTF-16BE", "\xFE\xFF\0<\0a\0>\x01\x0D\0<\0/\0a\0>"s},
        Case{"UTF-16LE without a mark", "<\0a\0>\0\x0D\x01<\0/\0a\0>\0"s},
        Case{"UTF-32BE", "\0\0\xFE\xFF\0\0\0<\0\0\0a\0\0\0>\0\0\x01\x0D"
                         "\0\0\0<\0\0\0/\0\0\0a\0\0\0>"s},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        ASSERT_TRUE(openFile(one.bytes));
        EXPECT_EQ(xml_.ReadNode("/a"), "č");
        // It is saved in UTF-8 and says nothing else of itself.
        xml_.WriteNode("/a", "漢");
        xml_.Save(folder_ / "a.xml");
        ASSERT_TRUE(xml_.OpenXML(folder_ / "a.xml", XmlSource::FilePath));
        EXPECT_EQ(xml_.ReadNode("/a"), "漢");
    }
}

TEST_F(StrictXml, textIsUtf8WhateverItLooksLike) {
    EXPECT_FALSE(xml_.OpenXML("\xFF\xFE<\0a\0/\0>\0"s, XmlSource::Text));
    EXPECT_FALSE(xml_.OpenXML("<\0a\0/\0>\0"s, XmlSource::Text));
    ASSERT_TRUE(
        xml_.OpenXML("<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>č</a>", XmlSource::Text));
    EXPECT_EQ(xml_.XML(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>č</a>");
}

TEST_F(StrictXml, entitiesOfADocumentAreRefused) {
    // They would come back as plain text: "&x;" as "&amp;x;".
    for (const char* const text :
         {"<!DOCTYPE a [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><a>&x;</a>",
          "<!DOCTYPE a [<!ENTITY x \"y\">]><a>&x;</a>", "<!DOCTYPE a [<!ENTITY x \"y\">]><a/>",
          "<!DOCTYPE a SYSTEM \"a.dtd\"><a>&x;</a>",
          "<!DOCTYPE a [<!ENTITY % p SYSTEM \"a.dtd\"> %p;]><a/>"}) {
        EXPECT_FALSE(openFile(text)) << text;
    }
    ASSERT_TRUE(openFile("<!DOCTYPE a [<!ELEMENT a ANY>]><a>&amp;&lt;&#269;</a>"));
    EXPECT_EQ(xml_.ReadNode("/a"), "&<č");
}

TEST_F(StrictXml, theDepthIsBounded) {
    ASSERT_TRUE(openFile(nested(kMostXmlLevels)));
    EXPECT_EQ(xml_.NodeCount("//a"), kMostXmlLevels);
    EXPECT_EQ(xml_.ReadNodeXML("/a").size(), nested(kMostXmlLevels).size() - 3);
    EXPECT_FALSE(openFile(nested(kMostXmlLevels + 1)));
    EXPECT_FALSE(openFile(nested(300'000)));
    EXPECT_TRUE(openFile("<a>" + std::string(5000, 'x') + "<b/><b/></a>"));
}

TEST_F(StrictXml, theSizeIsBounded) {
    const std::string path = folder_.write("a.xml", "<a/>");
    std::filesystem::resize_file(path, kMostXmlBytes + 1); // a hole: nothing is written
    EXPECT_FALSE(xml_.OpenXML(path, XmlSource::FilePath));
    EXPECT_FALSE(isStrictXml("<a>" + std::string(kMostXmlBytes, ' ') + "</a>"));
    EXPECT_TRUE(isStrictXml("<a>" + std::string(1 << 20, ' ') + "</a>"));
}

TEST_F(StrictXml, whatNoDocumentCanHoldIsNeverPutIntoOne) {
    ASSERT_TRUE(openFile("<a x=\"1\">old</a>"));
    for (const auto& text : {"\x01"s, "caf\xE9"s, "\0"s, "\x1F"s, "\xEF\xBF\xBE"s}) {
        xml_.WriteNode("/a", text);
        xml_.WriteNode("/a/@x", text);
        xml_.WriteNode("/a/text()", text);
        xml_.WriteAttribute("/a", "x", text);
    }
    xml_.WriteAttribute("/a", "\xC3\x97", "multiplication sign"); // no letter
    xml_.WriteAttribute("/a", "\xE9", "half a letter");
    EXPECT_EQ(xml_.XML(), "<a x=\"1\">old</a>");
    xml_.WriteAttribute("/a", "č", "\t");
    EXPECT_EQ(xml_.ReadAttribute("/a", "č"), "\t");
}

} // namespace
} // namespace tovik::config
