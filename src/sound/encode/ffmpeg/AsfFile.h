// SPDX-License-Identifier: GPL-3.0-or-later
// WMA version 2 in ASF, by FFmpeg. One thread at a time.
#pragma once

#include "sound/encode/WmaFile.h"

#include <memory>
#include <string>

namespace tovik::sound::ffmpeg {

/// See `WmaModule::create`.
[[nodiscard]] std::unique_ptr<WmaFile> createAsfFile(const std::string& path, const WmaForm& form,
                                                     std::string& failure);

} // namespace tovik::sound::ffmpeg
