// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/StationHeaders.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>

namespace tovik::sound {
namespace {

constexpr int kMostKbps = 10'000;

/// The number that stands at the beginning of `text`, blanks before it left out.
template <typename Number>
std::optional<Number> leadingNumber(std::string_view text) {
    text = base::trimmed(text);
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end != text.data() ? std::optional(number) : std::nullopt;
}

bool isStatusLine(std::string_view line) {
    return line.starts_with("HTTP/") || line.starts_with("ICY ");
}

/// "bytes 100-199/200": 100.
std::uint64_t firstByteOf(std::string_view range) {
    const std::size_t blank = range.find(' ');
    return blank == std::string_view::npos
               ? 0
               : leadingNumber<std::uint64_t>(range.substr(blank)).value_or(0);
}

} // namespace

bool HeaderReader::add(std::string_view line) {
    bytes_ += line.size() + 2;
    if (bytes_ > kMostBytes || ++lines_ > kMostLines) {
        return false;
    }
    if (isStatusLine(line)) {
        begin(line);
        return true;
    }
    // A NUL in a line would end the list of tags.
    const std::size_t nul = line.find('\0');
    line = line.substr(0, nul);
    const std::size_t colon = line.find(':');
    if (line.empty()) {
        return true;
    }
    headers_.tags.append(line).push_back('\0');
    if (colon != std::string_view::npos) {
        take(base::toLowerAscii(line.substr(0, colon)), base::trimmed(line.substr(colon + 1)));
    }
    return true;
}

void HeaderReader::begin(std::string_view statusLine) {
    headers_ = {};
    chunked_ = false;
    statusLine = statusLine.substr(0, statusLine.find('\0'));
    headers_.tags.append(statusLine).push_back('\0');
    const std::size_t blank = std::min(statusLine.find(' '), statusLine.size());
    headers_.status = leadingNumber<int>(statusLine.substr(blank)).value_or(0);
}

void HeaderReader::take(std::string_view name, std::string_view value) {
    headers_.icy = headers_.icy || name.starts_with("icy-");
    if (name == "content-type") {
        headers_.contentType = base::toLowerAscii(base::trimmed(value.substr(0, value.find(';'))));
    } else if (name == "location") {
        headers_.location = value;
    } else if (name == "icy-metaint") {
        headers_.metaInterval = leadingNumber<std::uint64_t>(value).value_or(0);
    } else if (name == "icy-br") {
        const int kbps = leadingNumber<int>(value).value_or(0);
        headers_.kbps = kbps > 0 && kbps <= kMostKbps ? kbps : 0;
    } else if (name == "content-length" && !chunked_) {
        headers_.length = leadingNumber<std::uint64_t>(value);
    } else if (name == "transfer-encoding") {
        chunked_ = true; // then a length is not that of the body
        headers_.length.reset();
    } else if (name == "content-range") {
        headers_.firstByte = firstByteOf(value);
    }
}

} // namespace tovik::sound
