// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Settings.h"

#include "base/ErrorPlace.h"
#include "base/Text.h"

namespace tovik::config {

namespace {

constexpr const char* kRoot = "/Settings";

/// How much of a bad text is told.
constexpr std::size_t kLongestToldText = 100;

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

void Settings::withSettings(const std::function<void(clsXML&)>& work) {
    readAnew();
    work(xml_);
    xml_.Save(paths_.of(host::DataItem::Settings));
}

void Settings::readSettings(const std::function<void(const clsXML&)>& work) {
    readAnew();
    work(xml_);
    saveOrTell(base::Flush::Yes);
}

void Settings::peek(const std::function<void(const clsXML&)>& work) {
    readAnew();
    work(xml_);
}

void Settings::writeBehind(const std::function<void(clsXML&)>& work) {
    readAnew();
    work(xml_);
    saveOrTell(base::Flush::No);
}

void Settings::readAnew() {
    xml_.OpenXML(paths_.of(host::DataItem::Settings), XmlSource::FilePath);
}

void Settings::saveOrTell(base::Flush most) {
    try {
        xml_.Save(paths_.of(host::DataItem::Settings), most);
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

bool Settings::holds(const clsXML& xml, std::string_view key) {
    // A damaged document holds nothing, and every key of it is an error.
    return xml.NodeCount(pathOf(key)) != 0;
}

void Settings::makeOrWrite(clsXML& xml, std::string_view key, const std::string& value) {
    if (!holds(xml, key) && xml.NodeCount(kRoot) > 0) {
        xml.MakeNode(kRoot, base::toUpperAscii(key), value);
    } else {
        xml.WriteNode(pathOf(key), value);
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
    return std::string(kRoot) + "/" + base::toUpperAscii(key);
}

} // namespace tovik::config
