// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/XmlEncoding.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include <iconv.h>

namespace tovik::config {

namespace {

using namespace std::string_view_literals;

/// How a file of more than one encoding family begins.
struct Beginning {
    std::string_view bytes;
    const char* encoding;
    std::size_t markBytes;     ///< of the byte order mark, which is no part of the text
    std::string_view declared; ///< what a declaration may begin with, in lower case
};

/// The longer ones first, as the shorter ones are their beginnings.
constexpr std::array kBeginnings{
    Beginning{"\xEF\xBB\xBF"sv, "UTF-8", 3, "utf-8"sv},
    Beginning{"\xFF\xFE\0\0"sv, "UTF-32LE", 4, "utf-32"sv},
    Beginning{"\0\0\xFE\xFF"sv, "UTF-32BE", 4, "utf-32"sv},
    Beginning{"\xFF\xFE"sv, "UTF-16LE", 2, "utf-16"sv},
    Beginning{"\xFE\xFF"sv, "UTF-16BE", 2, "utf-16"sv},
    Beginning{"<\0\0\0"sv, "UTF-32LE", 0, "utf-32"sv},
    Beginning{"\0\0\0<"sv, "UTF-32BE", 0, "utf-32"sv},
    Beginning{"<\0"sv, "UTF-16LE", 0, "utf-16"sv},
    Beginning{"\0<"sv, "UTF-16BE", 0, "utf-16"sv},
};

constexpr std::string_view kBlanks = " \t\r\n";

/// The encoding that a declaration names; empty where none does. What is wrong with a declaration
/// is found by the parser.
std::string declaredEncoding(std::string_view text) {
    constexpr std::string_view kKey = "encoding";
    if (!text.starts_with("<?xml")) {
        return {};
    }
    text = text.substr(0, text.find("?>"));
    text.remove_prefix(std::min(text.find(kKey), text.size()));
    text.remove_prefix(std::min(kKey.size(), text.size()));
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (!text.starts_with('=')) {
        return {};
    }
    text.remove_prefix(1);
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (text.empty() || (text.front() != '"' && text.front() != '\'')) {
        return {};
    }
    return std::string(text.substr(1, text.find(text.front(), 1) - 1));
}

/// The grammar keeps what the converter would take for its own options out of the name.
bool isEncodingName(std::string_view name) {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
    const std::string lower = base::toLowerAscii(name);
    return !lower.empty() && kLetters.find(lower.front()) != std::string_view::npos &&
           lower.find_first_not_of(std::string(kLetters) + "0123456789._-") == std::string::npos;
}

/// One conversion from an encoding into UTF-8.
class Converter {
public:
    explicit Converter(const std::string& encoding)
        : descriptor_(::iconv_open("UTF-8", encoding.c_str())) {}

    ~Converter() {
        if (known()) {
            ::iconv_close(descriptor_);
        }
    }

    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    [[nodiscard]] bool known() const { return descriptor_ != kNone; }

    [[nodiscard]] std::optional<std::string> convert(std::string_view bytes) const {
        constexpr std::size_t kMostGrowth = 4; // from one byte to a character of four
        std::string text(bytes.size() * kMostGrowth, '\0');
        std::string source(bytes);
        char* from = source.data();
        char* to = text.data();
        std::size_t left = bytes.size();
        std::size_t room = text.size();
        if (::iconv(descriptor_, &from, &left, &to, &room) == kFailed || left != 0) {
            return std::nullopt;
        }
        text.resize(text.size() - room);
        return text;
    }

private:
    static constexpr auto kFailed = static_cast<std::size_t>(-1);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the library's own mark for none
    inline static const auto kNone = reinterpret_cast<iconv_t>(static_cast<std::intptr_t>(-1));

    iconv_t descriptor_;
};

std::optional<std::string> converted(std::string_view bytes, const std::string& encoding) {
    if (base::equalsIgnoringCase(encoding, "UTF-8")) {
        return std::string(bytes);
    }
    const Converter converter(encoding);
    return converter.known() ? converter.convert(bytes) : std::nullopt;
}

} // namespace

std::optional<std::string> utf8OfXmlFile(std::string_view bytes) {
    const auto* const beginning =
        std::find_if(kBeginnings.begin(), kBeginnings.end(), [bytes](const Beginning& candidate) {
            return bytes.starts_with(candidate.bytes);
        });
    if (beginning == kBeginnings.end()) {
        const std::string name = declaredEncoding(bytes);
        return name.empty()           ? std::string(bytes)
               : isEncodingName(name) ? converted(bytes, name)
                                      : std::nullopt;
    }
    auto text = converted(bytes.substr(beginning->markBytes), beginning->encoding);
    const std::string name = text ? base::toLowerAscii(declaredEncoding(*text)) : std::string();
    // A file that says it is something else was mangled on its way here.
    return name.empty() || name.starts_with(beginning->declared) ? text : std::nullopt;
}

} // namespace tovik::config
