// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AppRig.h"

#include "support/skin/TestSkin.h"

#include <algorithm>

namespace tovik::test {

namespace fs = std::filesystem;

namespace {

/// Where the element of a key stands in the settings file.
struct Place {
    std::size_t begin;
    std::size_t end;
};

Place placeOf(const std::string& bytes, const std::string& key) {
    const std::string empty = "<" + key + "/>";
    if (const std::size_t begin = bytes.find(empty); begin != std::string::npos) {
        return {begin, begin + empty.size()};
    }
    const std::string close = "</" + key + ">";
    const std::size_t begin = bytes.find("<" + key + ">");
    const std::size_t end = bytes.find(close);
    if (begin == std::string::npos || end == std::string::npos) {
        throw std::runtime_error("no element " + key);
    }
    return {begin, end + close.size()};
}

/// One skin serves all tests: none of them changes it.
std::string skinFolder() {
    static const TemporaryFolder folder;
    static const bool written = [] {
        writeTestSkin(folder.path());
        fs::permissions(folder.path(), fs::perms(0755)); // for tests without rights
        return true;
    }();
    static_cast<void>(written);
    return folder / "skins/CurrentSkin";
}

} // namespace

AppRig::AppRig() {
    fs::create_directories(host_.folder / "db");
    fs::copy_file(std::string(TOVIK_DATA_DIR) + "/db/settings.xml", host_.folder / kSettings);
    fs::permissions(host_.folder / kSettings, fs::perms::owner_write, fs::perm_options::add);
    takeOut("CMF"); // tests of comfort put it back, all others speak of the player without
    fs::create_symlink(std::string(TOVIK_DATA_DIR) + "/Languages", host_.folder / "Languages");
    host_.folder.write(kList, "#EXTM3U\r\n");
    fs::create_directories(host_.folder / "skins");
    fs::create_directory_symlink(skinFolder(), host_.folder / kSkin);
}

AppRig::~AppRig() {
    // The start made the data folder the current one, and that one goes now.
    fs::current_path("/");
}

app::frmPlayer& AppRig::player() {
    if (!player_) {
        player_ = std::make_unique<app::frmPlayer>(host_.host(), sound_, window_, windows_, news_,
                                                   options_, shell_);
    }
    return *player_;
}

void AppRig::start() {
    player().Form_Initialize();
    if (!host_.endStatus) {
        player().Form_Load();
    }
}

void AppRig::set(const std::string& key, const std::string& text) const {
    std::string bytes = host_.folder.read(kSettings);
    const auto [begin, end] = placeOf(bytes, key);
    bytes.replace(begin, end - begin, "<" + key + ">" + text + "</" + key + ">");
    host_.folder.write(kSettings, bytes);
}

void AppRig::put(const std::string& key, const std::string& text) const {
    std::string bytes = host_.folder.read(kSettings);
    if (bytes.find("<" + key + ">") == bytes.npos) {
        bytes.insert(bytes.rfind("</Settings>"), "<" + key + "/>");
        host_.folder.write(kSettings, bytes);
    }
    set(key, text);
}

void AppRig::takeOut(const std::string& key) const {
    std::string bytes = host_.folder.read(kSettings);
    const auto [begin, end] = placeOf(bytes, key);
    host_.folder.write(kSettings, bytes.erase(begin, end - begin));
}

std::string AppRig::setting(const std::string& key) const {
    const std::string bytes = host_.folder.read(kSettings);
    const auto [begin, end] = placeOf(bytes, key);
    const std::string element = bytes.substr(begin, end - begin);
    const std::size_t text = element.find('>') + 1;
    return element.ends_with("/>") ? "" : element.substr(text, element.rfind('<') - text);
}

std::string AppRig::track(const std::string& name, const FakeFile& sound,
                          const std::string& bytes) {
    std::string path = host_.folder.write(name, bytes);
    sound_.files[path] = sound;
    return path;
}

std::vector<std::string> AppRig::logged() const {
    if (!fs::exists(host_.folder / "db/err.log")) {
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

std::size_t AppRig::callsOf(const std::string& name) const {
    return static_cast<std::size_t>(std::ranges::count_if(
        sound_.calls, [&](const std::string& call) { return call.starts_with(name + "("); }));
}

} // namespace tovik::test
