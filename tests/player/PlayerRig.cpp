// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/PlayerRig.h"

#include "support/host/ComfortOfTests.h"

namespace tovik::test {

namespace {

std::string padded(std::string text, std::size_t width, char padding) {
    text.resize(width, padding);
    return text;
}

/// ID3v1 as published at id3.org: 128 bytes.
std::string tagBytes(const TagTexts& tag) {
    std::string bytes = "TAG";
    for (const std::string* text : {&tag.title, &tag.artist, &tag.album}) {
        bytes += padded(*text, 30, tag.padding);
    }
    return bytes + padded(tag.year, 4, tag.padding) + std::string(30, '\0') + tag.genre;
}

} // namespace

PlayerRig::PlayerRig() {
    screen_.add(view_);
    news_.add(events_);
    values_ = {{"CFDT", "5"}, {"SLDT", "50"},  {"EV2", "0"},
               {"OSD", "0"},  {"TKXV", "0,1"}, {"TKV2", "1"}};
    writeSettings();
    state_.comfort = comfortOfTests();
    state_.CurrentVolume = 80;
    state_.BalanceValue = -25;
}

void PlayerRig::writeSettings() const {
    std::string text = "<?xml version=\"1.0\"?>\n<Settings>";
    for (const auto& [key, value] : values_) {
        text.append("<").append(key).append(">").append(value);
        text.append("</").append(key).append(">");
    }
    host_.folder.write("db/settings.xml", text + "</Settings>\n");
}

void PlayerRig::set(const std::string& key, const std::string& text) {
    values_[key] = text;
    writeSettings();
}

void PlayerRig::takeOut(const std::string& key) {
    values_.erase(key);
    writeSettings();
}

std::string PlayerRig::track(const std::string& name, const FakeFile& sound, std::size_t bytes,
                             const TagTexts* tag) {
    std::string path =
        host_.folder.write(name, std::string(bytes, 's') + (tag != nullptr ? tagBytes(*tag) : ""));
    sound_.files[path] = sound;
    return path;
}

void PlayerRig::addRows(int count, const FakeFile& sound) {
    for (int row = list_.ListCount() + 1; count > 0; ++row, --count) {
        const std::string name = std::to_string(row);
        list_.AddItem("", track(name, sound), "T" + name, "00:00", 0);
    }
}

std::string PlayerRig::offered() const {
    std::string name;
    for (const std::string& call : sound_.calls) {
        for (const std::string_view offer : {"BASS_StreamCreateFile(0, ", "openAhead("}) {
            if (call.starts_with(offer)) {
                name = call.substr(offer.size(), call.find(',', offer.size()) - offer.size());
            }
        }
    }
    return name.substr(name.rfind('/') + 1);
}

void PlayerRig::advance(std::int64_t milliseconds) {
    constexpr std::int64_t kStep = 10;
    for (std::int64_t passed = 0; passed < milliseconds; passed += kStep) {
        sound_.elapse(kStep);
        host_.clock.advanceTo(host_.clock.monotonicMs() + kStep);
    }
}

void PlayerRig::fetchRow(const std::string& path, const std::string& title) {
    list_.AddItem("", path, title, "00:00", 0);
    list_.GetData(list_.ListCount());
    list_.SelectedIndex = list_.ListCount();
}

std::vector<std::string> PlayerRig::logged() const {
    if (!std::filesystem::exists(host_.folder / "db/err.log")) {
        return {};
    }
    std::istringstream log(host_.folder.read("db/err.log"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);) {
        const std::size_t first = line.find(',') + 1;
        std::size_t end = first;
        for (int field = 0; field < 4 && end != std::string::npos; ++field) {
            end = line.find(',', end + 1);
        }
        lines.push_back(line.substr(first, end - first));
    }
    return lines;
}

} // namespace tovik::test
