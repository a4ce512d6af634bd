// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes as stations send them: files of the media, and frames made by hand.
#pragma once

#include "radio/SongComments.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

namespace tovik::test {

inline std::span<const std::byte> spanOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

/// A file of the media; without a folder of them the test fails.
inline std::string mediaBytes(const std::string& name) {
    const char* const folder = std::getenv("TOVIK_MEDIA");
    std::ifstream file(std::string(folder != nullptr ? folder : "") + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A frame of MPEG 1, layer 3, 128 kbit/s, 44100 Hz: 417 bytes, `sign` behind its head.
inline std::string mpegFrame(char sign) {
    return "\xFF\xFB\x90\x64" + std::string(413, sign);
}

/// A frame of AAC in ADTS, 44100 Hz, stereo, of so many bytes.
inline std::string adtsFrame(char sign, std::size_t length = 300) {
    std::string frame = "\xFF\xF1\x50";
    frame += static_cast<char>(0x80U | length >> 11U);
    frame += static_cast<char>(length >> 3U & 0xFFU);
    frame += static_cast<char>((length & 7U) << 5U | 0x1FU);
    frame += '\xFC';
    return frame + std::string(length - 7, sign);
}

/// A page of Ogg with one packet.
inline std::string oggPage(char flags, std::uint64_t granule, char number,
                           const std::string& packet) {
    std::string page = "OggS";
    page += '\0';
    page += flags;
    for (unsigned byte = 0; byte < 8; ++byte) {
        page += static_cast<char>(granule >> (8 * byte) & 0xFFU);
    }
    page += "song";
    page += number;
    page += std::string(7, '\0'); // the rest of the number, and the checksum
    page += static_cast<char>(packet.size() / 255 + 1);
    page += std::string(packet.size() / 255, '\xFF');
    page += static_cast<char>(packet.size() % 255);
    page += packet;
    std::uint32_t sum = 0; // RFC 3533, bit by bit
    for (const char sign : page) {
        sum ^= static_cast<std::uint32_t>(static_cast<unsigned char>(sign)) << 24U;
        for (int bit = 0; bit < 8; ++bit) {
            sum = sum << 1U ^ ((sum & 0x80000000U) != 0 ? 0x04C11DB7U : 0U);
        }
    }
    for (unsigned byte = 0; byte < 4; ++byte) {
        page[22 + byte] = static_cast<char>(sum >> (8 * byte) & 0xFFU);
    }
    return page;
}

/// A stream of Ogg with the comments of Vorbis, and with something instead of sound.
inline std::string titledOgg(const std::string& artist, const std::string& title) {
    std::string file = oggPage(2, 0, 0, "\x01vorbis head");
    file += oggPage(0, 0, 1, "\x03vorbis" + radio::commentsOf(artist, title));
    for (char number = 2; number < 8; ++number) {
        file +=
            oggPage(0, static_cast<std::uint64_t>(number) * 1000, number, std::string(700, number));
    }
    return file;
}

} // namespace tovik::test
