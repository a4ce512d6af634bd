// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/HtmlList.h"

#include "playlist/stdSS.h"

#include <array>
#include <string_view>

namespace tovik::playlist {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

constexpr auto kHead = std::to_array<std::string_view>({
    R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN")",
    R"("http://www.w3.org/TR/html4/loose.dtd">)",
    "<html>",
    "<head>",
    "<title>Tovik Generated Playlist</title>",
    R"(<meta http-equiv="Content-Type"content="text/html; charset=iso-8859-1">)",
    R"(<style type="text/css">)",
    "<!--",
    "body {",
    "background-color: #000000;",
    "}",
    "body,td,th {",
    "color: #CCCCCC;",
    "}",
    "a:link {",
    "color: #CCCCCC;",
    "}",
    ".style4 {",
    "font-size: 36px;",
    "color: #9999FF;",
    "}",
    "-->",
    "</style></head>",
    "<body>",
    R"(<p class="style4">Tovik Html Playlist </p>)",
});

constexpr auto kTail = std::to_array<std::string_view>({"</body>", "</html>"});

void appendLine(std::string& page, std::string_view line) {
    page += line;
    page += kLineEnd;
}

} // namespace

std::string htmlText(const stdSS& list) {
    std::string page;
    for (const std::string_view line : kHead) {
        appendLine(page, line);
    }
    for (Row row = 1; row <= list.ListCount(); ++row) {
        page += "<a href=\"";
        page += list.text(row, RowText::FileName);
        page += "\">";
        page += std::to_string(row);
        page += ".|";
        page += list.text(row, RowText::Title);
        appendLine(page, "</a><br>");
    }
    for (const std::string_view line : kTail) {
        appendLine(page, line);
    }
    return page;
}

} // namespace tovik::playlist
