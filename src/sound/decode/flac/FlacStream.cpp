// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/flac/FlacStream.h"

#include <cmath>
#include <span>

namespace tovik::sound::flac {

/// What the library calls; `self` is the stream.
struct FlacStream::Callbacks {
    static FlacStream& of(void* self) noexcept { return *static_cast<FlacStream*>(self); }

    static FLAC__StreamDecoderReadStatus read(const FLAC__StreamDecoder* /*decoder*/,
                                              FLAC__byte* into, std::size_t* size,
                                              void* self) noexcept {
        const std::int64_t got =
            of(self).cursor_.read(std::as_writable_bytes(std::span(into, *size)));
        *size = got > 0 ? static_cast<std::size_t>(got) : 0;
        // A file that cannot be read any more ends here.
        return got > 0 ? FLAC__STREAM_DECODER_READ_STATUS_CONTINUE
                       : FLAC__STREAM_DECODER_READ_STATUS_END_OF_STREAM;
    }

    static FLAC__StreamDecoderSeekStatus seek(const FLAC__StreamDecoder* /*decoder*/,
                                              FLAC__uint64 offset, void* self) noexcept {
        return of(self).cursor_.seek(static_cast<std::int64_t>(offset), SEEK_SET) < 0
                   ? FLAC__STREAM_DECODER_SEEK_STATUS_ERROR
                   : FLAC__STREAM_DECODER_SEEK_STATUS_OK;
    }

    static FLAC__StreamDecoderTellStatus tell(const FLAC__StreamDecoder* /*decoder*/,
                                              FLAC__uint64* offset, void* self) noexcept {
        *offset = static_cast<FLAC__uint64>(of(self).cursor_.position());
        return FLAC__STREAM_DECODER_TELL_STATUS_OK;
    }

    static FLAC__StreamDecoderLengthStatus length(const FLAC__StreamDecoder* /*decoder*/,
                                                  FLAC__uint64* bytes, void* self) noexcept {
        const std::int64_t size = of(self).cursor_.store().size();
        *bytes = size > 0 ? static_cast<FLAC__uint64>(size) : 0;
        return size < 0 ? FLAC__STREAM_DECODER_LENGTH_STATUS_ERROR
                        : FLAC__STREAM_DECODER_LENGTH_STATUS_OK;
    }

    static FLAC__bool atEnd(const FLAC__StreamDecoder* /*decoder*/, void* self) noexcept {
        const StoreCursor& cursor = of(self).cursor_;
        return cursor.position() >= cursor.store().size() ? 1 : 0;
    }

    static FLAC__StreamDecoderWriteStatus write(const FLAC__StreamDecoder* /*decoder*/,
                                                const FLAC__Frame* frame,
                                                const FLAC__int32* const* planes,
                                                void* self) noexcept {
        of(self).take(*frame, planes);
        return FLAC__STREAM_DECODER_WRITE_STATUS_CONTINUE;
    }

    static void metadata(const FLAC__StreamDecoder* /*decoder*/, const FLAC__StreamMetadata* data,
                         void* self) noexcept {
        if (data->type == FLAC__METADATA_TYPE_STREAMINFO) {
            const FLAC__StreamMetadata_StreamInfo& info = data->data.stream_info;
            of(self).info_ = {static_cast<int>(info.sample_rate), static_cast<int>(info.channels),
                              static_cast<std::int64_t>(info.total_samples)};
        }
    }

    static void error(const FLAC__StreamDecoder* /*decoder*/,
                      FLAC__StreamDecoderErrorStatus /*status*/, void* /*self*/) noexcept {
        // The next block tells what was lost.
    }
};

std::unique_ptr<FlacStream> FlacStream::open(std::shared_ptr<const ByteStore> store, bool inOgg) {
    std::unique_ptr<FlacStream> stream(new FlacStream(std::move(store)));
    return stream->start(inOgg) ? std::move(stream) : nullptr;
}

FlacStream::~FlacStream() {
    if (decoder_ != nullptr) {
        FLAC__stream_decoder_delete(decoder_);
    }
}

bool FlacStream::start(bool inOgg) {
    decoder_ = FLAC__stream_decoder_new();
    if (decoder_ == nullptr) {
        return false;
    }
    const auto init =
        inOgg ? &FLAC__stream_decoder_init_ogg_stream : &FLAC__stream_decoder_init_stream;
    const FLAC__StreamDecoderInitStatus status =
        init(decoder_, &Callbacks::read, &Callbacks::seek, &Callbacks::tell, &Callbacks::length,
             &Callbacks::atEnd, &Callbacks::write, &Callbacks::metadata, &Callbacks::error, this);
    return status == FLAC__STREAM_DECODER_INIT_STATUS_OK &&
           FLAC__stream_decoder_process_until_end_of_metadata(decoder_) != 0 && info_.channels > 0;
}

void FlacStream::take(const FLAC__Frame& frame, const FLAC__int32* const* planes) {
    const FLAC__FrameHeader& header = frame.header;
    const std::span all(planes, header.channels);
    const auto scale =
        static_cast<float>(std::ldexp(1.0, 1 - static_cast<int>(header.bits_per_sample)));
    fresh_ = true;
    block_.place = static_cast<std::int64_t>(header.number.sample_number);
    block_.channels = all.size();
    block_.samples.resize(header.blocksize * all.size());
    for (std::size_t c = 0; c < all.size(); ++c) {
        const std::span plane(all[c], header.blocksize);
        for (std::size_t n = 0; n < plane.size(); ++n) {
            block_.samples[n * all.size() + c] = static_cast<float>(plane[n]) * scale;
        }
    }
}

bool FlacStream::next() {
    fresh_ = false;
    while (!fresh_) {
        if (FLAC__stream_decoder_process_single(decoder_) == 0 ||
            FLAC__stream_decoder_get_state(decoder_) >= FLAC__STREAM_DECODER_END_OF_STREAM) {
            return fresh_;
        }
    }
    return true;
}

bool FlacStream::seek(std::int64_t frame) {
    fresh_ = false;
    const bool found =
        FLAC__stream_decoder_seek_absolute(decoder_, static_cast<FLAC__uint64>(frame)) != 0;
    return found && fresh_ && block_.place == frame;
}

void FlacStream::rewind() {
    // After a failed seek the decoder has to be flushed before anything else; a reset does it.
    if (FLAC__stream_decoder_reset(decoder_) != 0) {
        static_cast<void>(FLAC__stream_decoder_process_until_end_of_metadata(decoder_));
    }
    block_ = {};
}

} // namespace tovik::sound::flac
