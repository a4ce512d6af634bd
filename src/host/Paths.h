// SPDX-License-Identifier: GPL-3.0-or-later
// Names every file and folder of the data folder once. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::host {

/// What the program keeps in its data folder.
enum class DataItem {
    Settings,
    AutosaveList,
    UnsavedList,
    ShuffleOrder,
    ErrorLog,
    Stations,
    Shortcuts,
    Classes,
    Languages,
    SkinPackage,
    CurrentSkin,
    Splash,
    VisualPlugins,
    VisualNames,
    VisualSettings,
    DiscFiles,
    FirstRun,
    ConversionLog,
    DriveC,
    InstanceLock,
};

/// File names of one data folder, as absolute paths.
class Paths {
public:
    /// The folder's absolute path; it need not exist yet.
    explicit Paths(std::string dataFolder);

    [[nodiscard]] const std::string& dataFolder() const { return dataFolder_; }

    [[nodiscard]] std::string of(DataItem item) const;

    /// A name told from the data folder, such as "\db\settings.xml" or "Languages/English.lng".
    /// Each part is looked up as written, then without regard to ASCII case; what does not exist
    /// stays as written.
    [[nodiscard]] std::string inside(std::string_view name) const;

private:
    std::string dataFolder_;
};

} // namespace tovik::host
