// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Settings.h"

#include "base/Text.h"
#include "config/SettingText.h"

#include <array>
#include <variant>

namespace tovik::config {

namespace {

/// Which part of a text is converted.
enum class Part { Whole, FirstCharacter };

/// Where a value goes; the kind of the member tells the conversion.
using Member = std::variant<std::int16_t StartSettings::*, bool StartSettings::*,
                            std::string StartSettings::*>;

struct Read {
    std::string_view path;
    Member member;
    Part part = Part::Whole;
};

constexpr std::array kStartReads{
    Read{"/Settings/MI", &StartSettings::allowMultipleInstances},
    Read{"/Settings/AP", &StartSettings::autoPlay},
    Read{"/Settings/SHI", &StartSettings::showInTaskbar, Part::FirstCharacter},
    Read{"/Settings/CVL", &StartSettings::volume},
    Read{"/Settings/CFD", &StartSettings::crossfadeOn},
    Read{"/Settings/SLD", &StartSettings::silenceDetectionOn},
    Read{"/Settings/SHF", &StartSettings::shuffleOn},
    Read{"/Settings/EQ", &StartSettings::equalizerOn},
    Read{"/Settings/BLV", &StartSettings::balance},
    Read{"/Settings/RPT", &StartSettings::repeatOn},
    Read{"/Settings/CVP", &StartSettings::visualisation},
    Read{"/Settings/CLNG", &StartSettings::language},
    Read{"/Settings/ASOT", &StartSettings::alwaysOnTop},
    Read{"/Settings/AFS", &StartSettings::associateFileTypes},
    Read{"/Settings/CHKU", &StartSettings::checkForUpdates},
};

/// Converts a text into the member that it is for.
struct Store {
    StartSettings& state;
    std::string_view text;

    void operator()(std::int16_t StartSettings::*member) const {
        state.*member = settingToInt16(text);
    }

    void operator()(bool StartSettings::*member) const { state.*member = settingToFlag(text); }

    void operator()(std::string StartSettings::*member) const { state.*member = text; }
};

} // namespace

Settings::Settings(const host::Paths& paths, clsXML& settingsXml)
    : paths_(paths), xml_(settingsXml) {}

std::string Settings::getSetting(std::string_view key) {
    std::string text;
    withSettings([&](clsXML& xml) { text = xml.ReadNode(pathOf(key)); });
    return text;
}

void Settings::saveSetting(std::string_view key, std::string_view value) {
    withSettings([&](clsXML& xml) { xml.WriteNode(pathOf(key), std::string(value)); });
}

void Settings::getSettings(StartSettings& state) {
    withSettings([&](clsXML& xml) {
        for (const Read& read : kStartReads) {
            const std::string text = xml.ReadNode(std::string(read.path));
            const bool first = read.part == Part::FirstCharacter;
            std::visit(Store{state, first ? std::string_view(text).substr(0, 1) : text},
                       read.member);
        }
    });
}

void Settings::withSettings(const std::function<void(clsXML&)>& work) {
    const std::string path = paths_.of(host::DataItem::Settings);
    xml_.OpenXML(path, XmlSource::FilePath);
    work(xml_);
    xml_.Save(path);
}

std::string Settings::pathOf(std::string_view key) {
    return "/Settings/" + base::toUpperAscii(key);
}

} // namespace tovik::config
