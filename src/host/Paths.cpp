// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Paths.h"

#include "base/PathText.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace tovik::host {

namespace {

struct Row {
    DataItem item;
    std::string_view name;
};

constexpr std::array kNames{
    Row{DataItem::Settings, "db/settings.xml"},
    Row{DataItem::AutosaveList, "db/autosave.m3u"},
    Row{DataItem::UnsavedList, "db/autosave.new.m3u"},
    Row{DataItem::ShuffleOrder, "db/shuffle.dat"},
    Row{DataItem::ErrorLog, "db/err.log"},
    Row{DataItem::Stations, "db/stations.dat"},
    Row{DataItem::Shortcuts, "db/shortcuts.dat"},
    Row{DataItem::Classes, "db/classes.ini"},
    Row{DataItem::Languages, "Languages"},
    Row{DataItem::SkinPackage, "skins/base.tsf"},
    Row{DataItem::CurrentSkin, "skins/CurrentSkin"},
    Row{DataItem::Splash, "skins/splash.png"},
    Row{DataItem::VisualPlugins, "Plugins/Vis"},
    Row{DataItem::VisualNames, "db/visuals.dat"},
    Row{DataItem::VisualSettings, "Plugins/Vis/vis.ini"},
    Row{DataItem::DiscFiles, "CDDB"},
    Row{DataItem::FirstRun, "firstrun.ini"},
    Row{DataItem::ConversionLog, "Tovik.log"},
    Row{DataItem::DriveC, "drive_c"},
    Row{DataItem::InstanceLock, "tovik.lock"},
};

/// The entry of the folder whose name differs in case alone; of several the first by bytes, so
/// that the choice does not hang on the order of the disk.
std::optional<std::string> entryIgnoringCase(const std::string& folder, std::string_view name) {
    std::optional<std::string> found;
    std::error_code failure;
    for (std::filesystem::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::string candidate = entry->path().filename().native();
        if (base::equalsIgnoringCase(candidate, name) && (!found || candidate < *found)) {
            found = std::move(candidate);
        }
    }
    return found;
}

} // namespace

Paths::Paths(std::string dataFolder) : dataFolder_(std::move(dataFolder)) {}

std::string Paths::of(DataItem item) const {
    const auto* const row =
        std::find_if(kNames.begin(), kNames.end(),
                     [item](const Row& candidate) { return candidate.item == item; });
    return inside(row->name);
}

std::string Paths::inside(std::string_view name) const {
    std::string path = dataFolder_;
    for (const std::string_view part : base::partsOf(name)) {
        std::string written = base::joinPath(path, part);
        std::error_code failure;
        if (!std::filesystem::exists(std::filesystem::symlink_status(written, failure))) {
            if (const auto entry = entryIgnoringCase(path, part)) {
                written = base::joinPath(path, *entry);
            }
        }
        path = std::move(written);
    }
    return path;
}

} // namespace tovik::host
