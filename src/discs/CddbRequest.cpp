// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/CddbRequest.h"

#include "base/Text.h"
#include "base/Url.h"
#include "discs/TocText.h"

#include <array>
#include <string_view>

namespace tovik::discs {

namespace {

constexpr std::string_view kPath = "/~cddb/cddb.cgi";
constexpr std::string_view kLevel = "6";
constexpr std::string_view kNobody = "anonymous";
constexpr std::string_view kNowhere = "localhost";

/// One word of a command: blanks would part it, and other signs would end it.
std::string word(std::string_view text) {
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                        "0123456789-._~";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr unsigned kHalfByte = 4;
    constexpr unsigned kLowHalf = 0xF;
    std::string escaped;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == ' ') {
            escaped.push_back('_');
        } else if (kPlain.find(character) != std::string_view::npos) {
            escaped.push_back(character);
        } else {
            escaped += {'%', kDigits[byte >> kHalfByte], kDigits[byte & kLowHalf]};
        }
    }
    return escaped;
}

std::string wordOr(std::string_view text, std::string_view otherwise) {
    return word(text.empty() ? otherwise : text);
}

/// The address up to the "?".
std::string place(std::string_view host) {
    std::string address = base::isWebUrl(host) ? std::string(host) : "http://" + std::string(host);
    const std::size_t authority = address.find("://") + 3;
    const std::size_t path = address.find('/', authority);
    if (path == std::string::npos || path + 1 == address.size()) {
        address = address.substr(0, path) + std::string(kPath);
    }
    return address;
}

std::string url(const CddbPeers& peers, const std::string& command) {
    const std::size_t at = peers.mail.find('@');
    const std::string_view mail = peers.mail;
    const std::string_view user = mail.substr(0, at);
    const std::string_view home =
        at == std::string::npos ? std::string_view() : mail.substr(at + 1);
    return place(peers.host) + "?cmd=" + command + "&hello=" + wordOr(user, kNobody) + "+" +
           wordOr(home, kNowhere) + "+" + word(peers.client) + "+" + wordOr(peers.version, "0") +
           "&proto=" + std::string(kLevel);
}

} // namespace

std::string queryUrl(const CddbPeers& peers, std::string_view toc) {
    const std::string id = discId(toc);
    return id.empty() ? std::string()
                      : url(peers, "cddb+query+" + id + "+" + base::replaceAll(toc, " ", "+"));
}

std::string readUrl(const CddbPeers& peers, std::string_view category, std::string_view discId) {
    return url(peers, "cddb+read+" + word(category) + "+" + word(discId));
}

} // namespace tovik::discs
