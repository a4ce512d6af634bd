// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/WavWriter.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <limits>
#include <string_view>
#include <system_error>

namespace tovik::sound {

namespace {

constexpr std::uint32_t kUnknownSize = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint16_t kFloatFormatTag = 3;
constexpr std::uint32_t kFormatChunkBytes = 18;
constexpr std::uint32_t kFactChunkBytes = 4;
constexpr std::uint64_t kBytesBeforeRiffSize = 8;

// What a 32-bit size field says about a size.
constexpr std::uint32_t sizeField(std::uint64_t size) noexcept {
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(size, kUnknownSize));
}

// Puts fields one behind the other, numbers with the low byte first.
class FieldWriter {
public:
    explicit FieldWriter(std::uint8_t* at) : at_(at) {}

    void text(std::string_view characters) noexcept {
        at_ = std::copy(characters.begin(), characters.end(), at_);
    }

    void number(std::uint32_t value, int bytes) noexcept {
        for (int i = 0; i < bytes; ++i) {
            *at_++ = static_cast<std::uint8_t>(value >> (8 * i));
        }
    }

private:
    std::uint8_t* at_;
};

} // namespace

std::array<std::uint8_t, kWavHeaderBytes> wavHeader(int sampleRate, int channels,
                                                    std::uint64_t dataBytes) noexcept {
    const auto rate = static_cast<std::uint32_t>(sampleRate);
    const auto frameBytes = static_cast<std::uint32_t>(channels) * std::uint32_t{sizeof(float)};
    std::array<std::uint8_t, kWavHeaderBytes> header{};
    FieldWriter fields(header.data());
    fields.text("RIFF");
    fields.number(sizeField(kWavHeaderBytes - kBytesBeforeRiffSize + dataBytes), 4);
    fields.text("WAVEfmt ");
    fields.number(kFormatChunkBytes, 4);
    fields.number(kFloatFormatTag, 2);
    fields.number(static_cast<std::uint32_t>(channels), 2);
    fields.number(rate, 4);
    fields.number(rate * frameBytes, 4);
    fields.number(frameBytes, 2);
    fields.number(std::uint32_t{8 * sizeof(float)}, 2);
    fields.number(0, 2); // no extension of the format
    fields.text("fact");
    fields.number(kFactChunkBytes, 4);
    fields.number(sizeField(dataBytes / frameBytes), 4);
    fields.text("data");
    fields.number(sizeField(dataBytes), 4);
    return header;
}

void WavWriter::FileCloser::operator()(std::FILE* file) const noexcept {
    static_cast<void>(std::fclose(file));
}

WavWriter::WavWriter(const std::string& path, int sampleRate, int channels)
    : path_(path), sampleRate_(sampleRate), channels_(channels),
      file_(std::fopen(path.c_str(), "wbe")) {
    if (file_ == nullptr) {
        fail("create");
        return;
    }
    // Until the true sizes are known, a file cut short by a crash is still read to its end.
    writeHeader(kUnknownSize);
}

WavWriter::~WavWriter() {
    close();
}

void WavWriter::write(std::span<const float> interleaved) {
    constexpr std::size_t kSamplesAtOnce = 1024;
    std::array<std::uint8_t, kSamplesAtOnce * sizeof(float)> bytes;
    while (!interleaved.empty() && file_ != nullptr && ok()) {
        const auto samples = interleaved.first(std::min(kSamplesAtOnce, interleaved.size()));
        FieldWriter fields(bytes.data());
        for (const float sample : samples) {
            fields.number(std::bit_cast<std::uint32_t>(sample), sizeof(float));
        }
        if (std::fwrite(bytes.data(), sizeof(float), samples.size(), file_.get()) !=
            samples.size()) {
            fail("write");
        }
        dataBytes_ += samples.size_bytes();
        interleaved = interleaved.subspan(samples.size());
    }
}

void WavWriter::close() {
    if (file_ == nullptr) {
        return;
    }
    if (ok()) {
        if (std::fseek(file_.get(), 0, SEEK_SET) == 0) {
            writeHeader(dataBytes_);
        } else if (errno != ESPIPE) {
            fail("finish");
        }
    }
    // The last bytes leave the buffer only here, so here a full disk may show.
    if (std::fclose(file_.release()) != 0 && ok()) {
        fail("finish");
    }
}

void WavWriter::fail(const char* doing) {
    const int reason = errno;
    error_ = "Cannot " + std::string(doing) + " \"" + path_ +
             "\": " + std::generic_category().message(reason);
}

void WavWriter::writeHeader(std::uint64_t dataBytes) {
    const auto header = wavHeader(sampleRate_, channels_, dataBytes);
    if (std::fwrite(header.data(), 1, header.size(), file_.get()) != header.size()) {
        fail("write");
    }
}

} // namespace tovik::sound
