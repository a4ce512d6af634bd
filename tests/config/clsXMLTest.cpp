// SPDX-License-Identifier: GPL-3.0-or-later
// Opening, reading and counting.
#include "config/clsXML.h"

#include "config/RaisedNumber.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>

namespace tovik::config {
namespace {

using test::raisedNumber;
using namespace std::string_literals;

class clsXMLTest : public testing::Test {
protected:
    bool openText(const std::string& text) { return xml_.OpenXML(text, XmlSource::Text); }

    bool openFile(const std::string& bytes) {
        return xml_.OpenXML(folder_.write("a.xml", bytes), XmlSource::FilePath);
    }

    void expectEmpty() {
        EXPECT_EQ(xml_.XML(), "");
        EXPECT_EQ(xml_.NodeCount("/*"), -1);
        EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadNode("/a"); }), 94);
        EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadAttribute("/a", "x"); }), 94);
        EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadNodeXML("/a"); }), 91);
        EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.XMLDocumentInfo(0); }), 91);
        EXPECT_EQ(raisedNumber([&] { xml_.MakeNode("/a", "b"); }), 91);
        EXPECT_EQ(raisedNumber([&] { xml_.DeleteAttribute("/a", "x"); }), 91);
        EXPECT_EQ(raisedNumber([&] {
                      xml_.WriteNode("/a", "1");
                      xml_.WriteAttribute("/a", "x", "1");
                      xml_.DeleteNode("/a");
                  }),
                  0);
    }

    test::TemporaryFolder folder_;
    clsXML xml_;
};

TEST_F(clsXMLTest, textAndFileGiveTheSameDocument) {
    const std::string text = R"(<?xml version="1.0"?><a><b x="1">two</b></a>)";
    EXPECT_TRUE(openText(text));
    EXPECT_EQ(xml_.XML(), text);
    EXPECT_TRUE(openFile(text));
    EXPECT_EQ(xml_.XML(), text);
    EXPECT_EQ(xml_.ReadNode("/a/b"), "two");
    EXPECT_EQ(xml_.ReadAttribute("/a/b", "x"), "1");
}

TEST_F(clsXMLTest, beforeTheFirstOpenThereIsNoDocument) {
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadNode("/a"); }), 94);
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadAttribute("/a", "b"); }), 94);
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.XML(); }), 91);
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.XMLDocumentInfo(0); }), 91);
    EXPECT_EQ(raisedNumber([&] { xml_.Save(folder_ / "a.xml"); }), 91);
    EXPECT_EQ(xml_.NodeCount("/a"), -1);
    EXPECT_EQ(raisedNumber([&] { xml_.WriteNode("/a", "b"); }), 0);
}

TEST_F(clsXMLTest, otherKindsLoadNothingAndEmptyTheDocument) {
    for (const int kind : {2, -1, 100}) {
        EXPECT_TRUE(openText("<a/>"));
        EXPECT_FALSE(xml_.OpenXML("<a/>", kind));
        expectEmpty();
    }
}

TEST_F(clsXMLTest, whatIsNotWellFormedLeavesTheDocumentEmpty) {
    const std::array broken{
        ""s,
        " \n"s,
        "words"s,
        "<a>"s,
        "<a></b>"s,
        "<a/><b/>"s,
        "<a/>words"s,
        "words<a/>"s,
        "<a x=1/>"s,
        "<a x=\"1/>"s,
        "<a"s,
        "<a/><!-- c"s,
        "<?xml ?>"s,
        "<!-- only -->"s,
        "<a/>\0\0\0"s,
        "\0\0\0\0"s,
        "<a>\0</a>"s,
        "<a/>\0junk"s,
        "<a/><![CDATA[x]]>"s,
    };
    for (const std::string& text : broken) {
        SCOPED_TRACE(text);
        EXPECT_TRUE(openText("<a/>"));
        EXPECT_FALSE(openText(text));
        expectEmpty();
        EXPECT_TRUE(openText("<a/>"));
        EXPECT_FALSE(openFile(text));
        expectEmpty();
    }
}

TEST_F(clsXMLTest, aFileThatCannotBeReadLeavesTheDocumentEmpty) {
    for (const std::string& path : {folder_ / "none.xml", folder_.path(), ""s}) {
        EXPECT_TRUE(openText("<a/>"));
        EXPECT_FALSE(xml_.OpenXML(path, XmlSource::FilePath));
        expectEmpty();
    }
}

