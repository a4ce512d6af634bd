// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/libcdio/CdText.h"

#include <cdio/track.h>

#include <array>
#include <cstddef>
#include <optional>

namespace tovik::sound::libcdio {

namespace {

struct Field {
    cdtext_field_t field;
    const char* key;
};

constexpr std::array kFields = {Field{CDTEXT_FIELD_TITLE, "TITLE"},
                                Field{CDTEXT_FIELD_PERFORMER, "PERFORMER"}};

constexpr unsigned kContinuation = 0x80;
constexpr unsigned kContinuationMask = 0xC0;
constexpr unsigned kPayload = 0x3F;

unsigned byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

/// The bytes of a UTF-8 text whose characters all lie below U+0100; nothing for any other.
std::optional<std::string> latin1(std::string_view text) {
    constexpr unsigned kFirstLead = 0xC2;
    constexpr unsigned kLastLead = 0xC3;
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned lead = byteAt(text, i);
        if (lead < kContinuation) {
            bytes += text[i];
            continue;
        }
        if (lead < kFirstLead || lead > kLastLead || i + 1 == text.size()) {
            return std::nullopt;
        }
        const unsigned next = byteAt(text, ++i);
        if ((next & kContinuationMask) != kContinuation) {
            return std::nullopt;
        }
        bytes += static_cast<char>((lead & 3U) << 6U | (next & kPayload));
    }
    return bytes;
}

/// How many bytes follow a lead byte of UTF-8; nothing for a byte that is none.
std::optional<std::size_t> following(unsigned lead) {
    if (lead < kContinuation) {
        return 0;
    }
    if (lead >= 0xC2 && lead < 0xE0) {
        return 1;
    }
    if (lead >= 0xE0 && lead < 0xF0) {
        return 2;
    }
    return lead >= 0xF0 && lead < 0xF5 ? std::optional<std::size_t>(3) : std::nullopt;
}

bool isUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto more = following(byteAt(text, i));
        if (!more || text.size() - i <= *more) {
            return false;
        }
        for (std::size_t k = 0; k < *more; ++k) {
            if ((byteAt(text, ++i) & kContinuationMask) != kContinuation) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

std::string withoutSecondEncoding(std::string_view text) {
    const auto bytes = latin1(text);
    return bytes && isUtf8(*bytes) ? *bytes : std::string(text);
}

std::string linesOf(const cdtext_t& text, unsigned first, unsigned count, bool isImage) {
    std::string lines;
    for (unsigned index = 0; index <= count; ++index) {
        const auto track = static_cast<track_t>(index == 0 ? 0 : first + index - 1);
        for (const Field& field : kFields) {
            const char* const value = cdtext_get_const(&text, field.field, track);
            if (value != nullptr && *value != '\0') {
                lines += field.key + std::to_string(index) + "=" +
                         (isImage ? withoutSecondEncoding(value) : std::string(value));
                lines += '\0';
            }
        }
    }
    return lines.empty() ? lines : lines + '\0';
}

std::string cdTextOf(CdIo_t& handle, bool isImage) {
    const cdtext_t* const text = cdio_get_cdtext(&handle);
    return text == nullptr ? std::string()
                           : linesOf(*text, cdio_get_first_track_num(&handle),
                                     cdio_get_num_tracks(&handle), isImage);
}

} // namespace tovik::sound::libcdio
