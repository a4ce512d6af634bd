// SPDX-License-Identifier: GPL-3.0-or-later
// The encoders of a sound library that writes nothing: a test says how each one fares. One thread.
#pragma once

#include "sound/api/EncodeOperations.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tovik::test {

class FakeEncoders : public virtual sound::EncodeOperations {
public:
    /// One that was begun. What a test writes into the report is what is told.
    struct Encoder {
        sound::EncoderCommand command{}; ///< of WMA only the output
        std::vector<std::pair<std::string, std::string>> tags{};
        std::size_t bytes = 0; ///< of samples that it got
        bool closed = false;
        sound::EncodeReport report{.stage = sound::EncodeStage::running, .takesMore = true};
    };

    /// In the order in which they were begun.
    std::vector<Encoder> encoders;

    /// Called with each one that begins, and with each that gets samples.
    std::function<void(Encoder&)> onEncoder;
    bool programsRun = true; ///< false: no program can be started
    bool encodersEnd = true; ///< false: what is closed goes on until a test says that it ended

    bool BASS_Encode_Start(sound::Handle channel, const sound::EncoderCommand& command,
                           std::uint32_t flags) override;
    bool BASS_Encode_Stop(sound::Handle channel) override;
    sound::Handle BASS_WMA_EncodeOpenFile(std::uint32_t freq, std::uint32_t flags,
                                          std::uint32_t bitrate, std::string_view path) override;
    bool BASS_WMA_EncodeSetTag(sound::Handle encoder, std::string_view tag,
                               std::string_view value) override;
    bool BASS_WMA_EncodeWrite(sound::Handle encoder, std::span<const std::byte> samples) override;
    bool BASS_WMA_EncodeClose(sound::Handle encoder) override;
    std::optional<sound::EncodeReport> encodeReport(sound::Handle handle) override;

protected:
    /// What is read of a channel goes to its encoder.
    void feedEncoder(sound::Handle channel, std::size_t bytes);

    /// An operation that acts, such as "BASS_Encode_Stop(1)".
    virtual void noteCall(std::string call) = 0;
    [[nodiscard]] virtual sound::Handle newHandle() = 0;

private:
    void add(sound::Handle handle, sound::EncoderCommand command);
    [[nodiscard]] Encoder* find(sound::Handle handle);
    bool close(sound::Handle handle);
    void take(Encoder& encoder, std::size_t bytes) const;

    std::map<sound::Handle, std::size_t> places_;
};

} // namespace tovik::test
