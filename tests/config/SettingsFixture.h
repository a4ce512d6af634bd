// SPDX-License-Identifier: GPL-3.0-or-later
// A data folder with a settings file of a test's choice.
#pragma once

#include "config/clsXML.h"
#include "config/Settings.h"
#include "support/host/TestHost.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tovik::test {

class SettingsFixture : public testing::Test {
protected:
    static constexpr std::string_view kFile = "db/settings.xml";

    /// The elements of the settings file; the root and the declaration are put round them.
    void writeSettings(std::string_view elements) const {
        writeFile("<?xml version=\"1.0\"?>\n<Settings>" + std::string(elements) + "</Settings>\n");
    }

    void writeFile(std::string_view bytes) const { host_.folder.write(kFile, bytes); }

    [[nodiscard]] std::string file() const { return host_.folder.read(kFile); }

    [[nodiscard]] std::string path() const { return host_.folder / kFile; }

    TestHost host_;
    config::clsXML xml_;
    config::Settings settings_{host_.paths, xml_};
};

} // namespace tovik::test
