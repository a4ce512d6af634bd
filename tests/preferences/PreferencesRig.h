// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences as logic over the shipped settings.
#pragma once

#include "player/PlayerRig.h"
#include "preferences/frmPreferences.h"

#include <functional>
#include <string>
#include <vector>

namespace tovik::test {

/// Keeps what the preferences do with the main window.
class PlacedWindow final : public window::PlayerWindow {
public:
    int x = 100;
    int y = 200;
    std::vector<bool> topmost;

    void setTopmost(bool on) override { topmost.push_back(on); }

    [[nodiscard]] int left() const override { return x; }

    [[nodiscard]] int top() const override { return y; }
};

/// Answers in the place of the window that is asked for.
class AnsweringOpener final : public window::WindowOpener {
public:
    std::vector<window::WindowId> opened;
    std::function<void()> answer;

    void open(window::WindowId id) override {
        opened.push_back(id);
        if (answer) {
            answer();
        }
    }
};

/// Keeps which modes were shown anew.
class ModesShown final : public player::NowPlayingView {
public:
    std::vector<player::Mode> modes;

    void showMode(player::Mode mode) override { modes.push_back(mode); }
};

class PreferencesRig : public PlayerRig {
protected:
    static constexpr const char* kSettings = "db/settings.xml";

    PreferencesRig() {
        std::filesystem::copy_file(TOVIK_DATA_DIR "/db/settings.xml", host_.folder / kSettings,
                                   std::filesystem::copy_options::overwrite_existing);
        std::filesystem::permissions(host_.folder / kSettings, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add);
        drop("CMF"); // tests of comfort put it back
        std::filesystem::create_directory_symlink(TOVIK_DATA_DIR "/Languages",
                                                  host_.folder / "Languages");
        screen_.add(modes_);
        state_.LoadFinished = true;
    }

    /// Writes the text of a key past the player.
    void store(const std::string& key, const std::string& text) {
        config::clsXML xml;
        xml.OpenXML(host_.folder / kSettings, config::XmlSource::FilePath);
        config::Settings::makeOrWrite(xml, key, text);
        xml.Save(host_.folder / kSettings);
    }

    void drop(const std::string& key) {
        config::clsXML xml;
        xml.OpenXML(host_.folder / kSettings, config::XmlSource::FilePath);
        xml.DeleteNode(config::Settings::pathOf(key));
        xml.Save(host_.folder / kSettings);
    }

    [[nodiscard]] std::string stored(const std::string& key) {
        config::clsXML xml;
        xml.OpenXML(host_.folder / kSettings, config::XmlSource::FilePath);
        return xml.ReadNode(config::Settings::pathOf(key));
    }

    [[nodiscard]] preferences::PreferenceValues& values() { return preferences_.values(); }

    ModesShown modes_;
    PlacedWindow window_;
    AnsweringOpener opener_;
    config::MultiLNG language_{host_.paths};
    preferences::frmPreferences preferences_{{.core = core_,
                                              .silenceSkip = silenceSkip_,
                                              .window = window_,
                                              .windows = opener_,
                                              .language = language_,
                                              .paths = host_.paths}};
};

} // namespace tovik::test
