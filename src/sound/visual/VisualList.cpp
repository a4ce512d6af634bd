// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/VisualList.h"

#include "sound/visual/PluginName.h"

#include <string_view>

namespace tovik::sound {

namespace {

std::vector<std::string> wordsOf(const VisualFolders& folders) {
    std::vector<std::string> words = {folders.knownNames};
    words.insert(words.end(), folders.folders.begin(), folders.folders.end());
    return words;
}

} // namespace

VisualList::VisualList(const std::string& program, const VisualFolders& folders)
    : helper_(program, kHelperLists, wordsOf(folders)) {}

VisualNews VisualList::take() {
    while (helper_.descriptor() >= 0) {
        HelperAnswer answer;
        std::size_t length = 0;
        const HelperProcess::Got got = helper_.receive(answer, length);
        if (got == HelperProcess::Got::nothing) {
            return VisualNews::nothing;
        }
        const std::string_view text(answer.text.data(), length);
        const std::size_t middle = text.find('\0');
        if (got == HelperProcess::Got::end || answer.head.kind != HelperAnswerKind::listed ||
            middle == std::string_view::npos || files_.size() >= kMostFiles) {
            helper_.end();
            break;
        }
        files_.push_back({.path = std::string(text.substr(0, middle)),
                          .name = pluginName(text.substr(middle + 1))});
    }
    return VisualNews::ended;
}

} // namespace tovik::sound
