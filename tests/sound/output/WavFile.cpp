// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/WavFile.h"

#include <cstring>
#include <fstream>
#include <sstream>
#include <string_view>

namespace tovik::sound {

namespace {

template <typename Number>
Number numberAt(std::string_view bytes, std::size_t at) {
    Number value{};
    if (at + sizeof value <= bytes.size()) {
        std::memcpy(&value, bytes.data() + at, sizeof value);
    }
    return value;
}

void readFormat(WavFile& wav, std::string_view chunk) {
    wav.formatTag = numberAt<std::uint16_t>(chunk, 0);
    wav.channels = numberAt<std::uint16_t>(chunk, 2);
    wav.sampleRate = numberAt<std::uint32_t>(chunk, 4);
    wav.bytesPerSecond = numberAt<std::uint32_t>(chunk, 8);
    wav.frameBytes = numberAt<std::uint16_t>(chunk, 12);
    wav.bitsPerSample = numberAt<std::uint16_t>(chunk, 14);
}

} // namespace

std::optional<WavFile> readWav(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    const std::string text = content.str();
    const std::string_view bytes = text;
    if (bytes.substr(0, 4) != "RIFF" || bytes.size() < 12 || bytes.substr(8, 4) != "WAVE") {
        return std::nullopt;
    }
    WavFile wav;
    wav.riffBytes = numberAt<std::uint32_t>(bytes, 4);
    for (std::size_t at = 12; at + 8 <= bytes.size();) {
        const std::string_view name = bytes.substr(at, 4);
        const auto size = numberAt<std::uint32_t>(bytes, at + 4);
        const std::string_view chunk = bytes.substr(at + 8, size);
        if (name == "fmt ") {
            readFormat(wav, chunk);
        } else if (name == "fact") {
            wav.factFrames = numberAt<std::uint32_t>(chunk, 0);
        } else if (name == "data") {
            wav.dataBytes = size;
            wav.samples.resize(chunk.size() / sizeof(float));
            for (std::size_t i = 0; i < wav.samples.size(); ++i) {
                wav.samples[i] = numberAt<float>(chunk, i * sizeof(float));
            }
        }
        at += 8 + std::size_t{size} + size % 2;
    }
    return wav;
}

} // namespace tovik::sound
