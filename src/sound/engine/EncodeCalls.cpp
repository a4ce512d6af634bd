// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/EncodeCalls.h"

#include "sound/api/PcmHeader.h"
#include "sound/encode/ProcessEncoder.h"

#include <string>

namespace tovik::sound {

namespace {

/// Numbers beyond these are slips of who calls.
constexpr std::uint32_t kMostRate = 192'000;
constexpr std::uint32_t kMostBitrate = 10'000'000;

} // namespace

bool EncodeCalls::BASS_Encode_Start(Handle handle, const EncoderCommand& command,
                                    std::uint32_t /*flags*/) {
    Channel* const channel = core_.channels().find(handle);
    if (channel == nullptr) {
        return core_.fail(ErrorCode::invalidHandle);
    }
    if (!channel->isDecoding()) {
        return core_.fail(ErrorCode::notAvailable);
    }
    channel->encoder = ProcessEncoder::start(command);
    if (channel->encoder == nullptr) {
        return core_.fail(ErrorCode::cannotCreateFile);
    }
    constexpr std::uint16_t kBits = 16;
    const std::string header =
        pcmHeader(static_cast<std::uint32_t>(channel->source()->sampleRate()),
                  static_cast<std::uint16_t>(channel->source()->channels()), kBits, kUnknownPcmSize,
                  kUnknownPcmSize);
    channel->encoder->feed(std::as_bytes(std::span(header)));
    return core_.succeed();
}

bool EncodeCalls::BASS_Encode_Stop(Handle handle) {
    const Channel* const channel = core_.channels().find(handle);
    if (channel == nullptr || channel->encoder == nullptr) {
        return core_.fail(ErrorCode::invalidHandle);
    }
    channel->encoder->close();
    return core_.succeed();
}

Handle EncodeCalls::BASS_WMA_EncodeOpenFile(std::uint32_t freq, std::uint32_t /*flags*/,
                                            std::uint32_t bitrate, std::string_view path) {
    if (!core_.initialized()) {
        core_.fail(ErrorCode::notInitialized);
        return kNoHandle;
    }
    if (freq == 0 || freq > kMostRate || bitrate == 0 || bitrate > kMostBitrate) {
        core_.fail(ErrorCode::illegalParameter);
        return kNoHandle;
    }
    // Those that have come to an end make room.
    std::erase_if(wmaEncoders_, [](const auto& row) {
        const EncodeStage stage = row.second->report().stage;
        return stage == EncodeStage::finished || stage == EncodeStage::failed;
    });
    const Handle handle = core_.channels().newHandle();
    wmaEncoders_[handle] = std::make_unique<WmaEncoder>(
        std::string(path),
        WmaForm{.rate = static_cast<int>(freq), .bitrate = static_cast<int>(bitrate)});
    core_.succeed();
    return handle;
}

WmaEncoder* EncodeCalls::wma(Handle encoder) {
    const auto found = wmaEncoders_.find(encoder);
    if (found == wmaEncoders_.end()) {
        core_.fail(ErrorCode::invalidHandle);
        return nullptr;
    }
    core_.succeed();
    return found->second.get();
}

bool EncodeCalls::BASS_WMA_EncodeSetTag(Handle encoder, std::string_view tag,
                                        std::string_view value) {
    WmaEncoder* const found = wma(encoder);
    if (found == nullptr || tag.empty()) {
        return found != nullptr;
    }
    return found->setTag(std::string(tag), std::string(value)) ||
           core_.fail(ErrorCode::notAvailable);
}

bool EncodeCalls::BASS_WMA_EncodeWrite(Handle encoder, std::span<const std::byte> samples) {
    WmaEncoder* const found = wma(encoder);
    return found != nullptr && (found->feed(samples) || core_.fail(ErrorCode::cannotCreateFile));
}

bool EncodeCalls::BASS_WMA_EncodeClose(Handle encoder) {
    WmaEncoder* const found = wma(encoder);
    if (found != nullptr) {
        found->close();
    }
    return found != nullptr;
}

std::optional<EncodeReport> EncodeCalls::encodeReport(Handle handle) {
    if (const auto found = wmaEncoders_.find(handle); found != wmaEncoders_.end()) {
        return found->second->report();
    }
    const Channel* const channel = core_.channels().find(handle);
    if (channel == nullptr || channel->encoder == nullptr) {
        return std::nullopt;
    }
    return channel->encoder->report();
}

} // namespace tovik::sound
