// SPDX-License-Identifier: GPL-3.0-or-later
// The operations that make, start and free channels. Interface thread only.
#pragma once

#include "sound/api/StreamOperations.h"
#include "sound/engine/EngineCore.h"

#include <memory>

namespace tovik::sound {

class StreamCalls : public virtual StreamOperations {
public:
    explicit StreamCalls(EngineCore& core) : core_(core) {}

    Handle BASS_StreamCreateFile(bool memory, std::string_view path, std::uint32_t offset,
                                 std::uint32_t length, std::uint32_t flags) override;
    Handle BASS_MusicLoad(bool memory, std::string_view path, std::uint32_t offset,
                          std::uint32_t length, std::uint32_t flags, std::uint32_t freq) override;
    Handle BASS_WMA_StreamCreateFile(bool memory, std::string_view path, std::uint32_t offset,
                                     std::uint32_t length, std::uint32_t flags) override;
    Handle BASS_FLAC_StreamCreateFile(bool memory, std::string_view path, std::uint32_t offset,
                                      std::uint32_t length, std::uint32_t flags) override;
    Handle openAhead(std::string_view path, bool repeats) override;
    std::uint32_t BASS_WMA_GetIWMReader(Handle stream) override;
    bool BASS_StreamPlay(Handle stream, bool flush, std::uint32_t flags) override;
    bool BASS_MusicPlay(Handle music) override;
    bool BASS_StreamFree(Handle stream) override;
    bool BASS_MusicFree(Handle music) override;
    std::int64_t BASS_StreamGetLength(Handle stream) override;
    std::int64_t BASS_MusicGetLength(Handle music, bool playLength) override;

private:
    /// What part of what is asked to be opened.
    struct Place {
        bool memory;
        std::string_view path;
        std::uint32_t offset;
        std::uint32_t length;
    };

    [[nodiscard]] Handle create(FormatFamily family, const Place& place, std::uint32_t flags);
    [[nodiscard]] Handle add(std::unique_ptr<Channel> channel, Answer answer);
    bool play(Channel* channel, bool fromStart);
    bool free(Handle handle, const Channel* channel);
    [[nodiscard]] std::int64_t lengthBytes(const Channel& channel);

    EngineCore& core_;
};

} // namespace tovik::sound
