// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/XmlTree.h"

#include <gtest/gtest.h>

namespace tovik::config {
namespace {

TEST(XmlTree, aFileBecomesATree) {
    const auto root = readXmlTree("<?xml version=\"1.0\"?><!-- x --><a:r b='1 &amp; 2'>one<c>"
                                  "<![CDATA[<in>]]></c> two<d/><c>second</c></a:r>");
    ASSERT_TRUE(root.has_value());
    EXPECT_EQ(root->name, "r");
    ASSERT_EQ(root->attributes.size(), 1U);
    EXPECT_EQ(root->attributes.front(), (std::pair<std::string, std::string>("b", "1 & 2")));
    EXPECT_EQ(root->text, "one two");
    ASSERT_NE(root->child("c"), nullptr);
    EXPECT_EQ(root->child("c")->text, "<in>");
    EXPECT_EQ(root->children.size(), 3U);
    EXPECT_EQ(root->child("e"), nullptr);
}

TEST(XmlTree, whatIsNoDocumentGivesNone) {
    for (const char* text :
         {"", "x", "<a>", "<a></b>", "<a/><b/>", "<!DOCTYPE a SYSTEM 'x'><a/>"}) {
        EXPECT_FALSE(readXmlTree(text).has_value()) << text;
    }
}

TEST(XmlTree, aTreeBecomesAFileAndComesBack) {
    XmlElement root{.name = "r", .attributes = {{"b", "1 < \"2\""}}};
    root.children.push_back({.name = "c", .text = "x & <y> \xC4\x8D"});
    root.children.push_back({.name = "d"});
    const std::string file = xmlFileOf(root);
    EXPECT_EQ(file, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r b=\"1 &lt; &quot;2&quot;\">\n"
                    "  <c>x &amp; &lt;y&gt; \xC4\x8D</c>\n  <d />\n</r>\n");
    const auto again = readXmlTree(file);
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(again->attributes, root.attributes);
    EXPECT_EQ(again->child("c")->text, "x & <y> \xC4\x8D");
}

TEST(XmlTree, whatNoDocumentCanHoldBecomesBlank) {
    const auto again = readXmlTree(
        xmlFileOf({.name = "r", .attributes = {{"b", "\x02"}}, .text = "a\x01z\xEF\xBF\xBF"}));
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(again->text, "a z ");
    EXPECT_EQ(again->attributes.front().second, " ");
}

} // namespace
} // namespace tovik::config
