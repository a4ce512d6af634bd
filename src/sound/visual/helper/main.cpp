// SPDX-License-Identifier: GPL-3.0-or-later
// The process in which a plug-in draws, apart from the player: it knows a socket, a picture and a
// file. Started by the player alone:
//   tovik-vis-host run PLAYER PLUGIN SETTINGS
//   tovik-vis-host list PLAYER KNOWN-NAMES FOLDER...
#include "sound/visual/helper/Confinement.h"
#include "sound/visual/helper/Listing.h"
#include "sound/visual/helper/Plugin.h"
#include "sound/visual/helper/SharedPicture.h"
#include "sound/visual/helper/Talk.h"

#include <cstdlib>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tovik;

/// Draws until the player has had enough. The plug-in is loaded with the first size, so that the
/// time it takes counts as that of its first picture.
int draw(pid_t player, const char* path, const char* settings) {
    visual::confine(player);
    visual::SharedPicture picture;
    std::optional<visual::Plugin> plugin;
    while (const auto received = visual::receive()) {
        const sound::HelperOrder& order = received->order;
        switch (order.kind) {
        case sound::HelperOrderKind::resize:
            if (!picture.map(received->descriptor, static_cast<std::uint32_t>(order.x),
                             static_cast<std::uint32_t>(order.y))) {
                return EXIT_FAILURE;
            }
            if (!plugin) {
                plugin.emplace(path);
                visual::tell({.kind = sound::HelperAnswerKind::named}, plugin->name());
            }
            if (!*plugin || !plugin->show(picture, settings)) {
                return EXIT_FAILURE;
            }
            visual::tell({.kind = sound::HelperAnswerKind::taken, .number = order.number});
            break;
        case sound::HelperOrderKind::render:
            if (!plugin) {
                return EXIT_FAILURE;
            }
            plugin->render(picture, order.sound);
            visual::tell({.kind = sound::HelperAnswerKind::drawn, .number = order.number});
            break;
        case sound::HelperOrderKind::click:
            if (plugin) {
                plugin->click(order.x, order.y);
            }
            visual::tell({.kind = sound::HelperAnswerKind::taken, .number = order.number});
            break;
        }
    }
    if (plugin) {
        plugin->end();
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char* argv[]) {
    constexpr std::size_t kWords = 4; // before the folders: who is asked, what for, by whom, a file
    const std::span<char*> words(argv, static_cast<std::size_t>(argc));
    if (words.size() < kWords) {
        return EXIT_FAILURE;
    }
    const auto player = static_cast<pid_t>(std::strtol(words[2], nullptr, 10));
    visual::tieTo(player, sound::kHelperSocket + 1);
    if (std::string_view(words[1]) == sound::kHelperLists) {
        const std::vector<std::string_view> folders(words.begin() + kWords, words.end());
        visual::list(player, words[3], folders);
        return EXIT_SUCCESS;
    }
    return std::string_view(words[1]) == sound::kHelperRuns && words.size() > kWords
               ? draw(player, words[3], words[4])
               : EXIT_FAILURE;
}
