// SPDX-License-Identifier: GPL-3.0-or-later
// The whole player without a window system: the shipped settings in a data folder of a test's own,
// a sound library without sound, virtual time.
#pragma once

#include "app/frmPlayer.h"
#include "support/host/TestHost.h"
#include "support/sound/FakeSoundLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tovik::test {

/// Writes what it is asked for among the calls of the sound library, so that one list tells the
/// whole order.
class RecordingWindow final : public window::PlayerWindow {
public:
    explicit RecordingWindow(std::vector<std::string>& calls) : calls_(calls), miniWindow(calls) {}

    static constexpr std::uintptr_t kNumber = 77;

    int x = 100;
    int y = 200;
    std::string caption;
    bool seen = true;
    std::optional<window::ScreenPlace> menuPlace;

    /// Keeps the outline that the window was given.
    class Outline final : public ui::RegionWindow {
    public:
        std::optional<ui::Region> region;

        void setRegion(const ui::Region* given) override {
            region = given != nullptr ? std::optional(*given) : std::nullopt;
        }
    } outline;

    /// A screen that counts what is shown on it.
    class Screen final : public window::FullScreen {
    public:
        explicit Screen(RecordingWindow& owner) : owner_(owner) { owner_.screen = this; }

        ~Screen() override { owner_.screen = nullptr; }

        Screen(const Screen&) = delete;
        Screen& operator=(const Screen&) = delete;

        [[nodiscard]] int width() const override { return 320; }

        [[nodiscard]] int height() const override { return 200; }

        [[nodiscard]] bool visible() const override { return true; }

        void show(const ui::PixelImage& image) override {
            EXPECT_EQ(image.width, 320);
            ++shown;
        }

        int shown = 0;

    private:
        RecordingWindow& owner_;
    };

    Screen* screen = nullptr; ///< the one that is there
    window::FullScreen::Input screenInput;

    [[nodiscard]] std::unique_ptr<window::FullScreen>
    makeFullScreen(window::FullScreen::Input input) override {
        screenInput = std::move(input);
        return std::make_unique<Screen>(*this);
    }

    /// The small window, noted in the same way.
    class Mini final : public window::SkinnedWindow {
    public:
        explicit Mini(std::vector<std::string>& calls) : calls_(calls) {}

        std::string caption;
        bool seen = true;
        int drags = 0;
        int pixels = 1; ///< for one of the skin
        window::ScreenPlace place;
        Outline outline;

        void show() override { calls_.emplace_back("mini shown"); }

        void hide() override { calls_.emplace_back("mini hidden"); }

        void minimise() override { calls_.emplace_back("mini minimised"); }

        void bringToFront(const std::string& token) override {
            calls_.push_back(token.empty() ? "mini to the front" : "mini to the front " + token);
        }

        [[nodiscard]] bool visible() const override { return seen; }

        [[nodiscard]] int density() const override { return pixels; }

        [[nodiscard]] ui::RegionWindow* shape() override { return &outline; }

        void beginDrag() override { ++drags; }

        void setCaption(const std::string& text) override { caption = text; }

        void setTaskbarButton(bool shown) override {
            calls_.emplace_back(shown ? "mini on the task bar" : "mini not on the task bar");
        }

        void setTopmost(bool topmost) override {
            calls_.emplace_back(topmost ? "mini on top" : "mini not on top");
        }

        void moveTo(int left, int top) override {
            calls_.push_back("mini moved to " + std::to_string(left) + " " + std::to_string(top));
        }

        [[nodiscard]] int left() const override { return place.left; }

        [[nodiscard]] int top() const override { return place.top; }

    private:
        std::vector<std::string>& calls_;
    };

    void show() override { calls_.emplace_back("window shown"); }

    void showSplash() override { calls_.emplace_back("splash shown"); }

    void endSplash() override { calls_.emplace_back("splash ended"); }

    void askedForMenu(std::optional<window::ScreenPlace> place) override {
        calls_.emplace_back("menu of the desktop");
        menuPlace = place;
    }

