// SPDX-License-Identifier: GPL-3.0-or-later
// What the module of FFmpeg shows of the encoder.
#include "sound/encode/ffmpeg/AsfFile.h"

extern "C" {
[[gnu::visibility("default")]] extern const tovik::sound::WmaModule tovikWmaModule;

const tovik::sound::WmaModule tovikWmaModule = {tovik::sound::kWmaVersion,
                                                &tovik::sound::ffmpeg::createAsfFile};
}
