// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/SettingText.h"

#include "base/Numbers.h"

namespace tovik::config {

std::int16_t settingToInt16(std::string_view text) {
    return base::toInt16(base::textToNumber(text));
}

bool settingToFlag(std::string_view text) {
    return base::textToNumber(text) == 1.0;
}

} // namespace tovik::config
