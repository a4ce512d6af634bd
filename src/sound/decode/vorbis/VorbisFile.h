// SPDX-License-Identifier: GPL-3.0-or-later
// Owner of an open file of libvorbisfile that reads a ByteStore. One thread.
#pragma once

#include "sound/decode/StoreCursor.h"

#define OV_EXCLUDE_STATIC_CALLBACKS
#include <memory>
#include <vorbis/vorbisfile.h>

namespace tovik::sound::vorbis {

class VorbisFile {
public:
    /// Null when there is no Vorbis stream to be read.
    [[nodiscard]] static std::unique_ptr<VorbisFile> open(std::shared_ptr<const ByteStore> store);

    VorbisFile(const VorbisFile&) = delete;
    VorbisFile& operator=(const VorbisFile&) = delete;
    ~VorbisFile();

    [[nodiscard]] OggVorbis_File* get() noexcept { return &file_; }

    /// The number of streams that follow each other.
    [[nodiscard]] int links() noexcept { return static_cast<int>(ov_streams(&file_)); }

    /// Rate and channels of one of them.
    [[nodiscard]] const vorbis_info& info(int link) noexcept { return *ov_info(&file_, link); }

private:
    explicit VorbisFile(std::shared_ptr<const ByteStore> store) : cursor_(std::move(store)) {}

    StoreCursor cursor_;
    OggVorbis_File file_{};
};

} // namespace tovik::sound::vorbis
