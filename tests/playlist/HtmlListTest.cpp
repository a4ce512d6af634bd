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

} // namespace
} // namespace tovik::playlist