TEST_F(clsXMLTest, theDeclarationTellsOfTheDocument) {
    EXPECT_TRUE(openText("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?><a/>"));
    EXPECT_EQ(xml_.XMLDocumentInfo(0), "1.0");
    EXPECT_EQ(xml_.XMLDocumentInfo(1), "UTF-8");
    EXPECT_EQ(xml_.XMLDocumentInfo(2), "yes");
    EXPECT_EQ(xml_.XMLDocumentInfo(3), "");
    EXPECT_EQ(xml_.XMLDocumentInfo(-1), "");
}

TEST_F(clsXMLTest, whatTheDeclarationLacksIsAnError) {
    EXPECT_TRUE(openText("<?xml version=\"1.0\"?><a/>"));
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.XMLDocumentInfo(2); }), 91);
    EXPECT_TRUE(openText("<a/>"));
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.XMLDocumentInfo(0); }), 91);
}

TEST_F(clsXMLTest, theTextOfANodeIsAllTextBelowIt) {
    EXPECT_TRUE(openText("<a>1<b>2<!-- no --><c><![CDATA[<3>]]></c></b>4 &amp; 5<d/></a>"));
    EXPECT_EQ(xml_.ReadNode("/a"), "12<3>4 & 5");
    EXPECT_EQ(xml_.ReadNode("/a/b"), "2<3>");
    EXPECT_EQ(xml_.ReadNode("/a/d"), "");
    EXPECT_EQ(xml_.ReadNode("/a/b/comment()"), " no ");
    EXPECT_EQ(xml_.ReadNode("b/c"), "<3>"); // told from the document element
    EXPECT_EQ(xml_.ReadNode("/"), "12<3>4 & 5");
}

TEST_F(clsXMLTest, ofSeveralNodesTheFirstIsTaken) {
    EXPECT_TRUE(openText("<a><b x=\"1\">one</b><b x=\"2\">two</b></a>"));
    EXPECT_EQ(xml_.ReadNode("/a/b"), "one");
    EXPECT_EQ(xml_.ReadNode("/a/b[2]"), "two");
    EXPECT_EQ(xml_.ReadNode("//b[@x='2']"), "two");
    EXPECT_EQ(xml_.ReadAttribute("/a/b[2]", "x"), "2");
    EXPECT_EQ(xml_.ReadNode("/a/b[2]/@x"), "2");
}

TEST_F(clsXMLTest, whatIsNotThereIsTheUseOfANull) {
    EXPECT_TRUE(openText("<a><b x=\"\"/></a>"));
    for (const char* const path : {"/a/c", "/A", "a", "/a/b/@y", "/a/b/text()", "", "/a[", "1+1",
                                   "/a/b/@", "nofunction()", "/x:a"}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadNode(path); }), 94);
        EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadAttribute(path, "x"); }), 94);
    }
    EXPECT_EQ(xml_.ReadAttribute("/a/b", "x"), "");
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadAttribute("/a/b", "X"); }), 94);
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadAttribute("/a/b/@x", "x"); }), 94);
}

TEST_F(clsXMLTest, aNodeAsXml) {
    EXPECT_TRUE(openText("<a>\n <b x=\"1 &lt; 2\">t &amp; u<c/></b>\n</a>"));
    EXPECT_EQ(xml_.ReadNodeXML("/a/b"), "<b x=\"1 &lt; 2\">t &amp; u<c/></b>");
    EXPECT_EQ(xml_.ReadNodeXML("/a/b/@x"), "x=\"1 &lt; 2\"");
    EXPECT_EQ(xml_.ReadNodeXML("/a/b/text()"), "t &amp; u");
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadNodeXML("/a/c"); }), 91);
    EXPECT_EQ(raisedNumber([&] { std::ignore = xml_.ReadNodeXML("/a["); }), 5);
}

TEST_F(clsXMLTest, counts) {
    EXPECT_TRUE(openText("<a><b/><b/><c x=\"1\"/></a>"));
    EXPECT_EQ(xml_.NodeCount("/a/b"), 2);
    EXPECT_EQ(xml_.NodeCount("/a/*"), 3);
    EXPECT_EQ(xml_.NodeCount("//@x"), 1);
    EXPECT_EQ(xml_.NodeCount("/a/none"), 0);
    EXPECT_EQ(xml_.NodeCount("/a["), -1);
    EXPECT_EQ(xml_.NodeCount("count(/a)"), -1);
}

} // namespace
} // namespace tovik::config
