// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Settings.h"

#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "base/Url.h"
#include "config/StrictXml.h"
#include "config/XmlText.h"

#include <filesystem>

namespace tovik::config {

namespace {

constexpr const char* kRoot = "/Settings";

/// How much of a bad text is told.
constexpr std::size_t kLongestToldText = 100;

constexpr base::Comfort kNoComfort;

constexpr const char* kOff = "0";

constexpr std::string_view kAside = ".damaged";
constexpr int kMostAside = 1000;

/// A name beside the file that nothing bears yet: "settings.xml.damaged", then with a number.
std::string freeName(const std::string& path) {
    std::string name = path + std::string(kAside);
    std::error_code failure;
    for (int number = 2; number < kMostAside &&
                         std::filesystem::exists(std::filesystem::symlink_status(name, failure));
         ++number) {
        name = path + std::string(kAside) + "." + std::to_string(number);
    }
    return name;
}

/// Why a file that is there cannot be read; `bytes` is empty then, as where there is none.
std::error_code readBytes(const std::string& path, std::string& bytes) {
    const std::error_code failure =
        base::readWholeFile(path, bytes, static_cast<std::int64_t>(kMostXmlBytes));
    const bool missing =
        failure == std::errc::no_such_file_or_directory || failure == std::errc::not_a_directory;
    return missing ? std::error_code() : failure;
}

} // namespace

Settings::Settings(const host::Paths& paths, clsXML& settingsXml)
    : paths_(paths), xml_(settingsXml), comfort_(&kNoComfort) {}

void Settings::obey(const base::Comfort& comfort, std::string shipped,
                    std::function<std::string()> musicFolder) {
    comfort_ = &comfort;
    shipped_.lieAt(std::move(shipped), std::move(musicFolder));
}

std::string Settings::getSetting(std::string_view key) {
    std::string text;
    readSettings([&](const clsXML& xml) { text = textOf(xml, key); });
    return text;
}

void Settings::saveSetting(std::string_view key, std::string_view value) {
    withSettings([&](clsXML& xml) { write(xml, key, std::string(value)); });
}

void Settings::withSettings(const std::function<void(clsXML&)>& work) {
    readAnew();
    work(xml_);
    save(base::Flush::Yes);
}

void Settings::readSettings(const std::function<void(const clsXML&)>& work) {
    readAnew();
    work(xml_);
    if (!comfort_->writesOnlyChanges && !readFailure_) {
        saveOrTell(base::Flush::Yes);
    }
}

void Settings::peek(const std::function<void(const clsXML&)>& work) {
    std::string bytes;
    const bool unread = bool(readBytes(paths_.of(host::DataItem::Settings), bytes));
    const bool stays = unread && isOpen();
    if (!stays && !open(bytes)) {
        shipped_.takePlaceOf(bytes, xml_);
    }
    work(xml_);
}

void Settings::writeBehind(const std::function<void(clsXML&)>& work) {
    readAnew();
    work(xml_);
    saveOrTell(base::Flush::No);
}

bool Settings::open(std::string_view bytes) {
    return xml_.OpenBytes(bytes) && isOpen();
}

bool Settings::isOpen() const {
    return xml_.readable() && xml_.NodeCount(kRoot) > 0;
}

base::RuntimeError Settings::readError(std::error_code failure) const {
    return base::withPlace(base::RuntimeError(base::errorNumberOf(failure)),
                           paths_.of(host::DataItem::Settings));
}

void Settings::readAnew() {
    const std::string path = paths_.of(host::DataItem::Settings);
    std::string bytes;
    readFailure_ = readBytes(path, bytes);
    const bool standsIn = comfort_->keepsDamagedAside && shipped_.there();
    if (readFailure_ && standsIn) {
        if (!wasRead_) {
            neverRead_ = readFailure_;
        }
        standInUnread();
        return;
    }
    readFailure_.clear();
    wasRead_ = true;
    toldUnread_ = false;
    const bool whole = open(bytes);
    if (whole && comfort_->startsWithoutSetting) {
        shipped_.complete(xml_);
    } else if (!whole && standsIn) {
        standInDamaged(path, bytes);
    }
}

void Settings::standInUnread() {
    if (!isOpen()) {
        shipped_.takePlaceOf({}, xml_);
    }
    if (!std::exchange(toldUnread_, true) && unread_) {
        unread_(readError(readFailure_));
    }
}

void Settings::standInDamaged(const std::string& path, std::string_view bytes) {
    shipped_.takePlaceOf(bytes, xml_);
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure)) {
        return;
    }
    const std::string aside = freeName(path);
    std::filesystem::create_hard_link(path, aside, failure);
    if (failure && !std::filesystem::copy_file(path, aside, failure)) {
        return; // nothing can be written here, which the next write tells
    }
    try {
        xml_.Save(path);
    } catch (const base::RuntimeError& error) {
        std::filesystem::remove(aside, failure); // it stands where it stood
        if (unwritten_) {
            unwritten_(error);
        }
        return;
    }
    if (keptAside_) {
        keptAside_(aside);
    }
}

void Settings::save(base::Flush most) {
    if (!xml_.changed() && comfort_->writesOnlyChanges) {
        return;
    }
    // Nobody knows what would be lost; and what a session began with that could not read the file
    // is not the user's.
    const std::error_code failure = readFailure_ ? readFailure_ : neverRead_;
    if (failure) {
        throw readError(failure);
    }
    xml_.Save(paths_.of(host::DataItem::Settings), most);
}

void Settings::saveOrTell(base::Flush most) {
    try {
        save(most);
    } catch (const base::RuntimeError& error) {
        if (unwritten_) {
            unwritten_(error);
        }
    }
}

std::string Settings::textOf(const clsXML& xml, std::string_view key) const {
    try {
        std::string text = xml.ReadNode(pathOf(key));
        if (comfort_->keepsAnyBytes) {
            if (auto path = base::pathFromFileUrl(text)) {
                return *std::move(path);
            }
        }
        return text;
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

void Settings::write(clsXML& xml, std::string_view key, const std::string& value) const {
    const bool asAddress = comfort_->keepsAnyBytes && value.starts_with('/') && !isXmlChars(value);
    xml.WriteNode(pathOf(key), asAddress ? base::fileUrl(value) : value);
}

std::optional<std::string> Settings::instead(const base::RuntimeError& bad, std::string_view key,
                                             const std::string& attribute) {
    if (!comfort_->startsWithoutSetting || !shipped_.there()) {
        return std::nullopt;
    }
    std::optional<std::string> shipped;
    if (attribute.empty()) {
        shipped = shipped_.textOf(key).value_or(kOff); // a key of our own may be in no document
    } else {
        shipped = shipped_.attributeOf(key, attribute);
    }
    if (shipped && replaced_ && replacedTexts_.insert(bad.description()).second) {
        replaced_(bad);
    }
    return shipped;
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
