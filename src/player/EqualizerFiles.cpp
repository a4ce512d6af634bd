// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/EqualizerFiles.h"

namespace tovik::player {

namespace {

host::FileDialog teqDialog() {
    return {.filters = {{.name = "TEQ File (*.teq)", .patterns = {"*.teq"}}},
            .defaultExtension = "teq"};
}

} // namespace

void EqualizerFiles::save_teq() {
    if (const auto path = dialogs_.saveFile(teqDialog())) {
        store_.save_teq(*path);
    }
}

void EqualizerFiles::load_teq() {
    const std::vector<std::string> files = dialogs_.openFiles(teqDialog());
    if (!files.empty()) {
        store_.load_teq(files.front());
    }
}

} // namespace tovik::player
