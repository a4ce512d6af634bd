// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/EarlierFiles.h"

#include "base/Digest.h"
#include "base/RegularFile.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace tovik::host {

namespace {

struct Row {
    std::string_view name;
    std::string_view digest;

    [[nodiscard]] bool operator==(const Row&) const = default;
};

/// What is laid since is remembered by the folder itself. Of the drawn pictures only the last forms
/// are here. Sorted by name.
constexpr auto kLaidBefore = std::to_array<Row>({
    {"CDDB/server.ini", "f5e52ee24a3f42c1"},
    {"Languages/English.lng", "bfc4ba39d7347755"},
    {"Languages/English.lng", "df1b928b0cbac8ef"},
    {"Languages/English.lng", "7146957ee1656d40"},
    {"Languages/English.lng", "e5a4a3523de51fde"},
    {"Languages/English.lng", "285e9b2db57a7c73"},
    {"Languages/English.lng", "ff29f8c9636f63c3"},
    {"Languages/English.lng", "560a85e24e51cb90"},
    {"Languages/English.lng", "ff57c59d26f81546"},
    {"Languages/English.lng", "2de0f135484620bc"},
    {"Languages/English.lng", "ce8275f7647cae0e"},
    {"Languages/English.lng", "bc0aa61f0611fdb4"},
    {"Languages/English.lng", "9f6ae8dc1409bec6"},
    {"Languages/English.lng", "4edb9c75444d01ba"},
    {"Languages/English.lng", "5be9a7eb80ed039c"},
    {"Languages/Slovenian.lng", "45b4d8d7b2c52e48"},
    {"Languages/Slovenian.lng", "25816eb5d3fe6fab"},
    {"Languages/Slovenian.lng", "4a6e61091531cc56"},
    {"Languages/Slovenian.lng", "4a83e631cb3e45fd"},
    {"Languages/Slovenian.lng", "cd2750895cf94fa0"},
    {"Languages/Slovenian.lng", "a176df747501f25a"},
    {"Languages/Slovenian.lng", "f029f1c7e3fe4970"},
    {"Languages/Slovenian.lng", "d8f4110a707c9835"},
    {"Languages/Slovenian.lng", "7e2d3fb70afca0fc"},
    {"Languages/Slovenian.lng", "79040b290f3a93bc"},
    {"Languages/Slovenian.lng", "676821e030b778da"},
    {"Languages/Slovenian.lng", "37d7e96a827812e9"},
    {"Languages/Slovenian.lng", "153bb9f1a3f3ae8d"},
    {"Languages/Slovenian.lng", "460d497c478fbe2c"},
    {"Languages/Slovenian.lng", "2922cd3675d85ed6"},
    {"Languages/Slovenian.lng", "b20159c3d1ac82f0"},
    {"music/welcome.ogg", "21bd19fc2f117fb1"},
    {"skins/base.tsf", "ffc1fe96189f874c"},
    {"skins/base.tsf", "16768b9e72a1f80b"},
    {"skins/base.tsf", "e88661fe55dcadb2"},
    {"skins/splash.png", "5b06e5cfdbb02352"},
    {"skins/splash.png", "8c2974573e367943"},
    {"vh.txt", "37fea956f955c3bd"},
});

} // namespace

LaidFiles recognisedFiles(const Paths& paths) {
    LaidFiles laid;
    std::string_view known;
    for (const Row& row : kLaidBefore) {
        if (row.name == known) {
            continue;
        }
        known = row.name;
        std::string bytes;
        if (base::readWholeFile(paths.inside(known), bytes)) {
            continue;
        }
        const std::string digest = base::digestOf(bytes);
        if (std::ranges::find(kLaidBefore, Row{known, digest}) != kLaidBefore.end()) {
            laid.digests.emplace(known, digest);
        }
    }
    return laid;
}

} // namespace tovik::host
