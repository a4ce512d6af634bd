// SPDX-License-Identifier: GPL-3.0-or-later
// Packages of a skin byte by byte, also such as no maker would make.
#pragma once

#include "skin/LittleEndian.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::skin {

inline std::string textField(std::string_view text) {
    std::string bytes;
    appendLittleEndian(bytes, static_cast<std::uint16_t>(text.size()));
    return bytes.append(text);
}

inline std::string header(std::int16_t count, const std::string& signature = "Tovik12345") {
    std::string bytes = signature;
    for (const char* const text : {"one", "", "three", "four"}) {
        bytes += textField(text);
    }
    appendLittleEndian(bytes, count);
    return bytes;
}

inline std::string entry(std::string_view name, std::string_view payload) {
    std::string bytes = "\x55"; // the flag
    appendLittleEndian(bytes, static_cast<std::int32_t>(payload.size()));
    return bytes.append(textField(name)).append(payload);
}

} // namespace tovik::skin
