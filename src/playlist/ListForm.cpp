// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListForm.h"

#include "base/Text.h"
#include "playlist/FileNames.h"

#include <algorithm>
#include <array>

namespace tovik::playlist {

namespace {

struct Extension {
    std::string_view text;
    ListForm form;
    bool isOfOld; ///< a list without comfort, too
};

constexpr auto kExtensions = std::to_array<Extension>({
    {"m3u", ListForm::M3u, true},
    {"pls", ListForm::Pls, true},
    {"m3u8", ListForm::M3u, false},
    {"xspf", ListForm::Xspf, false},
});

struct Beginning {
    std::string_view text;
    ListForm form;
};

constexpr auto kBeginnings = std::to_array<Beginning>({
    {"#EXTM3U", ListForm::M3u},
    {"[playlist]", ListForm::Pls},
    {"<", ListForm::Xspf},
});

constexpr std::string_view kBlanks = " \t\r\n";

} // namespace

std::optional<ListForm> listFormOf(std::string_view path, const base::Comfort& comfort) {
    const std::string_view extension = get_extension(path);
    const auto* const known = std::ranges::find_if(kExtensions, [extension](const Extension& row) {
        return base::equalsIgnoringCase(row.text, extension);
    });
    const bool counts = known != kExtensions.end() && (known->isOfOld || comfort.opensMoreLists);
    return counts ? std::optional(known->form) : std::nullopt;
}

ListForm listFormIn(std::string_view text, ListForm named) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    const auto* const known = std::ranges::find_if(kBeginnings, [text](const Beginning& row) {
        return base::equalsIgnoringCase(row.text, text.substr(0, row.text.size()));
    });
    return known == kBeginnings.end() ? named : known->form;
}

} // namespace tovik::playlist
