// SPDX-License-Identifier: GPL-3.0-or-later
// Sound and tags, made byte by byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::tags::samples {

using namespace std::string_literals;

inline constexpr std::size_t kFrameBytes = 417; ///< 128 kbit/s at 44100 Hz, no padding

/// Frames of version 1, layer 3, without a checksum; each with bytes of its own.
inline std::string sound(int frames) {
    std::string bytes;
    for (int frame = 0; frame < frames; ++frame) {
        std::string one = "\xFF\xFB\x90\x44";
        while (one.size() < kFrameBytes) {
            one += static_cast<char>((one.size() * 7 + static_cast<std::size_t>(frame) * 13) % 199);
        }
        bytes += one;
    }
    return bytes;
}

/// A field of a fixed width.
inline std::string field(std::string text, std::size_t width, char filling = ' ') {
    text.resize(width, filling);
    return text;
}

inline std::string bigEndian(std::uint32_t number) {
    return {static_cast<char>(number >> 24U), static_cast<char>(number >> 16U & 0xFFU),
            static_cast<char>(number >> 8U & 0xFFU), static_cast<char>(number & 0xFFU)};
}

inline std::string sevenBits(std::uint32_t number) {
    return {static_cast<char>(number >> 21U & 0x7FU), static_cast<char>(number >> 14U & 0x7FU),
            static_cast<char>(number >> 7U & 0x7FU), static_cast<char>(number & 0x7FU)};
}

inline std::string frame(std::string_view id, const std::string& content,
                         std::string_view flags = {"\0\0", 2}) {
    return std::string(id) + bigEndian(static_cast<std::uint32_t>(content.size())) +
           std::string(flags) + content;
}

/// A frame as the program writes it.
inline std::string textFrame(std::string_view id, const std::string& text) {
    return frame(id, "\0"s + text);
}

inline std::string head(const std::string& size, char version = 3, char flags = 0) {
    return "ID3"s + version + '\0' + flags + size;
}

/// Frames with the four zero bytes behind them, and a plain size that covers all.
inline std::string tag(const std::string& frames, char version = 3) {
    const std::string body = frames + "\0\0\0\0"s;
    return head(bigEndian(static_cast<std::uint32_t>(body.size() + 10)), version) + body;
}

/// Low byte first.
inline std::string little(std::size_t number) {
    std::string bytes;
    for (unsigned i = 0; i < 4; ++i) {
        bytes += static_cast<char>(number >> (8 * i) & 0xFFU);
    }
    return bytes;
}

/// A FLAC file's blocks: facts of 44100 Hz, stereo, 16 bits, 88200 samples; comments; a picture.
inline std::string flac(const std::vector<std::string>& comments, const std::string& picture) {
    const auto block = [](char type, const std::string& content) {
        return type + bigEndian(static_cast<std::uint32_t>(content.size())).substr(1) + content;
    };
    std::string words = little(0) + little(comments.size());
    for (const std::string& comment : comments) {
        words += little(comment.size()) + comment;
    }
    const std::string art = bigEndian(3) + bigEndian(10) + "image/jpeg" + std::string(4 * 5, '\0') +
                            bigEndian(static_cast<std::uint32_t>(picture.size())) + picture;
    return "fLaC" +
           block('\0', "\x10\0\x10\0\0\0\0\0\0\0\x0A\xC4\x42\xF0\0\x01\x58\x88"s +
                           std::string(16, '\0')) +
           block('\4', words) + block('\6', art) + block('\x81', std::string(8, '\0')) +
           "\xFF\xF8\xC9\x08"s + std::string(64, '\0');
}

} // namespace tovik::tags::samples
