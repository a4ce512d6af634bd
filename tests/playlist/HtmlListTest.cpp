// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/HtmlList.h"

#include "playlist/Lists.h"

#include <gtest/gtest.h>

namespace tovik::playlist {
namespace {

constexpr const char* kHead = R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN"
"http://www.w3.org/TR/html4/loose.dtd">
<html>
<head>
<title>Tovik Generated Playlist</title>
<meta http-equiv="Content-Type"content="text/html; charset=iso-8859-1">
<style type="text/css">
<!--
body {
background-color: #000000;
}
body,td,th {
color: #CCCCCC;
}
a:link {
color: #CCCCCC;
}
.style4 {
font-size: 36px;
color: #9999FF;
}
-->
</style></head>
<body>
<p class="style4">Tovik Html Playlist </p>
)";

/// With the line ends of the page.
std::string lines(std::string_view text) {
    std::string page;
    for (const char character : text) {
        page += character == '\n' ? "\r\n" : std::string(1, character);
    }
    return page;
}

TEST(HtmlList, anEmptyList) {
    EXPECT_EQ(htmlText(stdSS()), lines(std::string(kHead) + "</body>\n</html>\n"));
}

TEST(HtmlList, oneLinkARow) {
    stdSS list;
    fill(list, {"A & <B>", "", "\xC4\x8D"});
    EXPECT_EQ(htmlText(list),
              lines(std::string(kHead) + "<a href=\"/A & <B>\">1.|A & <B></a><br>\n"
                                         "<a href=\"/\">2.|</a><br>\n"
                                         "<a href=\"/\xC4\x8D\">3.|\xC4\x8D</a><br>\n"
                                         "</body>\n</html>\n"));
}

TEST(HtmlList, theNumberIsThatOfTheRow) {
    stdSS list;
    for (int n = 0; n < 12; ++n) {
        fill(list, {"t"});
    }
    EXPECT_NE(htmlText(list).find("\">12.|t</a>"), std::string::npos);
}

TEST(HtmlList, asTextOfAPage) {
    stdSS list;
    list.AddItem("", "/l/A & <B>.mp3", R"(A & <B> "C")", "", 0);
    list.AddItem("", "/k/\xC4\x8D.mp3", "\xC4\x8D", "", 0);
    list.AddItem("", "http://x/?a=1&b=\"", "\xE4", "", 0);
    ListManner manner{.comfort = {.escapesPage = true}, .folder = "/l"};
    const std::string page = htmlText(list, manner);
    EXPECT_NE(page.find(R"(<meta http-equiv="Content-Type" content="text/html; charset=utf-8">)"),
              std::string::npos);
    EXPECT_EQ(page.find("iso-8859"), std::string::npos);
    EXPECT_NE(page.find("<a href=\"file:///l/A%20%26%20%3CB%3E.mp3\">1.|A &amp; &lt;B&gt; "
                        "&quot;C&quot;</a><br>\r\n"
                        "<a href=\"file:///k/%C4%8D.mp3\">2.|\xC4\x8D</a><br>\r\n"
                        "<a href=\"http://x/?a=1&amp;b=&quot;\">3.|\xC3\xA4</a><br>\r\n"),
              std::string::npos)
        << page;
    manner.comfort.savesRelativeNames = true;
    EXPECT_NE(htmlText(list, manner).find("<a href=\"A%20%26%20%3CB%3E.mp3\">"), std::string::npos);
}

} // namespace
} // namespace tovik::playlist
