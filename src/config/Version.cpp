// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Version.h"

#include "config/clsXML.h"
#include "config/Fields.h"
#include "config/SettingText.h"

namespace tovik::config {

namespace {

constexpr char kSeparator = ',';
constexpr std::string_view kRecordKey = "TKXV";
constexpr std::string_view kSecondPartKey = "TKV2";
constexpr std::string_view kDateKey = "TKD";
constexpr std::string_view kProgramName = "Tovik ";
constexpr std::string_view kUpdateSwitch = "chk4update=";

} // namespace

std::string versionText(std::string_view tkxv, std::string_view tkv2) {
    return Fields(tkxv, kSeparator).at(0).substr(0, 1) + "." + std::string(tkv2);
}

std::int16_t buildNumber(std::string_view tkxv) {
    return settingToInt16(Fields(tkxv, kSeparator).at(1));
}

std::string fullVersionText(std::string_view tkxv, std::string_view tkv2) {
    std::string text;
    const Fields fields(tkxv, kSeparator);
    for (const std::string& field : fields.all()) {
        text += field + ".";
    }
    return text + std::string(tkv2);
}

std::string clientVersionText(std::string_view tkxv) {
    constexpr char kUntold = 'B';
    if (tkxv.starts_with(kUntold)) {
        return {};
    }
    const Fields fields(tkxv, kSeparator);
    return std::string(kProgramName) + fields.at(0) + " Build " + fields.at(1);
}

void takeVersion(const std::string& settingsPath, const std::string& programsPath) {
    clsXML programs;
    clsXML xml;
    if (!programs.OpenXML(programsPath, XmlSource::FilePath) ||
        !xml.OpenXML(settingsPath, XmlSource::FilePath)) {
        return;
    }
    bool changed = false;
    for (const std::string_view key : {kRecordKey, kSecondPartKey, kDateKey}) {
        const std::string path = Settings::pathOf(key);
        if (!Settings::holds(programs, key)) {
            continue;
        }
        const std::string value = programs.ReadNode(path);
        if (!Settings::holds(xml, key) || xml.ReadNode(path) != value) {
            Settings::makeOrWrite(xml, key, value);
            changed = true;
        }
    }
    if (changed) {
        xml.Save(settingsPath);
    }
}

Version::Version(Settings& settings) : settings_(settings) {}

std::string Version::getTovikversion() {
    const std::string second = settings_.getSetting(kSecondPartKey);
    return settings_.getAs(kRecordKey,
                           [&](std::string_view record) { return versionText(record, second); });
}

std::int16_t Version::getTovikbuildNm() {
    return settings_.getAs(kRecordKey, buildNumber);
}

std::string Version::buildDate() {
    return settings_.getSetting(kDateKey);
}

std::string Version::get_Tovik_Version() {
    return std::string(kProgramName) + getTovikversion();
}

std::string Version::clientVersion() {
    return settings_.getAs(kRecordKey, clientVersionText);
}

std::string Version::updateArgument() {
    const std::string record = settings_.getSetting(kRecordKey);
    return std::string(kUpdateSwitch) +
           fullVersionText(record, settings_.getSetting(kSecondPartKey));
}

} // namespace tovik::config
