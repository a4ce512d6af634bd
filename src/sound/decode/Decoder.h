// SPDX-License-Identifier: GPL-3.0-or-later
// A decoder pulls the samples of one file. It is used by one thread at a time (whoever holds the
// lock of its source); opening may happen on any thread.
#pragma once

#include "sound/decode/PacketScan.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tovik::sound {

/// Which create operation a file belongs to.
enum class FormatFamily { stream, music, wma, flac };

class Decoder {
public:
    virtual ~Decoder() = default;

    /// Rate of the decoded samples in Hz.
    [[nodiscard]] virtual int sampleRate() const noexcept = 0;

    /// 1 or 2; sources with more channels are mixed down to 2.
    [[nodiscard]] virtual int channels() const noexcept = 0;

    /// Length in frames as known now. See `lengthScan`.
    [[nodiscard]] virtual std::int64_t lengthFrames() const noexcept = 0;

    /// A scan that finds the exact length, when `lengthFrames` is only an estimate; else null. The
    /// scan reads the file on its own and may run on another thread. May be called once.
    [[nodiscard]] virtual std::unique_ptr<PacketScan> lengthScan() = 0;

    /// Fills `interleaved` (a multiple of `channels`) and returns the frames written, which are
    /// fewer than asked only at the end; 0 at the end, again and again. Damaged parts are silence
    /// of their own length, so the position stays true. A file that vanishes or shrinks ends.
    virtual std::size_t read(std::span<float> interleaved) = 0;

    /// Goes to `frame` and returns where it stands then: exactly there for MP3, Vorbis, WAV and
    /// FLAC, within 40 frames for WMA, on a row for modules. Beyond the end stands at the end.
    virtual std::int64_t seek(std::int64_t frame) = 0;

    /// How much of what was read lies ready and unheard, told before each read of what is played;
    /// of use to who waits for a network and wants to know when that is heard.
    virtual void noteAhead(std::chrono::milliseconds /*ahead*/) {}

    /// True for modules told to repeat: `read` then never ends and positions wrap at the length.
    [[nodiscard]] virtual bool loops() const noexcept { return false; }

    /// Number of orders of a module; 0 for anything else.
    [[nodiscard]] virtual int orders() const noexcept { return 0; }
};

/// What came of opening a file.
enum class OpenStatus {
    opened,
    noFile,  ///< does not exist, is a folder, or may not be read
    notMine, ///< not of the asked family
    broken,  ///< of the family, but nothing in it decodes
};

struct OpenResult {
    OpenStatus status = OpenStatus::noFile;
    std::unique_ptr<Decoder> decoder; ///< set exactly when `status` is opened
};

struct OpenOptions {
    bool repeat = false; ///< modules only: start again at the end
};

/// Opens `path` (the bytes of a file name, absolute or relative) if its content is of `family`.
/// Never throws on bad input. Only plain files are opened, whatever the name looks like.
[[nodiscard]] OpenResult openDecoder(FormatFamily family, const std::string& path,
                                     OpenOptions options = {});

/// The same for a file that lies in memory; `bytes` is copied.
[[nodiscard]] OpenResult openDecoder(FormatFamily family, std::span<const std::byte> bytes,
                                     OpenOptions options = {});

} // namespace tovik::sound
