// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a WAV file of 32-bit float samples (RIFF/WAVE, format tag 3, with the fact chunk that this
// tag asks for). Used by one thread at a time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>

namespace tovik::sound {

/// Bytes before the first sample.
inline constexpr std::size_t kWavHeaderBytes = 58;

/// The header for a file with `dataBytes` bytes of samples. The size fields have 32 bits: one that
/// cannot hold its value (from 4 GiB on) is 0xFFFFFFFF, which readers take as "to the end of the
/// file".
[[nodiscard]] std::array<std::uint8_t, kWavHeaderBytes> wavHeader(int sampleRate, int channels,
                                                                  std::uint64_t dataBytes) noexcept;

class WavWriter {
public:
    /// Creates or empties the file. Errors are reported by `ok`.
    WavWriter(const std::string& path, int sampleRate, int channels);

    /// Finishes the file; call `close` first to learn of errors.
    ~WavWriter();

    WavWriter(const WavWriter&) = delete;
    WavWriter& operator=(const WavWriter&) = delete;

    /// Appends interleaved samples. After an error nothing more is written.
    void write(std::span<const float> interleaved);

    /// Writes the sizes into the header and closes the file; later calls do nothing. Where the
    /// output cannot be wound back (a pipe) the sizes stay 0xFFFFFFFF.
    void close();

    /// False once anything failed; stays false.
    [[nodiscard]] bool ok() const noexcept { return error_.empty(); }

    /// What failed first, with the file name and the reason of the system; empty while `ok`.
    [[nodiscard]] const std::string& error() const noexcept { return error_; }

private:
    struct FileCloser {
        void operator()(std::FILE* file) const noexcept;
    };

    void fail(const char* doing);
    void writeHeader(std::uint64_t dataBytes);

    std::string path_;
    int sampleRate_;
    int channels_;
    std::uint64_t dataBytes_ = 0;
    std::unique_ptr<std::FILE, FileCloser> file_;
    std::string error_;
};

} // namespace tovik::sound
