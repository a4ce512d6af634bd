// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/FakeEncoders.h"

namespace tovik::test {

using sound::EncodeStage;
using sound::Handle;

void FakeEncoders::add(Handle handle, sound::EncoderCommand command) {
    places_[handle] = encoders.size();
    encoders.push_back({.command = std::move(command)});
    if (onEncoder) {
        onEncoder(encoders.back());
    }
}

FakeEncoders::Encoder* FakeEncoders::find(Handle handle) {
    const auto found = places_.find(handle);
    return found == places_.end() ? nullptr : &encoders[found->second];
}

void FakeEncoders::take(Encoder& encoder, std::size_t bytes) const {
    encoder.bytes += bytes;
    if (onEncoder) {
        onEncoder(encoder);
    }
}

void FakeEncoders::feedEncoder(Handle channel, std::size_t bytes) {
    if (Encoder* const encoder = find(channel); encoder != nullptr) {
        take(*encoder, bytes);
    }
}

bool FakeEncoders::close(Handle handle) {
    Encoder* const encoder = find(handle);
    if (encoder == nullptr) {
        return false;
    }
    encoder->closed = true;
    encoder->report.takesMore = false;
    if (encodersEnd && encoder->report.stage != EncodeStage::failed) {
        encoder->report.stage = EncodeStage::finished;
    }
    return true;
}

bool FakeEncoders::BASS_Encode_Start(Handle channel, const sound::EncoderCommand& command,
                                     std::uint32_t flags) {
    noteCall("BASS_Encode_Start(" + std::to_string(channel) + ", " + command.text + ", " +
             std::to_string(flags) + ")");
    if (!programsRun || channel == sound::kNoHandle) {
        return false;
    }
    add(channel, command);
    return true;
}

bool FakeEncoders::BASS_Encode_Stop(Handle channel) {
    noteCall("BASS_Encode_Stop(" + std::to_string(channel) + ")");
    return close(channel);
}

Handle FakeEncoders::BASS_WMA_EncodeOpenFile(std::uint32_t freq, std::uint32_t flags,
                                             std::uint32_t bitrate, std::string_view path) {
    noteCall("BASS_WMA_EncodeOpenFile(" + std::to_string(freq) + ", " + std::to_string(flags) +
             ", " + std::to_string(bitrate) + ", " + std::string(path) + ")");
    const Handle handle = newHandle();
    add(handle, {.output = std::string(path)});
    return handle;
}

bool FakeEncoders::BASS_WMA_EncodeSetTag(Handle handle, std::string_view tag,
                                         std::string_view value) {
    Encoder* const encoder = find(handle);
    if (encoder != nullptr) {
        encoder->tags.emplace_back(tag, value);
    }
    return encoder != nullptr;
}

bool FakeEncoders::BASS_WMA_EncodeWrite(Handle handle, std::span<const std::byte> samples) {
    Encoder* const encoder = find(handle);
    if (encoder == nullptr || encoder->report.stage == EncodeStage::failed) {
        return false;
    }
    take(*encoder, samples.size());
    return true;
}

bool FakeEncoders::BASS_WMA_EncodeClose(Handle handle) {
    noteCall("BASS_WMA_EncodeClose(" + std::to_string(handle) + ")");
    return close(handle);
}

std::optional<sound::EncodeReport> FakeEncoders::encodeReport(Handle handle) {
    const Encoder* const encoder = find(handle);
    return encoder != nullptr ? std::optional(encoder->report) : std::nullopt;
}

} // namespace tovik::test
