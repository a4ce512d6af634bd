// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/EqualizerStore.h"

#include "base/AtomicFile.h"
#include "base/RuntimeError.h"
#include "config/clsXML.h"
#include "config/Fields.h"
#include "config/SettingText.h"
#include "config/WriteFailure.h"
#include "player/EqualizerGains.h"
#include "player/LiveSetting.h"

#include <array>

namespace tovik::player {

namespace {

constexpr const char* kCurveKey = "CEQ";
constexpr const char* kMasterKey = "CDB";
constexpr const char* kPresetCount = "/Settings/Presets/MAX_ID";
constexpr const char* kValue = "Value";
constexpr char kSeparator = '/';

constexpr const char* kFileCurve = "/EQ/Save";
constexpr const char* kFileHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
    "<EQ>\r\n"
    "<Save Name=\"Tovik EQ  file\" Value=\"";
constexpr const char* kFileTail = "\"/>\r\n"
                                  "</EQ>\r\n";

std::string presetPath(std::int32_t number) {
    return "/Settings/Presets/ID" + std::to_string(number);
}

} // namespace

void EqualizerStore::apply(std::string_view curve) {
    const config::Fields gains(curve, kSeparator);
    for (std::size_t band = 0; band < Equalizer::kBands; ++band) {
        equalizer_.eq_sld(band, equalizer_.sliderFor(gains.at(band)));
    }
}

std::string EqualizerStore::curve() const {
    std::array<double, Equalizer::kBands> sliders{};
    for (std::size_t band = 0; band < sliders.size(); ++band) {
        sliders.at(band) = equalizer_.position(band);
    }
    return curveText(sliders);
}

std::optional<base::RuntimeError> EqualizerStore::autoload_eq() {
    const std::string stored = storedCurve();
    halfRead_.reset();
    if (stored.empty()) {
        return std::nullopt;
    }
    try {
        apply(stored);
    } catch (const base::RuntimeError& error) {
        const base::RuntimeError bad = settings_.bad(error, kCurveKey, stored);
        if (const auto shipped = settings_.instead(bad, kCurveKey, kValue)) {
            apply(*shipped);
            return std::nullopt;
        }
        halfRead_ = curve();
        return bad;
    }
    return std::nullopt;
}

std::string EqualizerStore::storedCurve() {
    std::string stored;
    curveRead_ = false;
    try {
        settings_.readSettings([&](const config::clsXML& xml) {
            stored = xml.ReadAttribute(config::Settings::pathOf(kCurveKey), kValue);
            curveRead_ = true;
        });
    } catch (const base::RuntimeError&) { // NOLINT(bugprone-empty-catch): nothing is stored yet
    }
    return stored;
}

void EqualizerStore::autosave_eq() {
    if (curve() != halfRead_) {
        settings_.withSettings([this](config::clsXML& xml) { writeCurve(xml); });
    }
}

void EqualizerStore::writeCurve(config::clsXML& xml) const {
    const std::string heard = curve();
    if (heard != halfRead_) {
        xml.WriteAttribute(config::Settings::pathOf(kCurveKey), kValue, heard);
    }
}

void EqualizerStore::keepIn(StoredSettings& stored) {
    if (curveRead_) {
        stored.keptBy(kCurveKey, [this](config::clsXML& xml) { writeCurve(xml); });
    }
    stored.keptBy(kMasterKey, [this](config::clsXML& xml) {
        xml.WriteNode(config::Settings::pathOf(kMasterKey),
                      gainText(equalizer_.position(Equalizer::kMaster)));
    });
}

void EqualizerStore::autoload_db() {
    equalizer_.eq_sld(Equalizer::kMaster,
                      readInStep(settings_, kMasterKey, [this](std::string_view gain) {
                          return equalizer_.sliderFor(gain);
                      }));
}

void EqualizerStore::autosave_db() {
    storeText(settings_, kMasterKey, gainText(equalizer_.position(Equalizer::kMaster)));
}

void EqualizerStore::save_teq(const std::string& path) const {
    config::requireWritable(path);
    if (const auto failure =
            base::replaceFile(path, kFileHead + curve() + kFileTail, base::Flush::Yes)) {
        config::raiseWriteFailure(failure, path);
    }
}

void EqualizerStore::load_teq(const std::string& path) {
    config::clsXML xml;
    xml.OpenXML(path, config::XmlSource::FilePath);
    apply(xml.ReadAttribute(kFileCurve, kValue));
}

void EqualizerStore::presetNames(std::vector<std::string>& names) {
    settings_.readSettings([&](const config::clsXML& xml) {
        const std::int32_t count = config::settingToInt16(xml.ReadNode(kPresetCount));
        for (std::int32_t number = 1; number <= count; ++number) {
            names.push_back(xml.ReadAttribute(presetPath(number), "Name"));
        }
    });
}

void EqualizerStore::loadPreset(std::int32_t number) {
    std::string stored;
    settings_.readSettings(
        [&](const config::clsXML& xml) { stored = xml.ReadAttribute(presetPath(number), kValue); });
    apply(stored);
}

} // namespace tovik::player
