// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ShippedSettings.h"

#include "base/ComfortTable.h"
#include "base/RuntimeError.h"
#include "config/FirstFill.h"
#include "config/Settings.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace tovik::config {

namespace {

/// The text between the first tags of that name in bytes that are no document.
std::optional<std::string_view> shownText(std::string_view bytes, std::string_view key) {
    const std::string open = "<" + std::string(key) + ">";
    const std::size_t begin = bytes.find(open);
    if (begin == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view rest = bytes.substr(begin + open.size());
    const std::size_t end = rest.find("</" + std::string(key) + ">");
    return end == std::string_view::npos ? std::nullopt : std::optional(rest.substr(0, end));
}

/// A choice counts where it is one.
void takeChoice(clsXML& xml, std::string_view key, std::string_view bytes) {
    const auto shown = shownText(bytes, key);
    if (!key.empty() && shown && (*shown == "0" || *shown == "1")) {
        Settings::makeOrWrite(xml, key, std::string(*shown));
    }
}

template <typename Read>
std::optional<std::string> orNone(const Read& read) {
    try {
        return read();
    } catch (const base::RuntimeError&) {
        return std::nullopt;
    }
}

} // namespace

void ShippedSettings::lieAt(std::string path, std::function<std::string()> musicFolder) {
    path_ = std::move(path);
    musicFolder_ = std::move(musicFolder);
    xml_.reset();
}

bool ShippedSettings::there() {
    if (!xml_) {
        xml_.emplace();
        xml_->OpenXML(path_, XmlSource::FilePath);
    }
    return xml_->readable();
}

void ShippedSettings::complete(clsXML& xml) {
    if (!there()) {
        return;
    }
    std::vector<std::string_view> folders;
    std::ranges::copy_if(kFolderKeys, std::back_inserter(folders),
                         [&](std::string_view key) { return !Settings::holds(xml, key); });
    xml.takeMissing(*xml_, base::kComfortKey);
    for (const std::string_view key : folders) {
        fill(xml, key);
    }
}

void ShippedSettings::fill(clsXML& xml, std::string_view key) const {
    if (musicFolder_) {
        fillFolder(xml, key, musicFolder_());
    }
}

void ShippedSettings::takePlaceOf(std::string_view bytes, clsXML& xml) {
    if (!there()) {
        return;
    }
    xml.OpenXML(path_, XmlSource::FilePath);
    for (const std::string_view key : kFolderKeys) {
        fill(xml, key);
    }
    if (bytes.find("<Settings") == std::string_view::npos ||
        bytes.find("</") == std::string_view::npos) {
        return;
    }
    xml.DeleteNode(Settings::pathOf(base::kComfortKey));
    takeChoice(xml, base::kComfortKey, bytes);
    for (const base::ComfortSwitch& one : base::kComfortSwitches) {
        takeChoice(xml, one.key, bytes);
        takeChoice(xml, one.former, bytes);
    }
}

std::optional<std::string> ShippedSettings::textOf(std::string_view key) {
    return there() ? orNone([&] { return xml_->ReadNode(Settings::pathOf(key)); }) : std::nullopt;
}

std::optional<std::string> ShippedSettings::attributeOf(std::string_view key,
                                                        const std::string& attribute) {
    return there() ? orNone([&] { return xml_->ReadAttribute(Settings::pathOf(key), attribute); })
                   : std::nullopt;
}

} // namespace tovik::config