    [[nodiscard]] ui::RegionWindow* shape() override { return &outline; }

    [[nodiscard]] window::SkinnedWindow& mini() override { return miniWindow; }

    void minimise() override { calls_.emplace_back("window minimised"); }

    [[nodiscard]] bool visible() const override { return seen; }

    void bringToFront(const std::string& token) override {
        calls_.push_back(token.empty() ? "to the front" : "to the front " + token);
    }

    void hide() override { calls_.emplace_back("window hidden"); }

    void setCaption(const std::string& text) override {
        caption = text;
        calls_.push_back("caption" + (text.starts_with(' ') ? text : " " + text));
    }

    void setTaskbarButton(bool shown) override {
        calls_.emplace_back(shown ? "on the task bar" : "not on the task bar");
    }

    void setTopmost(bool topmost) override {
        calls_.emplace_back(topmost ? "on top" : "not on top");
    }

    [[nodiscard]] std::uintptr_t handle() const override { return kNumber; }

    void moveTo(int left, int top) override {
        calls_.push_back("moved to " + std::to_string(left) + " " + std::to_string(top));
    }

    [[nodiscard]] int left() const override { return x; }

    [[nodiscard]] int top() const override { return y; }

private:
    std::vector<std::string>& calls_;

public:
    Mini miniWindow;
};

/// Keeps which windows were asked for.
class RecordingOpener final : public window::WindowOpener {
public:
    std::vector<window::WindowId> opened;

    window::WindowOpener* next = nullptr; ///< who opens it in truth; none: nobody

    void open(window::WindowId id) override {
        opened.push_back(id);
        if (next != nullptr) {
            next->open(id);
        }
    }
};

/// Writes into the same list that nothing plays.
class RecordingNews final : public player::TrackEvents {
public:
    explicit RecordingNews(std::vector<std::string>& calls) : calls_(calls) {}

    void reportNothing(const std::string& format, const std::string& word) override {
        calls_.push_back("nothing plays: " + format + " " + word);
    }

private:
    std::vector<std::string>& calls_;
};

class AppRig : public testing::Test {
protected:
    static constexpr const char* kSettings = "db/settings.xml";
    static constexpr const char* kList = "db/autosave.m3u";
    static constexpr const char* kSkin = "skins/CurrentSkin"; ///< leads to a skin of all tests

    AppRig();
    ~AppRig() override;
    AppRig(const AppRig&) = delete;
    AppRig& operator=(const AppRig&) = delete;

    /// The player, made at the first call, for that command line.
    app::frmPlayer& player();

    /// Takes the player down while all that it uses is there.
    void endPlayer() { player_.reset(); }

    /// Both phases of the start, as long as the process has not ended.
    void start();

    void advance(std::int64_t milliseconds) {
        host_.clock.advanceTo(host_.clock.monotonicMs() + milliseconds);
    }

    /// Replaces the text of a key in the settings file; an empty element counts, too.
    void set(const std::string& key, const std::string& text) const;

    /// Sets the text of a key, and makes its element where there is none.
    void put(const std::string& key, const std::string& text) const;

    /// Takes the element of a key out of the settings file.
    void takeOut(const std::string& key) const;

    /// The text of a key in the settings file.
    [[nodiscard]] std::string setting(const std::string& key) const;

    /// A file on the disk that the sound library knows; returns its path.
    std::string track(const std::string& name, const FakeFile& sound = {.seconds = 65},
                      const std::string& bytes = "sound");

    /// Date, version and system apart, the lines of the log: "description,number,module,word".
    [[nodiscard]] std::vector<std::string> logged() const;

    [[nodiscard]] std::size_t callsOf(const std::string& name) const;

    TestHost host_;
    FakeSoundLibrary sound_;
    RecordingWindow window_{sound_.calls};
    RecordingOpener windows_;
    RecordingNews news_{sound_.calls};
    app::StartOptions options_;
    window::Shell* shell_ = nullptr; ///< none: a desktop that offers nothing

private:
    std::unique_ptr<app::frmPlayer> player_;
};

} // namespace tovik::test
