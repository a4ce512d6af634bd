// SPDX-License-Identifier: GPL-3.0-or-later
// How an error names a setting.
#pragma once

#include "support/host/TemporaryFolder.h"

#include <string>

namespace tovik::test {

/// Where the key stands, as it follows the description of an error.
inline std::string settingPlace(const TemporaryFolder& folder, const std::string& key) {
    return ": " + (folder / "db/settings.xml") + ": " + key;
}

/// The same, with the text of the key.
inline std::string settingPlace(const TemporaryFolder& folder, const std::string& key,
                                const std::string& text) {
    return settingPlace(folder, key) + " = \"" + text + "\"";
}

} // namespace tovik::test
