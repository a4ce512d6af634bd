// SPDX-License-Identifier: GPL-3.0-or-later
// Changing a document.
#include "config/clsXML.h"

#include "config/RaisedNumber.h"

#include <gtest/gtest.h>

namespace tovik::config {
namespace {

using test::raisedNumber;
using namespace std::string_literals;

class clsXMLChangeTest : public testing::Test {
protected:
    void open(const std::string& text) { ASSERT_TRUE(xml_.OpenXML(text, XmlSource::Text)); }

    clsXML xml_;
};

TEST_F(clsXMLChangeTest, aWrittenTextIsReadAgain) {
    open("<a><b>old<c>deep</c><!-- k --></b></a>");
    for (const auto& text : {"new"s, "<&>\"' ]]>"s, "  blanks  "s, " "s, "\r\n\t"s, "č é 漢"s, ""s,
                             std::string(100'000, 'x')}) {
        xml_.WriteNode("/a/b", text);
        EXPECT_EQ(xml_.ReadNode("/a/b"), text);
        clsXML again;
        ASSERT_TRUE(again.OpenXML(xml_.XML(), XmlSource::Text));
        EXPECT_EQ(again.ReadNode("/a/b"), text);
    }
    EXPECT_EQ(xml_.NodeCount("/a/b/*"), 0);
}

TEST_F(clsXMLChangeTest, aWrittenAttributeIsReadAgain) {
    open("<a><b x=\"old\"/></a>");
    for (const auto& text : {"new"s, "<&>\"'"s, "  blanks  "s, "\r\n\t"s, "č"s, ""s}) {
        xml_.WriteAttribute("/a/b", "x", text);
        EXPECT_EQ(xml_.ReadAttribute("/a/b", "x"), text);
        clsXML again;
        ASSERT_TRUE(again.OpenXML(xml_.XML(), XmlSource::Text));
        EXPECT_EQ(again.ReadAttribute("/a/b", "x"), text);
    }
    xml_.WriteAttribute("/a/b", "y", "made");
    EXPECT_EQ(xml_.XML(), "<a><b x=\"\" y=\"made\"/></a>");
}

TEST_F(clsXMLChangeTest, aPathCanNameAnAttributeOrAText) {
    open("<a><b x=\"1\">t</b></a>");
    xml_.WriteNode("/a/b/@x", "2");
    xml_.WriteNode("/a/b/text()", "u");
    EXPECT_EQ(xml_.XML(), "<a><b x=\"2\">u</b></a>");
}

TEST_F(clsXMLChangeTest, failuresOfWritesAreSwallowed) {
    const std::string text = "<a><b x=\"1\">t</b></a>";
    open(text);
    for (const char* const path : {"/a/c", "/A/b", "", "/a[", "1+1", "/a/b/@y"}) {
        SCOPED_TRACE(path);
        xml_.WriteNode(path, "new");
        xml_.WriteAttribute(path, "x", "new");
        xml_.DeleteNode(path);
    }
    xml_.WriteNode("/", "new");
    xml_.WriteAttribute("/", "x", "new");
    xml_.DeleteNode("/");
    xml_.WriteAttribute("/a/b/@x", "x", "new");
    xml_.WriteAttribute("/a/b/text()", "x", "new");
    xml_.WriteAttribute("/a/b", "no name", "new");
    xml_.WriteAttribute("/a/b", "", "new");
    xml_.DeleteNode("/a/b/@x"); // an attribute has no parent to be removed from
    EXPECT_EQ(xml_.XML(), text);
}

TEST_F(clsXMLChangeTest, deletesANodeWithAllBelowIt) {
    open("<a><b><c/></b><b>2</b></a>");
    xml_.DeleteNode("/a/b");
    EXPECT_EQ(xml_.XML(), "<a><b>2</b></a>");
    xml_.DeleteNode("/a/b/text()");
    EXPECT_EQ(xml_.XML(), "<a><b/></a>");
    xml_.DeleteNode("/a");
    EXPECT_EQ(xml_.XML(), "");
    EXPECT_EQ(xml_.NodeCount("/a"), -1);
}

TEST_F(clsXMLChangeTest, makesANode) {
    open("<a/>");
    xml_.MakeNode("/a", "b");
    xml_.MakeNode("/a", "c", "text & more");
    xml_.MakeNode("/a", "d", std::nullopt, XmlAttribute{"x", "1"});
    xml_.MakeNode("/a/c", "e", "", XmlAttribute{"x", "1"}, XmlAttribute{"y", "2"});
    xml_.MakeNode("/a", "f", std::nullopt, std::nullopt, XmlAttribute{"y", "2"});
    EXPECT_EQ(xml_.XML(), "<a><b/><c>text &amp; more<e x=\"1\" y=\"2\"/></c><d x=\"1\"/>"
                          "<f y=\"2\"/></a>");
}

TEST_F(clsXMLChangeTest, attributesOfANewNodeLandOnTheFirstOfItsName) {
    open("<a><b/><c/></a>");
    xml_.MakeNode("/a", "b", "new", XmlAttribute{"x", "1"}, XmlAttribute{"y", "2"});
    EXPECT_EQ(xml_.XML(), "<a><b x=\"1\" y=\"2\"/><c/><b>new</b></a>");
}

TEST_F(clsXMLChangeTest, makingANodeFailsAloud) {
    const std::string text = "<a x=\"1\">t</a>";
    open(text);
    EXPECT_EQ(raisedNumber([&] { xml_.MakeNode("/none", "b"); }), 91);
    EXPECT_EQ(raisedNumber([&] { xml_.MakeNode("/a[", "b"); }), 5);
    EXPECT_EQ(raisedNumber([&] { xml_.MakeNode("/", "b"); }), 91);
    EXPECT_EQ(raisedNumber([&] { xml_.MakeNode("/a/@x", "b"); }), 91);
    for (const char* const name : {"", "two words", "1st", "-b", "<b>", "b/", "b\n", "\xE9"}) {
        EXPECT_EQ(raisedNumber([&] { xml_.MakeNode("/a", name); }), 5) << name;
    }
    EXPECT_EQ(raisedNumber([&] { xml_.MakeNode("/a", "b", "\x01"); }), 5);
    EXPECT_EQ(xml_.XML(), text);
}

TEST_F(clsXMLChangeTest, deletesAnAttribute) {
    open(R"(<a x="1" y="2"/>)");
    xml_.DeleteAttribute("/a", "x");
    EXPECT_EQ(xml_.XML(), "<a y=\"2\"/>");
    EXPECT_EQ(raisedNumber([&] { xml_.DeleteAttribute("/a", "x"); }), 0);
    EXPECT_EQ(raisedNumber([&] { xml_.DeleteAttribute("/b", "y"); }), 91);
    EXPECT_EQ(raisedNumber([&] { xml_.DeleteAttribute("/a[", "y"); }), 5);
    EXPECT_EQ(xml_.XML(), "<a y=\"2\"/>");
}

} // namespace
} // namespace tovik::config
