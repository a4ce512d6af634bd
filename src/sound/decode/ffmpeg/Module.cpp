// SPDX-License-Identifier: GPL-3.0-or-later
// The one name that the module shows.
#include "sound/decode/FallbackModule.h"
#include "sound/decode/ffmpeg/FfmpegOpen.h"
#include "sound/decode/ffmpeg/LiveOpen.h"

extern "C" {
[[gnu::visibility("default")]] extern const tovik::sound::FallbackDecoders tovikFallbackDecoders;

const tovik::sound::FallbackDecoders tovikFallbackDecoders = {tovik::sound::kFallbackVersion,
                                                              &tovik::sound::ffmpeg::openFfmpeg,
                                                              &tovik::sound::ffmpeg::openLive};
}
