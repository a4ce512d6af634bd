// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/PluginName.h"

#include "base/Text.h"

namespace tovik::sound {

namespace {

constexpr unsigned kSpace = 0x20; ///< below lie controls
constexpr unsigned kDelete = 0x7F;

/// The second row of controls, U+0080 to U+009F, in UTF-8: this, and a byte up to the next one.
constexpr unsigned kUpperControls = 0xC2;
constexpr unsigned kLastUpperControl = 0x9F;

} // namespace

std::string pluginName(std::string_view bytes) {
    const std::string_view line =
        bytes.substr(0, bytes.find_first_of(std::string_view("\0\r\n", 3)));
    const bool utf8 = base::isUtf8(line);
    std::string name;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const unsigned byte = static_cast<unsigned char>(line[i]);
        if (utf8 && byte == kUpperControls &&
            static_cast<unsigned char>(line[i + 1]) <= kLastUpperControl) {
            ++i;
        } else if (byte >= kSpace && byte != kDelete) {
            name += line[i];
        }
    }
    return std::string(base::cutToWidth(name, kLongestPluginName));
}

} // namespace tovik::sound
