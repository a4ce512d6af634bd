// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/HtmlList.h"

#include "base/Windows1252.h"
#include "playlist/ListNames.h"
#include "playlist/stdSS.h"

#include <array>
#include <string_view>

namespace tovik::playlist {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

constexpr std::string_view kOldCharset =
    R"(<meta http-equiv="Content-Type"content="text/html; charset=iso-8859-1">)";
constexpr std::string_view kCharset =
    R"(<meta http-equiv="Content-Type" content="text/html; charset=utf-8">)";

constexpr auto kHead = std::to_array<std::string_view>({
    R"(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN")",
    R"("http://www.w3.org/TR/html4/loose.dtd">)",
    "<html>",
    "<head>",
    "<title>Tovik Generated Playlist</title>",
    kOldCharset,
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

/// Any bytes as text of a page in UTF-8.
std::string escaped(std::string_view bytes) {
    std::string text;
    for (const char character : base::displayText(bytes)) {
        switch (character) {
        case '&':
            text += "&amp;";
            break;
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        case '"':
            text += "&quot;";
            break;
        default:
            text += character;
        }
    }
    return text;
}

std::string addressOf(std::string_view fileName, const ListManner& manner) {
    return manner.comfort.escapesPage
               ? escaped(referenceInList(fileName, manner.comfort.savesRelativeNames
                                                       ? std::string_view(manner.folder)
                                                       : std::string_view()))
               : std::string(fileName);
}

} // namespace

std::string htmlText(const stdSS& list, const ListManner& manner) {
    const bool escapes = manner.comfort.escapesPage;
    std::string page;
    for (const std::string_view line : kHead) {
        appendLine(page, escapes && line == kOldCharset ? kCharset : line);
    }
    for (Row row = 1; row <= list.ListCount(); ++row) {
        const std::string_view title = list.text(row, RowText::Title);
        page += "<a href=\"";
        page += addressOf(list.text(row, RowText::FileName), manner);
        page += "\">";
        page += std::to_string(row);
        page += ".|";
        page += escapes ? escaped(title) : std::string(title);
        appendLine(page, "</a><br>");
    }
    for (const std::string_view line : kTail) {
        appendLine(page, line);
    }
    return page;
}

} // namespace tovik::playlist
