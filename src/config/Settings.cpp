// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Settings.h"

#include "base/ErrorPlace.h"
#include "base/Text.h"
#include "config/SettingText.h"

#include <array>
#include <variant>

namespace tovik::config {

namespace {

/// Which part of a text is converted.
enum class Part { Whole, FirstCharacter };

/// How much of a bad text is told.
constexpr std::size_t kLongestToldText = 100;

/// Where a value goes; the kind of the member tells the conversion.
using Member = std::variant<std::int16_t StartSettings::*, bool StartSettings::*,
                            std::string StartSettings::*>;

struct Read {
    std::string_view key;
    Member member;
    Part part = Part::Whole;
};

constexpr std::array kStartReads{
    Read{"MI", &StartSettings::allowMultipleInstances},
    Read{"AP", &StartSettings::autoPlay},
    Read{"SHI", &StartSettings::showInTaskbar, Part::FirstCharacter},
    Read{"CVL", &StartSettings::volume},
    Read{"CFD", &StartSettings::crossfadeOn},
    Read{"SLD", &StartSettings::silenceDetectionOn},
    Read{"SHF", &StartSettings::shuffleOn},
    Read{"EQ", &StartSettings::equalizerOn},
    Read{"BLV", &StartSettings::balance},
    Read{"RPT", &StartSettings::repeatOn},
    Read{"CVP", &StartSettings::visualisation},
    Read{"CLNG", &StartSettings::language},
    Read{"ASOT", &StartSettings::alwaysOnTop},
    Read{"AFS", &StartSettings::associateFileTypes},
    Read{"CHKU", &StartSettings::checkForUpdates},
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
    readSettings([&](const clsXML& xml) { text = textOf(xml, key); });
    return text;
}

void Settings::saveSetting(std::string_view key, std::string_view value) {
    withSettings([&](clsXML& xml) { xml.WriteNode(pathOf(key), std::string(value)); });
}

void Settings::getSettings(StartSettings& state) {
    readSettings([&](const clsXML& xml) {
        for (const Read& read : kStartReads) {
            const std::string text = textOf(xml, read.key);
            const bool first = read.part == Part::FirstCharacter;
            try {
                std::visit(Store{state, first ? std::string_view(text).substr(0, 1) : text},
                           read.member);
            } catch (const base::RuntimeError& error) {
                throw bad(error, read.key, text);
            }
        }
    });
}

void Settings::withSettings(const std::function<void(clsXML&)>& work) {
    const std::string path = paths_.of(host::DataItem::Settings);
    xml_.OpenXML(path, XmlSource::FilePath);
    work(xml_);
    xml_.Save(path);
}

void Settings::readSettings(const std::function<void(const clsXML&)>& work) {
    const std::string path = paths_.of(host::DataItem::Settings);
    xml_.OpenXML(path, XmlSource::FilePath);
    work(xml_);
    try {
        xml_.Save(path);
    } catch (const base::RuntimeError& error) {
        if (unwritten_) {
            unwritten_(error);
        }
    }
}

std::string Settings::textOf(const clsXML& xml, std::string_view key) const {
    try {
        return xml.ReadNode(pathOf(key));
    } catch (const base::RuntimeError& error) {
        throw base::withPlace(error, placeOf(key));
    }
}

std::string Settings::placeOf(std::string_view key) const {
    return paths_.of(host::DataItem::Settings) + ": " + base::toUpperAscii(key);
}

base::RuntimeError Settings::bad(const base::RuntimeError& error, std::string_view key,
                                 std::string_view text) const {
    return base::withPlace(error, placeOf(key) + " = \"" +
                                      std::string(text.substr(0, kLongestToldText)) + "\"");
}

std::string Settings::pathOf(std::string_view key) {
    return "/Settings/" + base::toUpperAscii(key);
}

} // namespace tovik::config
