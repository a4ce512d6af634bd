// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs of lists over a test's host.
#pragma once

#include "config/ErrHandler.h"
#include "playlist/ListDialogs.h"
#include "playlist/Lists.h"
#include "support/host/TestHost.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::playlist {

class ListDialogsRig : public testing::Test {
protected:
    /// Saves under that name in the test's folder.
    void save(const std::string& name) {
        host.dialogs.filesToSave.push_back(host.folder / name);
        dialogs.SaveImg_Click();
        dialogs.wait();
    }

    void load(const std::string& path) {
        host.dialogs.filesToOpen.push_back({path});
        dialogs.loadImg_Click();
    }

    [[nodiscard]] bool exists(const std::string& name) {
        return std::filesystem::exists(host.folder / name);
    }

    test::TestHost host;
    stdSS list;
    PlaylistFiles files{list, host.pump, host.paths};
    config::ErrHandler log{host.paths, host.clock, host.operatingSystem};
    config::Errors errors{log, host.dialogs};
    base::Comfort comfort;
    ListDialogs dialogs{{.list = list,
                         .files = files,
                         .dialogs = host.dialogs,
                         .pump = host.pump,
                         .paths = host.paths,
                         .errors = errors,
                         .comfort = comfort},
                        {.load = [] { return "Load it"; },
                         .save = [] { return "Save it"; },
                         .notice = [](int number) { return std::to_string(number) + " [x]"; }}};
};

} // namespace tovik::playlist
